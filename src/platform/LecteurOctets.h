#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Fichier.h"

// Reads the bytes of a file in sequence or from any place, a block at a time. No read passes the end of the file.
class LecteurOctets {
public:
    explicit LecteurOctets(const Fichier& fichier, uint64_t position = 0) : fichier_(fichier), position_(position) {}

    uint64_t Position() const { return position_; }
    uint64_t Reste() const { return position_ < fichier_.Taille() ? fichier_.Taille() - position_ : 0; }

    // Any place will do; from one behind the end nothing can be read.
    void Aller(uint64_t position) { position_ = position; }
    void Sauter(uint64_t nombre);

    // All the bytes or none: false, the place unchanged, when fewer remain.
    bool Lire(void* cible, size_t nombre);

    // Up to so many bytes, fewer at the end of the file.
    std::string Octets(uint64_t nombre);

    // The fields of a record one after another, numbers or arrays of bytes. False from the first one that is not whole,
    // which stays as it was, with those behind it.
    template <typename... Champs>
    bool PetitBoutiste(Champs&... champs)
    {
        return (LireChamp(champs, true) && ...);
    }

    template <typename... Champs>
    bool GrosBoutiste(Champs&... champs)
    {
        return (LireChamp(champs, false) && ...);
    }

private:
    template <typename Octet, size_t Taille>
    bool LireChamp(std::array<Octet, Taille>& octets, bool)
    {
        static_assert(sizeof(Octet) == 1);
        return Lire(octets.data(), Taille);
    }

    size_t Copier(char* cible, size_t nombre);  // from the place on; returns how many came

    template <std::unsigned_integral Entier>
    bool LireChamp(Entier& valeur, bool petitBoutiste)
    {
        std::array<uint8_t, sizeof(Entier)> octets;
        if (!Lire(octets.data(), octets.size()))
            return false;
        uint64_t somme = 0;
        for (size_t i = 0; i < octets.size(); ++i)
            somme = somme << 8 | octets[petitBoutiste ? octets.size() - 1 - i : i];
        valeur = static_cast<Entier>(somme);
        return true;
    }

    const Fichier& fichier_;
    uint64_t position_;
    std::array<char, Fichier::PremierBloc> bloc_;
    uint64_t debutBloc_ = 0;
    size_t tailleBloc_ = 0;
};

inline constexpr uint64_t Introuvable = UINT64_MAX;

enum class Casse { Respectee, Ignoree };  // ignored for the letters A to Z

// The first place of a byte pattern that lies wholly from `debut` up to, not at, `fin`; else Introuvable. Reads in
// blocks, and no further than the place.
uint64_t Chercher(const Fichier& fichier, std::string_view motif, uint64_t debut = 0, uint64_t fin = UINT64_MAX,
                  Casse casse = Casse::Respectee);

// The first place at which any of the patterns, all of one length, lies.
uint64_t ChercherUnDe(const Fichier& fichier, const std::vector<std::string_view>& motifs, uint64_t debut = 0,
                      uint64_t fin = UINT64_MAX);

// The first place of each pattern, found in one pass over the file.
std::vector<uint64_t> ChercherChacun(const Fichier& fichier, const std::vector<std::string_view>& motifs,
                                     uint64_t debut = 0, uint64_t fin = UINT64_MAX);
