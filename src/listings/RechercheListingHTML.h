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
    // The beginnings of the cells of a row: the narrow one ahead, one for each column, the one behind.
    using DebutsCellules = std::array<std::string, NombreColonnesListing + 2>;

    DebutsCellules cellules_[2];  // grey, white
    bool blanche_ = false;        // colour of the next row
    bool enTable_ = false;
};
