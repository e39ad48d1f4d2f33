#pragma once

#include <stop_token>

#include "archives/ArbreArchive.h"
#include "platform/Fichier.h"

// Fills the tree, emptied first, with the members of a ZIP archive that hold something, in the order of its central
// directory: "name:size:yyyymmdd:HhMM" below the folders of their path. Empty members and folders give none. Nothing
// for a file that is no sound archive.
void ListerZip(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv);
