#pragma once

#include <atomic>
#include <cstdint>
#include <stop_token>
#include <string>

#include "catalogue/ArbreCatalogue.h"
#include "listings/ParcoursListing.h"

// Listings of the current base, in three formats numbered as the settings number them.
enum class FormatListing { Texte, HTML, XML };
inline constexpr int NombreFormatsListing = 3;

struct DemandeListing {
    FormatListing format = FormatListing::Texte;
    int64_t media = 0;  // 0: all of them
    ColonnesListing colonnes{};
    std::string chemin;  // real path of the file
};

// "fic.txt", "fic.html" or "fic.xml" in the program directory.
std::string CheminListing(FormatListing format);

struct ResultatListing {
    std::string erreur;  // to be shown; empty when the listing is written or was stopped
    bool ecrit = false;
    BilanParcours bilan;
    uint64_t octets = 0;
};

// Writes the listing to a file of its own, which then takes the place of an older one; the older one stays otherwise.
// Any thread, by the rules of the walk.
ResultatListing EcrireListing(const ArbreCatalogue& arbre, const DemandeListing& demande, const std::stop_token& arret,
                              std::atomic<double>& part);

// The beginning of the same listing as the program shows it itself: names in HTML are escaped, since they come from
// strangers.
struct ApercuListing {
    std::string texte;  // UTF-8
    bool entier = true;
};
ApercuListing LireApercu(const ArbreCatalogue& arbre, const DemandeListing& demande, size_t limite,
                         const std::stop_token& arret);
