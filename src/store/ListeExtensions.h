#pragma once

#include <string>
#include <string_view>

// The extension list of the current base, process-wide: each extension, UTF-8 and lower case, behind a "|". Any thread
// may call all of this.

std::string ListeExtensions();

// The whole list anew, as a base keeps it.
void ChargerListeExtensions(std::string_view texte);

// Appends the extension unless the list holds it anywhere, even as a part of another (kept, particularité
// 6). True when the list grew.
bool AjouterExtension(std::string_view extension);
