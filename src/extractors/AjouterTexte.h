#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Fichier.h"

// The longest description: a row of the base holds 1,000,000,000 bytes, and its other fields need some of them. What
// is longer is no description at all, rather than a row that can't be written.
inline constexpr size_t DescriptionMaximale = 999'000'000;

// Appends bytes, as text, to a description. False when it would grow too long.
bool AjouterTexte(std::string_view octets, std::string& texte);

// The same for the bytes of a file from `debut` up to, not at, `fin`, read by blocks. False also when they can't all
// be read; the text may then hold some of them.
bool AjouterTexte(const Fichier& fichier, uint64_t debut, uint64_t fin, std::string& texte);
