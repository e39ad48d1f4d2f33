#pragma once

#include <string>

#include "platform/Fichier.h"

// Describes an MP3 file in twelve labelled lines, the last one without line end. A file that tells nothing, or cannot
// be read, has its twelve lines too.
bool DecrireMP3(const Fichier& fichier, std::string& resultat);
