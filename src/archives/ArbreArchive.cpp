#include "archives/ArbreArchive.h"

#include <functional>
#include <utility>

ArbreArchive::ArbreArchive() : cases_(16)
{
    noeuds_.push_back({0, "Root"});
}

// Where the folder stands or, when it is new, belongs.
size_t ArbreArchive::Case(int32_t parent, std::string_view nom) const
{
    const size_t masque = cases_.size() - 1;
    constexpr size_t impair = 0x9E3779B97F4A7C15;
    size_t place = (std::hash<std::string_view>()(nom) + static_cast<size_t>(parent) * impair) & masque;
    while (cases_[place] != 0) {
        const Noeud& noeud = (*this)[cases_[place]];
        if (noeud.parent == parent && noeud.texte == nom)
            break;
        place = (place + 1) & masque;
    }
    return place;
}

void ArbreArchive::Agrandir()
{
    std::vector<int32_t> anciennes(cases_.size() * 2);
    anciennes.swap(cases_);
    for (const int32_t indice : anciennes)
        if (indice != 0)
            cases_[Case((*this)[indice].parent, (*this)[indice].texte)] = indice;
}

int32_t ArbreArchive::Dossier(int32_t parent, std::string_view nom)
{
    const size_t place = Case(parent, nom);
    if (cases_[place] != 0)
        return cases_[place];
    noeuds_.push_back({parent, std::string(nom)});
    cases_[place] = Nombre();
    if (++dossiers_ > cases_.size() / 2)
        Agrandir();
    return Nombre();
}

int32_t ArbreArchive::Dossiers(std::string_view chemin, char separateur, std::string_view& dernier)
{
    const size_t debut = chemin.rfind(separateur) + 1;  // 0 without separator
    const std::string_view dossiers = chemin.substr(0, debut);
    dernier = chemin.substr(debut);
    if (dossiers == derniers_)
        return dernier_;
    derniers_ = dossiers;
    dernier_ = Racine;
    for (size_t fin = chemin.find(separateur); fin != chemin.npos; fin = chemin.find(separateur)) {
        dernier_ = Dossier(dernier_, chemin.substr(0, fin));
        chemin.remove_prefix(fin + 1);
    }
    return dernier_;
}

void ArbreArchive::Membre(int32_t parent, std::string texte)
{
    noeuds_.push_back({parent, std::move(texte)});
}
