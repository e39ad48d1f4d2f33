#include "archives/ArbreArchive.h"

#include <functional>
#include <utility>

ArbreArchive::ArbreArchive()
{
    noeuds_.push_back({0, "Root"});
}

size_t ArbreArchive::Hachage::operator()(const CleDossier& cle) const
{
    return std::hash<std::string_view>()(cle.nom) * 31 + static_cast<size_t>(cle.parent);
}

int32_t ArbreArchive::Dossier(int32_t parent, std::string_view nom)
{
    if (const auto connu = dossiers_.find({parent, nom}); connu != dossiers_.end())
        return connu->second;
    noeuds_.push_back({parent, std::string(nom)});
    dossiers_.emplace(CleDossier{parent, noeuds_.back().texte}, Nombre());
    return Nombre();
}

int32_t ArbreArchive::Dossiers(std::string_view chemin, char separateur, std::string_view& dernier)
{
    int32_t parent = Racine;
    for (size_t fin = chemin.find(separateur); fin != chemin.npos; fin = chemin.find(separateur)) {
        parent = Dossier(parent, chemin.substr(0, fin));
        chemin.remove_prefix(fin + 1);
    }
    dernier = chemin;
    return parent;
}

void ArbreArchive::Membre(int32_t parent, std::string texte)
{
    noeuds_.push_back({parent, std::move(texte)});
}
