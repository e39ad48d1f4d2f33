#pragma once

#include <cstdint>

#include "platform/Fichier.h"

// Size of a picture that is to be shown, from its first 64 KB.
class CImageInfo {
public:
    enum Type : uint8_t { Inconnu, GIF, JPEG, PNG, BMP };

    // Replaces all the values; Inconnu when the file is no such picture, or a JPEG whose header lies further in.
    void ReadImageInfo(const Fichier& fichier);

    Type imageType() const { return type_; }
    int Width() const { return largeur_; }  // pixels; meaningful, as the next two, for a known type
    int Height() const { return hauteur_; }
    int Depth() const { return profondeur_; }  // bits of a pixel

private:
    Type type_ = Inconnu;
    int largeur_ = 0, hauteur_ = 0, profondeur_ = 0;
};
