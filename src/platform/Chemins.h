#pragma once

#include <string>
#include <string_view>
#include <vector>

// Where the program's own files lie (template, fallback base, scratch files): the executable's directory when it may
// be written, else $XDG_DATA_HOME/velourne, made at the first call. Without a trailing "/".
const std::string& DossierProgramme();

// Puts the program directory elsewhere, for tools that share a build directory.
void FixerDossierProgramme(const std::string& dossier);

// $XDG_CONFIG_HOME/velourne, made if missing. Not cached: follows the environment.
std::string DossierConfiguration();

// $XDG_CACHE_HOME/velourne, for what can be made again, the same way.
std::string DossierCache();

// Real path of a catalogued entry: the drive's folder and the names below it. Each name is tried as UTF-8, then as
// Western European ANSI. Empty when nothing stands there. With no names: the top of the drive.
std::string CheminReel(char lettre, const std::vector<std::string>& noms);

// The same from text of the form "D:\dossier\fichier".
std::string CheminReel(std::string_view chemin);
