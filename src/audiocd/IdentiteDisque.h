#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What follows from a TOC text: the start frame of each track, then that of the lead-out, decimal, separated by single
// blanks. A text that is empty or holds no blank is no disc, and each function then gives its empty value.

// The frames, at most a hundred numbers; what is no number counts as 0. Empty for no disc.
std::vector<int64_t> TramesToc(std::string_view toc);

// The disc identity: eight lower-case hexadecimal digits.
std::string CalMediaID(std::string_view toc);

// Play time in seconds.
int64_t CalAlbumlength(std::string_view toc);

// Length of each track in whole seconds, separated by blanks.
std::string CalTracklength(std::string_view toc);

// Identity, number of tracks, start frames and lead-out in seconds, joined by "+" as a query's URL holds them.
std::string ArgumentsRequete(std::string_view toc);

// The identity from its three numbers.
std::string ComposerIdentite(int64_t sommeChiffres, int64_t duree, int64_t pistes);
int64_t SommeChiffres(int64_t nombre);

// The decimal number at the beginning of a text, behind blanks; 0 without one. Held within 32 bits.
int64_t Valeur(std::string_view texte);
