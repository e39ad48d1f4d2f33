#pragma once

#include <functional>
#include <string>

#include "browser/LectureListeFichiers.h"
#include "catalogue/ArbreCatalogue.h"
#include "catalogue/ListeFichiers.h"

// What the browser window shows, without its widgets: tree, list, title, status and description, and what clicks do to
// them.
class Navigateur {
public:
    ArbreCatalogue arbre;
    ListeFichiers liste;
    IconesExtensions icones;

    std::string statut;
    std::string titre;                // behind eleven blanks that leave room for the icon; empty for the root
    std::string description, photo;   // text shown and path of the picture linked to it
    bool descriptionDeNoeud = false;  // the description belongs to the tree, not to the list
    int colonneTri = ColTaille;
    bool decroissant = false;

    // Shows the selected node. True when the list was read anew. `avant` runs before such a reading.
    bool CliquerNoeud(const EcouteLecture& ecoute = {}, const std::function<void()>& avant = {});

    // Shows the description of the item at this place of the list.
    void CliquerItem(int32_t rang);

    // Selects the tree node of a directory item, to be shown by CliquerNoeud. False when it is no directory, or the
    // tree has no such node.
    bool Descendre(int32_t rang);

    // Empties all, for another base.
    void Vider();

private:
    void ColorerMedia(int32_t noeud, uint32_t couleur);
    void MontrerTitre();
};
