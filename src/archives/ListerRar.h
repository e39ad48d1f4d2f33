#pragma once

#include "archives/ArbreArchive.h"
#include "platform/Fichier.h"

// Adds the members of a RAR archive to the tree: their folders, and for each a node "name:size text". An empty member
// is a folder. A damaged archive gives the members before the damage, another file none.
void ListerRar(const Fichier& fichier, ArbreArchive& tv);
