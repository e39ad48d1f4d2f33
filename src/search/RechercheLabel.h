#pragma once

#include <functional>
#include <string>

#include "catalogue/ListeFichiers.h"
#include "search/Requete.h"

struct EcouteRecherche {
    std::function<bool()> annulee;                    // asked at every row, and while the engine works towards one
    std::function<void(int32_t nombre)> progression;  // results so far; how many there will be nobody knows
};

// Fills the list with the rows of the current base that the select finds and the filter lets pass, in the order of the
// select. Rows without a type are left out, directories too as soon as something is filtered. A search that is
// cancelled, or that the engine refuses, leaves the list empty.
void RechercheLabel(const std::string& requete, const FiltreRecherche& filtre, ListeFichiers& liste,
                    IconesExtensions& icones, const EcouteRecherche& ecoute = {});

// The same for what the window asks. In names alone it looks through the base's file of names, where there is one or
// can be, and asks the engine about the rows found there only.
void RechercheLabel(const DemandeRecherche& demande, const FiltreRecherche& filtre, ListeFichiers& liste,
                    IconesExtensions& icones, const EcouteRecherche& ecoute = {});
