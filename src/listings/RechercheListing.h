#pragma once

#include "listings/ParcoursListing.h"

// A listing as text in columns.
class RechercheListing : public EcrivainListing {
public:
    using EcrivainListing::EcrivainListing;
    void Media(const TeteMedia& media, bool premier) override;
    void Repertoire(std::string_view chemin) override;
    void Fichier(const LigneListing& ligne) override;
    void FinRepertoire() override;
};
