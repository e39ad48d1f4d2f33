#pragma once

#include <string>
#include <vector>

#include "browser/ArbreCatalogue.h"
#include "browser/ListeFichiers.h"
#include "shell/Dialogues.h"

// What the drive chooser shows of the media that is wanted.
struct MediaDemande {
    std::string label, identifiant;
    std::string icone;   // bytes of an icon file, empty when the media has none of its own
    std::string invite;  // " L'unité actuelle : D:"
};

// Asks in which drive the media now lies.
class ChoixLecteur {
public:
    virtual ~ChoixLecteur() = default;
    // A letter of any case; 0 when the user gives up.
    virtual char Choisir(const MediaDemande& media) = 0;
};

// A catalogued entry: its media and the names that lead to it from the top of the media, as they were read there.
struct EntreeCataloguee {
    std::string catalogue;
    std::vector<std::string> noms;
};

// The entry behind an item of the list, below the selected node, and the directory that this node stands for.
EntreeCataloguee EntreeItem(const ArbreCatalogue& arbre, const ItemListe& item);
EntreeCataloguee EntreeNoeud(const ArbreCatalogue& arbre);

// Real path of the entry or, with `dossier`, of the directory that holds it. Looks in the drive that the media was read
// from, in the one it was last found in, then in the one that the user chooses. Empty when it is nowhere.
std::string LocaliserEntree(const EntreeCataloguee& entree, bool dossier, Dialogues& dialogues, ChoixLecteur& choix);

// Locates the entry and hands it to the desktop; false when nothing was opened.
bool OuvrirEntree(const EntreeCataloguee& entree, bool dossier, Dialogues& dialogues, ChoixLecteur& choix);
