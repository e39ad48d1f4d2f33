#pragma once

#include <string>

#include "platform/Fichier.h"

// BMP, PNG, GIF and JPEG, told apart by their content: "640x480x24xPNG", width, height and bits of a pixel. False when
// it is none of them.
bool DecrireImage(const Fichier& fichier, std::string& resultat);
