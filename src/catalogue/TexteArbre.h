#pragma once

#include <cstdint>
#include <string>

#include "catalogue/ArbreCatalogue.h"

// Text of a media's nodes, in the order of their making, as `Catalogue.Tree` keeps it, and its writing into the base,
// media visible. Archives stay out: their keys begin with a letter, not with the number of the media.
std::string TexteArbre(const ArbreCatalogue& arbre, int64_t numero);
bool EcrireArbre(const ArbreCatalogue& arbre, int64_t numero);
