#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"

// The folder tree of a media as one text: elements joined by ";", each parent key "#" key "#" node text, the media's
// own first and parents ahead of their children. Names are not protected: ";" or "#" in one breaks its element.

struct ElementArbre {
    std::string_view cleParent, cle, texte;
};

// Appends an element; its texts must not lie in `arbre`.
void AjouterElement(std::string& arbre, const ElementArbre& element);

// Takes the next element off the front of a tree text; false when there is none left. Missing fields are empty.
bool PrendreElement(std::string_view& arbre, ElementArbre& element);

// The element with this key, wherever it stands; false when there is none.
bool ChercherElement(std::string_view arbre, std::string_view cle, ElementArbre& element);

// Text of a media's nodes, in the order of their making. Archives stay out: their keys begin with a letter, not with
// the number of the media.
std::string TexteArbre(const ArbreCatalogue& arbre, int64_t media);
// Writes it into the base, media visible.
bool EcrireArbre(const ArbreCatalogue& arbre, int64_t media);
