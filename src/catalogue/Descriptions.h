#pragma once

#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/Cles.h"

// Parts the picture block at the head of a description from the text.
std::string SeparerPhoto(std::string_view description, std::string& photo);

// Description of the selected node; `photo` takes the path of the picture linked to it, or is left empty.
std::string LireDescriptionNoeud(const ArbreCatalogue& arbre, std::string& photo);

enum class TypeItem { Repertoire, Fichier };  // "Rep", "Fic"

// Description of an item, by directory code and name or by row number.
std::string LireDescriptionItem(TypeItem type, const CleItem& cle, std::string_view nom, std::string& photo);
