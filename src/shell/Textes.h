#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Small texts and numbers shared by the whole system. "position 1" is the first character.

// Decimal digits, with one leading blank for a number that is not negative.
std::string Str(int64_t nombre);

// `nombre` with at least nine digits ("000000000").
std::string CodeRepertoire(int64_t nombre);

// The text before its first NUL, else the text trimmed on both sides.
std::string StripNull(std::string_view texte);

// "1 023 b", "1,500 Kb": four digits from 1024 bytes on. A negative number shows as bytes.
std::string FormatTaille(double octets);

// " 0 Bytes", "12,50 Mo": the form of capacities.
std::string FormatCapacite(double octets);

// What follows the last ".", in lower case; empty without one or when it ends the name.
std::string ExtensionFichier(std::string_view nom);

// What follows the last "\", or the whole text.
std::string LastPath(std::string_view chemin);

// Fifteen characters, "." or the letter of each attribute bit that is set.
std::string GetAttrString(uint32_t attributs);

// Each word capitalised, if the text is all capitals or all lower case; else as it is.
std::string NiceCase(std::string_view texte);

// Without blanks on both sides.
std::string_view Trim(std::string_view texte);

// A whole number or a decimal one, as a user may write it.
bool EstNumerique(std::string_view texte);

// "yyyymmdd" and the long time text of an entry's creation time (100 ns since 1601 UTC; 0 stands for 1 January 1980).
std::string DateFichier(int64_t temps);
std::string HeureFichier(int64_t temps);

// Short date, blank, long time, from the same.
std::string FormatDateHeure(int64_t temps);

// True when the drive's file system is known and no FAT.
bool EstVolumeNonFat(char lettre);

// Reads a whole file of the program (real path) into the buffer; leaves it untouched when there is none.
void LireFichier(const std::string& chemin, std::string& tampon);
