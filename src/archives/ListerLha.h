#pragma once

#include <stop_token>

#include "archives/ArbreArchive.h"
#include "platform/Fichier.h"

// Fills the tree, emptied first, with the members of an LHA archive: name and packed size. Headers are walked as those
// of level 1; members found before a damage stay.
void ListerLha(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv);
