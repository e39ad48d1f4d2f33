#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

#include "browser/Navigateur.h"
#include "catalogue/IconesExtensions.h"

// What the user has opened and selected in the tree, by keys, so that it outlives the loading of a new tree.
struct EtatArbre {
    struct Noeud {
        std::string cle, cleParent;
        bool ouvert = false;
    };
    std::string base;           // path; in another base the same keys mean other nodes
    std::vector<Noeud> noeuds;  // the open ones and all that lead to them and to the selected one, parents first
    std::string selection;      // key
    bool montre = false;        // the selected node was the one shown
    std::string haut;           // key of the node at the upper edge of the view
    int gauche = 0;             // how far the view was moved sideways
    std::string item;           // key of the item selected in the list
};

// `ouverts`: places of the open nodes, parents first.
EtatArbre NoterEtat(const Navigateur& navigateur, const std::vector<int32_t>& ouverts);

// Selects in a tree of the same base what was selected, or what is nearest above it; reads the nodes on the way that
// only come as those above them are looked at. False when the tree is of another base, or nothing of the way is left.
bool ReprendreEtat(Navigateur& navigateur, const EtatArbre& etat, IconesExtensions& icones,
                   const std::stop_token& arret);
