#pragma once

#include <functional>
#include <string>

#include "browser/ListeFichiers.h"
#include "search/Requete.h"

struct EcouteRecherche {
    std::function<bool()> annulee;                    // asked at every row, and while the engine works towards one
    std::function<void(int32_t nombre)> progression;  // results so far; how many there will be nobody knows
};

// Key of a result: the key of its node in the tree, "#" and the number of its row behind a blank. The node of a file
// is that of the directory or archive that holds it; an archive's key stands behind "12-".
struct CleResultat {
    std::string noeud;  // " 12-000000003", "A 345 12"
    std::string item;   // key of the row in the browser's list, " 12- 345"
    std::string catalogue, ligne;
};
CleResultat AnalyserCleResultat(std::string_view cle);

// Fills the list with the rows of the current base that the select finds and the filter lets pass, in the order of the
// select. Rows without a type are left out, directories too as soon as something is filtered. A search that is
// cancelled, or that the engine refuses, leaves the list empty.
void RechercheLabel(const std::string& requete, const FiltreRecherche& filtre, ListeFichiers& liste,
                    IconesExtensions& icones, const EcouteRecherche& ecoute = {});

// The same for what the window asks. In names alone it looks through the base's file of names, where there is one or
// can be, and asks the engine about the rows found there only.
void RechercheLabel(const DemandeRecherche& demande, const FiltreRecherche& filtre, ListeFichiers& liste,
                    IconesExtensions& icones, const EcouteRecherche& ecoute = {});
