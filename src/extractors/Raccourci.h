#pragma once

#include <string>

#include "extractors/FichierADecrire.h"

// The target of a shortcut (shell link, "LNK"): the remaining path of its location block and then the local base path,
// one of which is empty as a rule. Never fails: the answer is "Not a link file" when the first byte is no "L", and a
// sentence with the path of the file when it ends before the target does or can't be read.
std::string ResolveWindowsShortcut(const FichierADecrire& source);

// Describes a shortcut by that answer, whatever it is: "Raccourci: C:\Programmes\essai.exe".
bool DecrireRaccourci(const FichierADecrire& source, std::string& resultat);
