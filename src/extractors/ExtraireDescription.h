#pragma once

#include <string>

#include "extractors/FichierADecrire.h"

// Describes the kinds that are told apart by their extension alone: texts, titles, tags, shortcuts, project files.
// False, the text left alone, when there is no description or the extension is none of these.
bool ExtraireDescription(const FichierADecrire& source, std::string& resultat);
