#pragma once

#include <stop_token>

#include "archives/ArbreArchive.h"
#include "platform/Fichier.h"

// Fills the tree, emptied first, with the members of a RAR archive: their folders, and for each a node "name:size
// text". An empty member is a folder. A damaged archive gives the members before the damage, another file none.
void ListerRar(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv);
