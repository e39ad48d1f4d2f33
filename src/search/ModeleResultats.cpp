#include "search/ModeleResultats.h"

#include "fenetres/TextesQt.h"
#include "search/EtatRecherche.h"

ModeleResultats::ModeleResultats(ListeFichiers& liste, ImagesCatalogue& images, QObject* parent)
    : ModeleListe(liste, images, parent), liste_(liste)
{
}

int ModeleResultats::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnesRecherche;
}

QVariant ModeleResultats::data(const QModelIndex& index, int role) const
{
    if (role == Qt::ToolTipRole)
        return {};  // the window has a tip of its own for each row
    if (index.column() < ColMedia)
        return ModeleListe::data(index, role);
    if (index.row() >= rowCount() || !LieuxConnus() || role != Qt::DisplayRole)
        return {};
    return EnQString(TexteLieu(lieux_[liste_.Indice(index.row())], index.column()));
}

QVariant ModeleResultats::headerData(int section, Qt::Orientation sens, int role) const
{
    if (section < ColMedia || sens != Qt::Horizontal || role != Qt::DisplayRole)
        return ModeleListe::headerData(section, sens, role);
    return section == ColMedia ? "Média" : "Dossier";
}

std::string_view TexteLieu(const Lieu& lieu, int colonne)
{
    return colonne == ColMedia ? lieu.media : lieu.dossier;
}
