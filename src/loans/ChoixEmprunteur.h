#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "loans/Prets.h"

// Who is to have a media, as the field of the window holds it, without the field: the borrowers to choose from, the
// text in it, and its tag: the number of a borrower, or empty.
class ChoixEmprunteur {
public:
    // The borrowers, and the one who has the media now.
    void Charger(std::string_view media);

    const std::vector<LignePret>& Personnes() const { return personnes_; }
    // Row of the borrower in the field; -1 when none of the rows is meant.
    int Rang() const;

    void Choisir(int rang);
    // What the user types takes the tag's place, but for a borrower chosen from the list, who stays until the field is
    // emptied: kept, particularité 52.
    void Taper(std::string_view texte);

    // Lends the media to the borrower of the tag, else of the text; a name that no row has becomes a new borrower, and
    // an empty text brings the media home. False, and nothing is changed, when the base can't be written.
    bool ValiderPret(std::string_view media);

private:
    std::string Chercher() const;

    std::vector<LignePret> personnes_;
    std::string texte_, tag_;
    bool choisi_ = false;  // the tag comes from the list, not from the base
};
