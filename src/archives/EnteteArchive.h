#pragma once

#include <cstdint>
#include <string_view>

#include "archives/ArbreArchive.h"

// Hangs a member below the folders of its path: the bytes of its name in the header, "/" between the elements. Its text
// is "name:size::", as no date is kept (particularité 13).
void AccrocherMembre(std::string_view nom, uint32_t taille, ArbreArchive& tv);
