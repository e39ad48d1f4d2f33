#pragma once

#include <string>

// What the desktop knows of a file extension (lower case, without "."), from the shared MIME database, by extension
// only.

// Name of the MIME type ("image/png"); empty for an unknown extension.
std::string TypeMime(const std::string& extension);

// Name in the user's language ("image PNG"); empty for an unknown extension.
std::string NomTypeFichier(const std::string& extension);

// Name in the icon theme ("image-png"), then the generic one ("image-x-generic"); empty for an unknown extension.
std::string NomIconeFichier(const std::string& extension);
std::string NomIconeGenerique(const std::string& extension);
