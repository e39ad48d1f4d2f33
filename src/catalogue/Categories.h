#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "store/Base.h"

// Categories of media. A media names its own; the colour of each stands in the settings, not in the base.

// RGB long, red in the low byte; black for a category without a colour. Blanks around the name do not count.
uint32_t CouleurCategorie(std::string_view categorie);
// False when it could not be written to disk.
bool EcrireCouleurCategorie(std::string_view categorie, uint32_t couleur);

// Numbers of the media shown that have a category.
std::vector<int64_t> MediasDeCategorie(Base& base, std::string_view categorie);
