#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "browser/LectureListeFichiers.h"
#include "catalogue/ArbreCatalogue.h"
#include "catalogue/Descriptions.h"
#include "catalogue/ListeFichiers.h"

// What the browser window shows, without its widgets: tree, list, title, status and description, and what clicks do to
// them. Filled by one thread and handed to the window's as a whole.
class Navigateur {
public:
    ArbreCatalogue arbre;
    ListeFichiers liste;

    std::string cheminBase;  // path of the base that was loaded

    std::string statut;
    std::string titre;                // behind eleven blanks that leave room for the icon; empty for the root
    Description description;          // what is shown
    bool descriptionDeNoeud = false;  // it belongs to the tree, not to the list

    // Whether the selected node is another than the one shown, so that its entries must be read.
    bool LectureVoulue() const;
    // Shows what was read of a node: entries, new nodes, title, status and colours of the media.
    void Montrer(Lecture lecture);
    // Shows the description of the selected node.
    void MontrerDescriptionNoeud();
    // Shows the description of the item at this place of the list.
    void CliquerItem(int32_t rang);

    // Gives a media the new colour of its category, when it has the old one; the red of the media shown, and the black
    // of one that was shown, stay. Place of its node, Aucun when there is none.
    int32_t ChangerCouleur(int64_t media, uint32_t avant, uint32_t apres);

    // Selects the tree node of a directory item, to be read next. False when it is no directory, or the tree has no
    // such node.
    bool Descendre(int32_t rang);

    // The node's new name, in the tree and, while it is shown, in the title.
    void RenommerNoeud(int32_t noeud, std::string_view texte);

private:
    void ColorerMedia(int32_t noeud, uint32_t couleur);
    void MontrerTitre();
};
