#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Small texts shared by the whole system. "position 1" is the first character.

// Decimal digits, with one leading blank for a number that is not negative.
std::string Str(int64_t nombre);

// What follows the last ".", in lower case; empty without one or when it ends the name.
std::string ExtensionFichier(std::string_view nom);

// Fifteen characters, "." or the letter of each attribute bit that is set.
std::string GetAttrString(uint32_t attributs);

// Without blanks on both sides.
std::string_view Trim(std::string_view texte);

// Takes the piece up to the next separator, or all there is, off the front of a text; the separator goes too.
std::string_view Detacher(std::string_view& reste, char separateur);

// The letters A to Z of a drive, in one case; 0 for anything else.
char LettreBasse(char lettre);
char LettreCapitale(char lettre);
