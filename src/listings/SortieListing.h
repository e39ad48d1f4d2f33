#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/OperationsFichiers.h"

// What the text of a listing goes through: from UTF-8 to one byte per character, Western European ANSI, and out in
// large pieces. Accents that stand behind their letter are composed, narrow no-break blanks become no-break blanks.
// Nothing is escaped, but for the program's own display. For one thread.
class SortieListing {
public:
    // What becomes of a character without a byte, and of the signs of mark-up in `Texte`.
    enum Forme {
        Interrogation,      // "?"
        Reference,          // "&#8364;"
        ReferenceEchappee,  // the same, "&", "<" and ">" escaped
    };

    SortieListing(Forme forme, Versement verser) : forme_(forme), verser_(std::move(verser)) {}

    // Bytes as they go out.
    SortieListing& Brut(std::string_view octets)
    {
        tampon_ += octets;
        return *this;
    }
    SortieListing& Fixe(std::string_view texte);   // the program's own words
    SortieListing& Texte(std::string_view texte);  // words of the catalogue
    // Cut to so many characters, then padded with blanks.
    SortieListing& Colonne(std::string_view texte, size_t coupe, size_t largeur);
    void FinLigne();
    void Ligne(std::string_view fixe) { Fixe(fixe).FinLigne(); }

    // Sends what is left; false when anything could not be sent.
    bool Terminer();
    bool Reussie() const { return reussie_; }
    uint64_t Octets() const { return versees_ + tampon_.size(); }

private:
    void Convertir(std::string_view texte, Forme forme);
    void Vider();

    const Forme forme_;
    const Versement verser_;
    std::string tampon_;
    uint64_t versees_ = 0;  // bytes
    bool reussie_ = true;
};
