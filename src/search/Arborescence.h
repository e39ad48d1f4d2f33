#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/ListeFichiers.h"

// Adds to the tree the directories that lead to a result and that it lacks, by their names on the medium. Returns the
// node of the result (a directory itself, or the one that holds the file); Aucun when there is no way to it.
int32_t Generer_Arborescence(ArbreCatalogue& arbre, std::string_view cleResultat);

// The same way as a text: the media's label and the names of the directories, joined by "\".
std::string Generer_Arborescence_Lite(std::string_view cleResultat);

// Description of a result's row, by its number and the name shown; the picture block is left out. Empty without one.
std::string AfficherDescriptionInfobulle(const ItemListe& resultat);
