#pragma once

#include <cstdint>

#include "platform/Fichier.h"

enum class TypeImage : uint8_t { PNG = 1, GIF, JPEG, BMP, Inconnu = 255 };

// What the header of a picture tells. Of an unknown type the other fields say nothing.
struct EnteteImage {
    TypeImage type = TypeImage::Inconnu;
    int32_t largeur = 0;  // pixels
    int32_t hauteur = 0;
    uint8_t profondeur = 0;  // bits of a pixel
};

// How far into a file a JPEG stream is looked for and followed, and which markers begin a frame header there.
struct PorteeJpeg {
    uint64_t fin;
    bool (*estCadre)(uint8_t marqueur);
};

// Takes the kind from the first three bytes: PNG, GIF or BMP; any other file is searched for a JPEG stream, wherever it
// begins. Of type Inconnu when there is none, or when a field passes the end of the file or 32767 (a depth: 255).
EnteteImage LireEnteteImage(const Fichier& fichier);
EnteteImage LireEnteteImage(const Fichier& fichier, const PorteeJpeg& portee);
