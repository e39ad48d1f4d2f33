#pragma once

#include <string>
#include <vector>

#include "platform/Fichier.h"

// One line "path:size:yyyymmdd:HhMM" for each member of a ZIP archive that holds something, in the order of its central
// directory; "/" separates the elements of a path. Empty members and folders give none. Empty for anything that is no
// sound archive.
std::vector<std::string> ListerZip(const Fichier& fichier);
