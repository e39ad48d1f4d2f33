#include "browser/ModeleListe.h"

#include <algorithm>
#include <utility>

#include <QHeaderView>
#include <QIcon>

#include "fenetres/Place.h"
#include "fenetres/TextesQt.h"

ModeleListe::ModeleListe(ListeFichiers& liste, ImagesCatalogue& images, QObject* parent)
    : QAbstractTableModel(parent), liste_(liste), images_(images)
{
}

void ModeleListe::Cacher()
{
    beginResetModel();
    nombre_ = 0;
    endResetModel();
}

void ModeleListe::Annoncer()
{
    beginResetModel();
    nombre_ = liste_.Nombre();
    endResetModel();
}

void ModeleListe::Ordonner(ListeFichiers::Ordre ordre)
{
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList anciens = persistentIndexList();
    std::vector<int32_t> indices;
    for (const QModelIndex& index : anciens)
        indices.push_back(liste_.Indice(index.row()));
    liste_.Ordonner(std::move(ordre));

    std::vector<int> rangs(anciens.isEmpty() ? 0 : static_cast<size_t>(liste_.Nombre()));
    for (size_t rang = 0; rang < rangs.size(); ++rang)
        rangs[static_cast<size_t>(liste_.Indice(static_cast<int32_t>(rang)))] = static_cast<int>(rang);
    QModelIndexList nouveaux;
    for (qsizetype i = 0; i < anciens.size(); ++i) {
        const auto indice = static_cast<size_t>(indices[static_cast<size_t>(i)]);
        nouveaux.append(index(rangs[indice], anciens[i].column()));
    }
    changePersistentIndexList(anciens, nouveaux);
    emit layoutChanged({}, VerticalSortHint);
}

void ModeleListe::Retirer(int rang)
{
    beginRemoveRows({}, rang, rang);
    liste_.Retirer(rang);
    --nombre_;
    endRemoveRows();
}

void ModeleListe::Remplacer(int rang, const ItemListe& item)
{
    liste_.Remplacer(rang, item);
    emit dataChanged(index(rang, 0), index(rang, NombreColonnes - 1));
}

int ModeleListe::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : nombre_;
}

int ModeleListe::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : NombreColonnes;
}

QVariant ModeleListe::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= nombre_)
        return {};
    const ItemListe item = liste_[index.row()];
    if (role == Qt::DecorationRole && index.column() == ColNom)
        return images_.DeItem(item.icone);
    if (role == Qt::TextAlignmentRole && index.column() == ColTaille)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    if (role == Qt::ToolTipRole && index.column() != ColNom)
        return {};
    return EnQString(item.cellules[static_cast<size_t>(index.column())]);
}

QVariant ModeleListe::headerData(int section, Qt::Orientation sens, int role) const
{
    if (sens == Qt::Horizontal && role == Qt::TextAlignmentRole && section == ColTaille)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (sens != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= NombreColonnes)
        return {};
    return QString::fromUtf8(EnTetesListe[static_cast<size_t>(section)].titre);
}

void PreparerColonnes(QHeaderView& entete)
{
    entete.setStretchLastSection(false);
    entete.setSectionsMovable(false);
    entete.setSectionsClickable(true);
    entete.setSortIndicatorShown(true);
    // The widths are meant for letters of six pixels; a larger font gets larger columns, and a date is seen whole.
    const QFontMetrics lettres = entete.fontMetrics();
    const double echelle = std::max(1.0, lettres.averageCharWidth() / 6.0);
    for (int i = 0; i < NombreColonnes; ++i) {
        const double pixels = EnTetesListe[static_cast<size_t>(i)].largeur / TwipsParPixel;
        entete.resizeSection(i, static_cast<int>(pixels * echelle));
    }
    entete.resizeSection(ColDate, std::max(entete.sectionSize(ColDate), lettres.horizontalAdvance("00/00/0000 ") + 8));
}
