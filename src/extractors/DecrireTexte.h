#pragma once

#include <string>

#include "platform/Fichier.h"

// Describes a DIZ, NFO or BBS file by its whole content, nothing left out or replaced. False when it is empty, can't
// be read whole or is longer than a description may be.
bool DecrireTexte(const Fichier& fichier, std::string& resultat);
