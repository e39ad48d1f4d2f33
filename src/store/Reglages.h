#pragma once

#include <string>
#include <string_view>

#include "store/ClesReglages.h"

// The user's settings: sections of keys with text values, kept in one file of the configuration directory that only the
// user may read. Texts are UTF-8. Any thread may call all of this.

// The stored text, or the default when the key was never written.
std::string GetSetting(std::string_view section, std::string_view cle, std::string_view defaut);
// The same as a number (leading blanks and what follows the digits ignored; 0 for no number).
double GetSettingNombre(std::string_view section, std::string_view cle, double defaut);
// The same as a whole number from 0 to `maximum`, the default when the stored one lies outside.
int GetSettingEntier(std::string_view section, std::string_view cle, int defaut, int maximum);

// On disk when it returns; false when it could not be written (the value then holds for this process only).
bool SaveSetting(std::string_view section, std::string_view cle, std::string_view valeur);
bool SaveSettingNombre(std::string_view section, std::string_view cle, double valeur);

// Reads the file again at the next look-up (tests and tools that move the configuration directory).
void OublierReglages();
