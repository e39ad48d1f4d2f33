#pragma once

#include "listings/ParcoursListing.h"

// A listing as a page of tables. Names go out as they stand.
class RechercheListingHTML : public EcrivainListing {
public:
    RechercheListingHTML(SortieListing& sortie, const ColonnesListing& colonnes);
    void Debut() override;
    void Media(const TeteMedia& media, bool premier) override;
    void Repertoire(std::string_view chemin) override;
    void Fichier(const LigneListing& ligne) override;
    void Fin() override;

private:
    // What stands ahead of each cell's text in a row, and behind the last: a million rows are mostly this.
    using Gabarit = std::array<std::string, NombreColonnesListing + 1>;

    Gabarit gabarits_[2];   // grey, white
    bool blanche_ = false;  // colour of the next row
    bool enTable_ = false;
};
