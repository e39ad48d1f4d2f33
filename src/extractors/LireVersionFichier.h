#pragma once

#include <string>

#include "platform/Fichier.h"

// Describes a file by the texts of its version resource: up to nine labelled lines, each ending in "\r\n".
// The block is searched as plain text and not walked, so that the first occurrence of a key wins, whatever its
// language. False, the text left alone, when there is no version block or none of the keys stands in it.
bool LireVersionFichier(const Fichier& fichier, std::string& resultat);
