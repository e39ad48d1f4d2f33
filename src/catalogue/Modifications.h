#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/Descriptions.h"
#include "catalogue/ListeFichiers.h"
#include "store/Base.h"

// Changes to what is catalogued, each written to the base at once. Every one is false when nothing was written: there
// is no such row, the name of a node or of a directory holds a "'", or the engine refuses. For the thread that uses
// the store.

// Label of a media, or the bytes of its icon file; `numero` decimal.
enum class ChampMedia { Label, Icone };
bool EnregistrerMedia(std::string_view numero, ChampMedia champ, std::string_view valeur);

// Number of the row behind a node below a media, or behind an item of the list; 0 when there is none. A directory
// item is found by its code and the name shown.
int64_t NumeroDuNoeud(const ArbreCatalogue& arbre, int32_t noeud);
int64_t NumeroDeLItem(const ItemListe& item);

// Gives the entry of a row another name to be shown, and writes the folder tree of its media as `arbre` has it now.
bool RenommerAlias(int64_t numero, std::string_view texte, const ArbreCatalogue& arbre, int64_t media);

// Deletes the one row of a directory or archive; the rows inside and the folder tree stay: kept, particularité
// 58. True also when the row is gone already: the node or item should then go too.
bool SupprimerNoeud(const ArbreCatalogue& arbre, int32_t noeud);
bool SupprimerItem(const ItemListe& item);

// Whether the node, a media among them, or the item has a row that can hold a description; and its writing.
bool EstDescriptible(const ArbreCatalogue& arbre, int32_t noeud);
bool EstDescriptible(const ItemListe& item);
bool EnregistrerDescription(const Description& description, const ArbreCatalogue& arbre, int32_t noeud);
bool EnregistrerDescription(const Description& description, const ItemListe& item);
