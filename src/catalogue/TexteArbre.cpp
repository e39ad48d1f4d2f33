#include "catalogue/TexteArbre.h"

#include "commun/Formes.h"
#include "store/CycleBase.h"

namespace {

constexpr char Separateur = ';';
constexpr char SeparateurChamps = '#';

}  // namespace

std::string TexteArbre(const ArbreCatalogue& arbre, int64_t numero)
{
    const std::string prefixe = Str(numero) + '-';
    std::string texte;
    for (int32_t i = 0; i < arbre.Nombre(); ++i) {
        const ArbreCatalogue::Noeud& noeud = arbre[i];
        if (!noeud.cle.starts_with(prefixe))
            continue;
        if (!arbre.EstMedia(i))
            texte += Separateur;
        texte.append(arbre[noeud.parent].cle).append(1, SeparateurChamps).append(noeud.cle);
        texte.append(1, SeparateurChamps).append(noeud.texte);
    }
    return texte;
}

bool EcrireArbre(const ArbreCatalogue& arbre, int64_t numero)
{
    return ModifierCatalogue(numero, true, TexteArbre(arbre, numero));
}
