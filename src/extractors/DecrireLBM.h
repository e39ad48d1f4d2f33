#pragma once

#include <string>
#include <string_view>

#include "platform/Fichier.h"

// IFF pictures: "320x200x8xLBM", width, height, number of planes and the extension in upper case. False when the file
// does not begin with "FORM". One without the chunk "BMHD", or with only a part of it, shows the values of the picture
// read before it.
bool DecrireLBM(const Fichier& fichier, std::string_view extension, std::string& resultat);
