#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/LecteurOctets.h"

// The PCX header up to what is described; little-endian.
struct EntetePcx {
    uint8_t fabricant = 0, version = 0, codage = 0, bitsParPixel = 0;
    uint16_t xMin = 0, yMin = 0, xMax = 0, yMax = 0;
    uint16_t resolutionX = 0, resolutionY = 0;
    std::array<uint8_t, 48> palette = {};
    uint8_t reserve = 0, plans = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(fabricant, version, codage, bitsParPixel, xMin, yMin, xMax, yMax, resolutionX,
                                     resolutionY, palette, reserve, plans);
    }
};

// PCX: "640x480x8xPCX", width, height and eight times the number of planes. False when the file is not open or its
// first byte is not 10. What a short file does not hold stays in the header as it was.
bool DecrirePCX(const Fichier& fichier, EntetePcx& entete, std::string& resultat);
