#pragma once

#include <cstdint>
#include <string>

#include "platform/LecteurOctets.h"

// The TGA header up to what is described; little-endian.
struct EnteteTga {
    uint8_t longueurIdentifiant = 0, typePalette = 0, typeImage = 0;
    uint16_t debutPalette = 0, taillePalette = 0;
    uint8_t profondeurPalette = 0;
    uint16_t x = 0, y = 0, largeur = 0, hauteur = 0;
    uint8_t profondeur = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(longueurIdentifiant, typePalette, typeImage, debutPalette, taillePalette,
                                     profondeurPalette, x, y, largeur, hauteur, profondeur);
    }
};

// TGA: "640*480*24xTGA", width, height and bits of a pixel. Nothing in the file is checked: false only when it is not
// open. What a short file does not hold stays in the header as it was.
bool DecrireTGA(const Fichier& fichier, EnteteTga& entete, std::string& resultat);
