#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "archives/ArbreArchive.h"

// A little-endian number as it lies in a header: a struct of such fields has the layout of the file.
template <size_t Taille>
struct PetitBoutiste {
    std::array<uint8_t, Taille> octets;

    operator uint32_t() const
    {
        uint32_t somme = 0;
        for (size_t i = Taille; i-- > 0;)
            somme = somme << 8 | octets[i];
        return somme;
    }
};

// Hangs a member below the folders of its path: the bytes of its name in the header, "/" between the elements. Its text
// is "name:size::", no date being kept.
void AccrocherMembre(std::string_view nom, uint32_t taille, ArbreArchive& tv);
