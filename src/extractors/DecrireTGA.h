#pragma once

#include <string>

#include "platform/Fichier.h"

// TGA: "640*480*24xTGA", width, height and bits of a pixel. Nothing in the file is checked: false only when it is not
// open. What a short file does not hold is taken from the one read before it.
bool DecrireTGA(const Fichier& fichier, std::string& resultat);
