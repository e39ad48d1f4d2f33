#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "listings/Listing.h"

// What the listing window holds, without its widgets: the media to choose from, the switches of columns and formats.
// Each choice of the user is stored at once.
class EtatImpression {
public:
    EtatImpression();  // as the settings have it

    // The media by label, "Tous" first, as the base has them by now, with the stored row chosen.
    void ChargerMedias();
    const std::vector<std::string>& Medias() const { return textes_; }
    int RangMedia() const { return rang_; }
    void ChoisirMedia(int rang);

    bool Opt(int colonne) const { return opt_[static_cast<size_t>(colonne)]; }
    void ChangerOpt(int colonne, bool active);
    // At least one switch is on: without, there is nothing to list.
    bool UneColonne() const;

    // A format is marked once it was chosen; what is written before that is text: kept, particularité 56.
    bool OptFormat(int format) const { return optFormat_[static_cast<size_t>(format)]; }
    void ChoisirFormat(int format);

    // What the OK button writes.
    DemandeListing Demande() const;

private:
    std::vector<std::string> textes_;
    std::vector<int64_t> numeros_;  // at the place of the text, 0 for all
    int rang_ = 0;
    std::array<bool, NombreColonnesListing> opt_{};
    std::array<bool, NombreFormatsListing> optFormat_{};
};

// The columns as the settings tell them to the writers. One that was never touched is off here, on in the window: kept,
// particularité 55.
ColonnesListing LireColonnesListing();
