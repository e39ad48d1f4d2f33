#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"
#include "listings/SortieListing.h"

// The columns of a listing; the name stands whatever its switch says.
enum ColonneListing {
    ListingNom,
    ListingTaille,
    ListingType,
    ListingDate,
    ListingHeure,
    ListingAttribut,
    NombreColonnesListing
};
using ColonnesListing = std::array<bool, NombreColonnesListing>;

// What a listing says of a media, in this order everywhere: identifier, label, standard, type, serial number, total,
// used and free capacity.
enum { MediaIdentifiant, MediaLabel, MediaStandard, MediaType, MediaSerie, MediaTotal, MediaOccupe, MediaLibre };
using TeteMedia = std::array<std::string, MediaLibre + 1>;

// The cells of one file, by column; a column switched off holds one blank. The texts live as long as the row.
using LigneListing = std::array<std::string_view, NombreColonnesListing>;

// Writes what the walk meets in one format. `Debut` and `Fin` are called once, `FinRepertoire` behind the last row of
// each directory.
class EcrivainListing {
public:
    EcrivainListing(SortieListing& sortie, const ColonnesListing& colonnes) : sortie_(sortie), colonnes_(colonnes) {}
    virtual ~EcrivainListing() = default;
    EcrivainListing(const EcrivainListing&) = delete;
    EcrivainListing& operator=(const EcrivainListing&) = delete;

    virtual void Debut() {}
    virtual void Media(const TeteMedia& media, bool premier) = 0;
    virtual void Repertoire(std::string_view chemin) = 0;
    virtual void Fichier(const LigneListing& ligne) = 0;
    virtual void FinRepertoire() {}
    virtual void Fin() {}

protected:
    bool Active(int colonne) const { return colonnes_[static_cast<size_t>(colonne)]; }

    SortieListing& sortie_;
    const ColonnesListing colonnes_;
};

struct BilanParcours {
    int64_t repertoires = 0, lignes = 0;
};

// Walks the nodes of the tree, media by media and in the order of their making, and reads the files of each from the
// current base. `media`: number of the only one to be listed, 0 for all. False when the base does not open, the walk
// was asked to stop or the writer's text could not be sent. `part` takes the share done, 0 to 1. Uses the store; the
// tree must not change meanwhile.
bool ParcourirListing(const ArbreCatalogue& arbre, int64_t media, const ColonnesListing& colonnes,
                      EcrivainListing& ecrivain, const SortieListing& sortie, const std::stop_token& arret,
                      std::atomic<double>& part, BilanParcours& bilan);
