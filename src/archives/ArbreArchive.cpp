#include "archives/ArbreArchive.h"

#include <functional>
#include <utility>

ArbreArchive::ArbreArchive()
{
    noeuds_.push_back({0, "Root"});
}

size_t ArbreArchive::Empreinte(int32_t parent, std::string_view nom)
{
    constexpr size_t impair = 0x9E3779B97F4A7C15;
    return std::hash<std::string_view>()(nom) + static_cast<size_t>(parent) * impair;
}

int32_t ArbreArchive::Dossier(int32_t parent, std::string_view nom)
{
    const size_t empreinte = Empreinte(parent, nom);
    const auto egal = [&](int32_t indice) {
        const Noeud& noeud = (*this)[indice];
        return noeud.parent == parent && noeud.texte == nom;
    };
    if (const int32_t connu = dossiers_.Chercher(empreinte, egal); connu != TableNumeros::Aucun)
        return connu;
    noeuds_.push_back({parent, std::string(nom)});
    dossiers_.Ajouter(empreinte, Nombre(), egal, [this](int32_t indice) {
        return Empreinte((*this)[indice].parent, (*this)[indice].texte);
    });
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
