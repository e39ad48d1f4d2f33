#pragma once

#include <string>

#include "platform/Fichier.h"

// Describes an HTML file by its first title: "Titre: Mon Site", line ends and entities as they stand. False without
// "<title>", in any case but without attributes, or without the closing tag behind it.
bool DecrireHTML(const Fichier& fichier, std::string& resultat);
