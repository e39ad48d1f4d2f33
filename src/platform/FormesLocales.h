#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Texts in the forms of the user's locale, as the catalogue stores and shows them.

// "1 023 b", "1,500 Kb": four digits from 1024 bytes on. A negative number shows as bytes.
std::string FormatTaille(double octets);

// " 0 Bytes", "12,50 Mo": the form of capacities.
std::string FormatCapacite(double octets);

// A whole number or a decimal one, as a user may write it.
bool EstNumerique(std::string_view texte);

// "yyyymmdd" and the long time text of an entry's creation time (100 ns since 1601 UTC; 0 stands for 1 January 1980).
std::string DateFichier(int64_t temps);
std::string HeureFichier(int64_t temps);
