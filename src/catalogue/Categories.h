#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/Base.h"

// Categories of media. A media names its own; the colour of each stands in the settings, not in the base.

// The categories that there always are, as rows of a list; without its blanks each is the name.
inline constexpr std::array<std::string_view, 5> CategoriesFixes = {
    "Cd Audio                  ", "Cd Mp3                    ", "Cd Utilitaire             ",
    "Cd Data                   ", "Cd Divx                   "};
// Their names, then those that media of the base have beside them, in French order.
std::vector<std::string> CategoriesOffertes(Base& base);

// Category of a media (its number, decimal), without blanks around it.
std::string CategorieMedia(Base& base, std::string_view media);

// RGB long, red in the low byte; black for a category without a colour. Blanks around the name do not count.
uint32_t CouleurCategorie(std::string_view categorie);
// False when it could not be written to disk.
bool EcrireCouleurCategorie(std::string_view categorie, uint32_t couleur);

// Numbers of the media shown that have a category.
std::vector<int64_t> MediasDeCategorie(Base& base, std::string_view categorie);
