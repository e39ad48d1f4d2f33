#pragma once

#include <string>

#include "platform/Fichier.h"

// Describes a project file (VBP: lines "Key="Value"") by up to seven labelled lines, "Titre: Mon Projet" the first.
// False when none of the keys has a value.
bool DecrireProjet(const Fichier& fichier, std::string& resultat);
