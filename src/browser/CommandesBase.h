#pragma once

#include <string>

#include "commun/Dialogues.h"

// What the user does to whole bases. Each asks what it needs to know, and returns true when another base has become
// current; the tree must then be loaded anew. A dialog left without a choice does nothing.

// An empty base, which becomes current once it is there. Asks before it overwrites a file.
bool CreerCatalogue(Dialogues& dialogues);

bool OuvrirCatalogue(Dialogues& dialogues);
// The one at this path, nothing when no file is there.
bool OuvrirBaseRecente(const std::string& chemin);

// Copies the current base, which stays current.
void DupliquerCatalogue(Dialogues& dialogues);

// Deletes the current base after a question; an empty one takes its place.
bool SupprimerCatalogue(Dialogues& dialogues);
