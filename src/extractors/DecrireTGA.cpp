#include "extractors/DecrireTGA.h"

#include <fmt/format.h>

bool DecrireTGA(const Fichier& fichier, EnteteTga& entete, std::string& resultat)
{
    if (!fichier.Ouvert())
        return false;
    LecteurOctets lecteur(fichier);
    entete.Lire(lecteur);
    // No field is checked, and stars stand between the numbers (kept, particularité 38).
    resultat = fmt::format("{}*{}*{}xTGA", entete.largeur, entete.hauteur, entete.profondeur);
    return true;
}
