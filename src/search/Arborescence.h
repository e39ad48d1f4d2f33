#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/ListeFichiers.h"

// Adds to the tree the directories and archives that lead to a result and that it lacks, directories by their names on
// the medium. Returns the node of the result (a directory itself, or what holds anything else); Aucun when there is no
// way to it.
int32_t Generer_Arborescence(ArbreCatalogue& arbre, std::string_view cleResultat);

// The same way as a text: the media's label and the names of the directories, joined by "\".
std::string Generer_Arborescence_Lite(std::string_view cleResultat);

// Key of a result that is no directory in the list of its node.
std::string CleItemResultat(std::string_view cleResultat);

// Description of a result's row, by its number and the name shown; the picture block is left out. Empty without one.
std::string AfficherDescriptionInfobulle(const ItemListe& resultat);

// Where results lie: the media's label, and the directories from its top down, as "\un\deux".
struct Lieu {
    std::string media, dossier;
};
struct LieuxResultats {
    std::vector<Lieu> lieux;
    std::vector<int32_t> places;  // of each result in order of arrival

    const Lieu& operator[](int32_t indice) const
    {
        return lieux[static_cast<size_t>(places[static_cast<size_t>(indice)])];
    }
};

// Reads each directory of the results once. Empty when it was asked to stop.
LieuxResultats LireLieux(const ListeFichiers& resultats, const std::stop_token& arret = {});
