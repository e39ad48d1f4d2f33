#include "extractors/DecrireTGA.h"

#include <fmt/format.h>

bool DecrireTGA(const Fichier& fichier, EnteteTga& entete, std::string& resultat)
{
    if (!fichier.Ouvert())
        return false;
    LecteurOctets lecteur(fichier);
    entete.Lire(lecteur);
    resultat = fmt::format("{}*{}*{}xTGA", entete.largeur, entete.hauteur, entete.profondeur);
    return true;
}
