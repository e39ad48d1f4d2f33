#include "extractors/DecrireTexte.h"

#include <utility>

#include "extractors/AjouterTexte.h"

bool DecrireTexte(const Fichier& fichier, std::string& resultat)
{
    std::string texte;
    if (!AjouterTexte(fichier, 0, fichier.Taille(), texte) || texte.empty())
        return false;
    resultat = std::move(texte);
    return true;
}
