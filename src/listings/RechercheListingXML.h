#pragma once

#include "listings/ParcoursListing.h"

// A listing as XML. Names go out as they stand, one with "&" or "<" too: kept, particularité 57.
class RechercheListingXML : public EcrivainListing {
public:
    using EcrivainListing::EcrivainListing;
    void Debut() override;
    void Media(const TeteMedia& media, bool premier) override;
    void Repertoire(std::string_view chemin) override;
    void Fichier(const LigneListing& ligne) override;
    void FinRepertoire() override;
    void Fin() override;
};
