#include "browser/ModeleArbre.h"

#include <utility>

#include "browser/ImagesCatalogue.h"
#include "fenetres/Couleurs.h"
#include "fenetres/TextesQt.h"

ModeleArbre::ModeleArbre(ArbreCatalogue& arbre, ImagesCatalogue& images, QObject* parent)
    : QAbstractItemModel(parent), arbre_(arbre), images_(images)
{
}

void ModeleArbre::Cacher()
{
    beginResetModel();
    visible_ = false;
    enfants_.clear();
    endResetModel();
}

void ModeleArbre::Annoncer()
{
    beginResetModel();
    visible_ = true;
    enfants_.clear();
    endResetModel();
}

const std::vector<int32_t>& ModeleArbre::Enfants(int32_t noeud) const
{
    const auto [place, nouveau] = enfants_.try_emplace(noeud);
    if (nouveau) {
        place->second.reserve(static_cast<size_t>(arbre_[noeud].enfants));
        for (int32_t e = arbre_[noeud].premierEnfant; e != ArbreCatalogue::Aucun; e = arbre_[e].suivant)
            place->second.push_back(e);
    }
    return place->second;
}

void ModeleArbre::AnnoncerEnfants(int32_t noeud)
{
    if (!visible_ || noeud == ArbreCatalogue::Aucun || arbre_[noeud].enfants == 0)
        return;
    const auto connus = enfants_.find(noeud);
    // A node that the view has not looked into yet must still learn that it can be opened.
    const int annonces = connus == enfants_.end() ? 0 : static_cast<int>(connus->second.size());
    if (annonces == arbre_[noeud].enfants)
        return;
    std::vector<int32_t> tous;
    for (int32_t e = arbre_[noeud].premierEnfant; e != ArbreCatalogue::Aucun; e = arbre_[e].suivant)
        tous.push_back(e);
    if (annonces == 0)
        enfants_[noeud].clear();
    beginInsertRows(Index(noeud), annonces, arbre_[noeud].enfants - 1);
    enfants_[noeud] = std::move(tous);
    endInsertRows();
}

void ModeleArbre::AnnoncerNoeud(int32_t noeud)
{
    if (visible_ && noeud != ArbreCatalogue::Aucun)
        emit dataChanged(Index(noeud), Index(noeud));
}

void ModeleArbre::Retirer(int32_t noeud)
{
    const int32_t parent = arbre_[noeud].parent;
    const auto connus = enfants_.find(parent);
    const bool montre =
        visible_ && connus != enfants_.end() && arbre_[noeud].rang < static_cast<int>(connus->second.size());
    const int rang = arbre_[noeud].rang;
    if (montre)
        beginRemoveRows(Index(parent), rang, rang);
    // What was known of the nodes below goes with them.
    std::vector<int32_t> aOublier = {noeud};
    while (!aOublier.empty()) {
        const int32_t oublie = aOublier.back();
        aOublier.pop_back();
        if (const auto place = enfants_.find(oublie); place != enfants_.end()) {
            aOublier.insert(aOublier.end(), place->second.begin(), place->second.end());
            enfants_.erase(place);
        }
    }
    if (connus != enfants_.end() && montre)
        connus->second.erase(connus->second.begin() + rang);
    arbre_.Retirer(noeud);
    if (montre)
        endRemoveRows();
}

QModelIndex ModeleArbre::Index(int32_t noeud) const
{
    if (!visible_ || noeud == ArbreCatalogue::Aucun)
        return {};
    return createIndex(arbre_[noeud].rang, 0, static_cast<quintptr>(noeud));
}

QModelIndex ModeleArbre::IndexDeCle(std::string_view cle) const
{
    return Index(arbre_.Chercher(cle));
}

std::string_view ModeleArbre::Cle(const QModelIndex& index) const
{
    return index.isValid() ? arbre_[Noeud(index)].cle : std::string_view();
}

int32_t ModeleArbre::Noeud(const QModelIndex& index)
{
    return index.isValid() ? static_cast<int32_t>(index.internalId()) : ArbreCatalogue::Aucun;
}

QModelIndex ModeleArbre::index(int rang, int colonne, const QModelIndex& parent) const
{
    if (rang < 0 || colonne != 0 || rang >= rowCount(parent))
        return {};
    return Index(parent.isValid() ? Enfants(Noeud(parent))[static_cast<size_t>(rang)] : 0);
}

QModelIndex ModeleArbre::parent(const QModelIndex& index) const
{
    return index.isValid() ? Index(arbre_[Noeud(index)].parent) : QModelIndex();
}

int ModeleArbre::rowCount(const QModelIndex& parent) const
{
    if (!visible_ || arbre_.Nombre() == 0)
        return 0;
    return parent.isValid() ? static_cast<int>(Enfants(Noeud(parent)).size()) : 1;
}

int ModeleArbre::columnCount(const QModelIndex&) const
{
    return 1;
}

bool ModeleArbre::hasChildren(const QModelIndex& parent) const
{
    if (!visible_ || !parent.isValid())
        return visible_ && arbre_.Nombre() > 0;
    const auto connus = enfants_.find(Noeud(parent));
    return connus == enfants_.end() ? arbre_[Noeud(parent)].enfants > 0 : !connus->second.empty();
}

QVariant ModeleArbre::data(const QModelIndex& index, int role) const
{
    const int32_t noeud = Noeud(index);
    if (noeud == ArbreCatalogue::Aucun)
        return {};
    const ArbreCatalogue::Noeud& n = arbre_[noeud];
    switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole: return EnQString(n.texte);
        case Qt::DecorationRole: {
            const QIcon icone = images_.DuNoeud(arbre_, noeud);
            return icone.isNull() ? QVariant() : icone;
        }
        case Qt::ForegroundRole:
            // Black is the palette's own text colour, which a dark theme makes light.
            if (n.couleur == CouleurNoire)
                return {};
            return CouleurDeLong(n.couleur);
        default: return {};
    }
}
