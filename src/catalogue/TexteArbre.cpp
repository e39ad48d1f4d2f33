#include "catalogue/TexteArbre.h"

#include "commun/Formes.h"
#include "catalogue/Medias.h"

namespace {

constexpr char Separateur = ';';
constexpr char SeparateurChamps = '#';

}  // namespace

void AjouterElement(std::string& arbre, const ElementArbre& element)
{
    if (!arbre.empty())
        arbre += Separateur;
    arbre.append(element.cleParent).append(1, SeparateurChamps).append(element.cle);
    arbre.append(1, SeparateurChamps).append(element.texte);
}

bool PrendreElement(std::string_view& arbre, ElementArbre& element)
{
    if (arbre.empty())
        return false;
    std::string_view morceau = Detacher(arbre, Separateur);
    element.cleParent = Detacher(morceau, SeparateurChamps);
    element.cle = Detacher(morceau, SeparateurChamps);
    element.texte = Detacher(morceau, SeparateurChamps);
    return true;
}

bool ChercherElement(std::string_view arbre, std::string_view cle, ElementArbre& element)
{
    const std::string cherche = std::string(1, SeparateurChamps).append(cle).append(1, SeparateurChamps);
    const size_t place = arbre.find(cherche);
    if (place == arbre.npos)
        return false;
    std::string_view suite = arbre.substr(arbre.rfind(Separateur, place) + 1);
    return PrendreElement(suite, element);
}

std::string TexteArbre(const ArbreCatalogue& arbre, int64_t media)
{
    const std::string prefixe = Str(media) + '-';
    std::string texte;
    arbre.Parcourir([&](int32_t, const ArbreCatalogue::Noeud& noeud) {
        if (noeud.cle.starts_with(prefixe) && noeud.parent != ArbreCatalogue::Aucun)
            AjouterElement(texte, {arbre[noeud.parent].cle, noeud.cle, noeud.texte});
    });
    return texte;
}

bool EcrireArbre(const ArbreCatalogue& arbre, int64_t media)
{
    return ModifierCatalogue(media, true, TexteArbre(arbre, media));
}
