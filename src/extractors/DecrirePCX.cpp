#include "extractors/DecrirePCX.h"

#include <fmt/format.h>

bool DecrirePCX(const Fichier& fichier, EntetePcx& entete, std::string& resultat)
{
    if (!fichier.Ouvert())
        return false;
    LecteurOctets lecteur(fichier);
    entete.Lire(lecteur);
    if (entete.fabricant != 10)
        return false;

    const int largeur = entete.xMax - entete.xMin + 1;
    const int hauteur = entete.yMax - entete.yMin + 1;
    const int profondeur = entete.plans * 8;  // planes only (kept, particularité 11)
    resultat = fmt::format("{}x{}x{}xPCX", largeur, hauteur, profondeur);
    return true;
}
