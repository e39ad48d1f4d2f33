#pragma once

#include <string>
#include <vector>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/ListeFichiers.h"
#include "commun/Dialogues.h"
#include "extraction/ChoixLecteur.h"

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
