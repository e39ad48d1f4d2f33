#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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
    std::string chemin;               // of the node shown; empty for the root
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

    // Selects the parent of the selected node, to be read next. False for the root.
    bool Monter();
    // Selects the node that was shown before, among those that are still there. False when there is none.
    bool Reculer();
    bool PeutReculer() const;
    // Only what is shown from now on counts as seen.
    void OublierVus() { vus_.clear(); }

    // Key under which a node below a media stands in the list of its parent; empty for others.
    std::string CleDansLaListe(int32_t noeud) const;

    // Path of a node, of the item at this place of the list, as it is shown: "D:\dossier\fichier". Reads the base.
    std::string CheminNoeud(int32_t noeud) const;
    std::string CheminItem(int32_t rang) const;

    // The node's new name, in the tree and, while it is shown, in the title.
    void RenommerNoeud(int32_t noeud, std::string_view texte);

private:
    void ColorerMedia(int32_t noeud, uint32_t couleur);
    void MontrerTitre();
    void Retenir(const std::string& cle);

    std::vector<std::string> vus_;  // keys of the nodes shown before, the last one behind
    std::string montre_;            // key of the one shown now
    std::string recul_;             // key of the one that Reculer has selected
};
