#pragma once

#include <stop_token>

#include "archives/ArbreArchive.h"
#include "platform/Fichier.h"

// Fills the tree, emptied first, with the members of an ARJ archive (the format's technical note): name and packed
// size. Members found before a damage stay; a file that does not begin with the archive's header has none.
void ListerArj(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv);
