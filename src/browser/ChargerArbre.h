#pragma once

#include <functional>

#include "catalogue/ArbreCatalogue.h"

// What ChargerArbre tells and asks while it works; each may be empty.
struct EcouteChargement {
    std::function<void(double part)> progression;  // 0 to 1
    std::function<void()> baseChangee;             // the base was missing and another one became current
    std::function<void()> cliquer;                 // shows the selected node
};

// Fills the tree from the current base, unless it holds nodes and no reload is asked for. False when nothing was done.
bool ChargerArbre(ArbreCatalogue& arbre, const EcouteChargement& ecoute = {});
