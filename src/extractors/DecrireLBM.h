#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/LecteurOctets.h"

// The chunk BMHD of an IFF ILBM picture up to what is described; big-endian.
struct BlocBmhd {
    uint16_t largeur = 0, hauteur = 0;
    uint16_t x = 0, y = 0;
    uint8_t plans = 0;

    bool Lire(LecteurOctets& lecteur) { return lecteur.GrosBoutiste(largeur, hauteur, x, y, plans); }
};

// IFF pictures: "320x200x8xLBM", width, height, number of planes and the extension in upper case. False when the file
// does not begin with "FORM". What one without the chunk "BMHD", or with only a part of it, does not hold stays in the
// chunk as it was.
bool DecrireLBM(const Fichier& fichier, std::string_view extension, BlocBmhd& bloc, std::string& resultat);
