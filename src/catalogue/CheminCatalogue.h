#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"
#include "store/Base.h"

// Name of the top of a media (its number, decimal): its drive, "D:". None when it has no row.
std::optional<std::string> NomRacine(Base& base, std::string_view media);

// Path of a node as it is shown, "D:\dossier\dessous": the texts on the way down to it, the media's own replaced by
// `racine`, if there is one. Empty for the root of the tree.
std::string CheminCatalogue(const ArbreCatalogue& arbre, int32_t noeud, const std::optional<std::string>& racine);
