#pragma once

#include <string>

#include "platform/Fichier.h"

// Describes an Ogg Vorbis file (Vorbis I, comment header) in eight labelled lines, the last one without line end.
// Pages and packets are not walked: the comment header is sought by its first bytes and read as a text of 2048 bytes
// at most. False when it is not found, does not fit, is damaged, or holds none of the eight comments.
bool DecrireOgg(const Fichier& fichier, std::string& resultat);
