#pragma once

#include <cstdint>
#include <string_view>

// Writes the description of a media's root row after the fact; false when it can't be written.
bool ModifierDescriptionFichier(int64_t media, std::string_view texte);
