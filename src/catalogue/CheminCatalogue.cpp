#include "catalogue/CheminCatalogue.h"

#include <vector>

#include "catalogue/Lignes.h"

std::optional<std::string> NomRacine(Base& base, std::string_view media)
{
    Recordset racine = LigneRacine(base, media);
    if (racine.Eof())
        return {};
    return std::string(racine.Texte("Nom"));
}

std::string CheminCatalogue(const ArbreCatalogue& arbre, int32_t noeud, const std::optional<std::string>& racine)
{
    std::vector<std::string_view> textes;
    for (; arbre[noeud].parent != ArbreCatalogue::Aucun; noeud = arbre[noeud].parent)
        textes.push_back(arbre[noeud].texte);
    if (racine && !textes.empty())
        textes.back() = *racine;
    std::string chemin;
    for (auto texte = textes.rbegin(); texte != textes.rend(); ++texte)
        chemin.append(texte == textes.rbegin() ? "" : "\\").append(*texte);
    return chemin;
}
