#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/Cles.h"
#include "store/Base.h"

// Descriptions: free text, "<photo>" path "</photo>" ahead of it when a picture is linked.

struct Description {
    std::string texte;
    std::string photo;  // path of the picture; empty without one

    bool operator==(const Description&) const = default;
};

// A stored description in its two parts, and back.
Description SeparerPhoto(std::string_view stockee);
std::string JoindrePhoto(const Description& description);

// Of the selected node; empty for the root and for a name with "'".
Description LireDescriptionNoeud(Base& base, const ArbreCatalogue& arbre);

// Of an item of the list, a directory by its code and the name shown, a file by the number of its row.
enum class TypeItem { Repertoire, Fichier };  // "Rep", "Fic"
Description LireDescriptionItem(Base& base, TypeItem type, const CleItem& cle, std::string_view nom);

// Of a result of the search, by its number and the name shown.
Description LireDescriptionResultat(Base& base, const CleResultat& cle, std::string_view nom);

// Writes the description of a media, which is its top directory's; false when it could not be written.
bool ModifierDescriptionFichier(Base& base, int64_t media, std::string_view texte);
