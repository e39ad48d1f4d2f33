#pragma once

#include <string>

#include "platform/Fichier.h"

// PCX: "640x480x8xPCX", width, height and eight times the number of planes. False when the file is not open or its
// first byte is not 10. What a short file does not hold is taken from the one read before it.
bool DecrirePCX(const Fichier& fichier, std::string& resultat);
