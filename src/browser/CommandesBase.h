#pragma once

#include <string>

#include "commun/Dialogues.h"

// What the user does to whole bases. Each returns true when another base has become current; the tree must then be
// loaded anew.

// An empty base at this path, which becomes current. Asks before it overwrites a file.
bool CreerCatalogue(const std::string& chemin, Dialogues& dialogues);

bool OuvrirCatalogue(const std::string& chemin);

// Copies the current base, which stays current.
void DupliquerCatalogue(const std::string& chemin, Dialogues& dialogues);

// Deletes the current base after a question; an empty one takes its place.
bool SupprimerCatalogue(Dialogues& dialogues);
