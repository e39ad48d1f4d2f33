#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/ListeFichiers.h"
#include "commun/Consultation.h"
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

// Finds the real path of an entry or, with `dossier`, of the directory that holds it, and hands it to `trouve`, which
// gets an empty one when it is nowhere. Looks in the drive that the media was read from, in the one it was last found
// in, then in the one that the user chooses; the drives are asked beside the window's thread. `dialogues`, `choix` and
// `lecteurs` must live as long as the search.
void LocaliserEntree(const EntreeCataloguee& entree, bool dossier, Consultation& lecteurs, Dialogues& dialogues,
                     ChoixLecteur& choix, std::function<void(const std::string& chemin)> trouve);
