#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

// Takes the fields of an archive's header one after another out of its bytes. Once a field is missing, it and every
// later one is 0, and Complets() tells so.
class ChampsOctets {
public:
    explicit ChampsOctets(std::string_view octets) : reste_(octets) {}

    bool Complets() const { return complets_; }
    size_t Reste() const { return reste_.size(); }

    template <std::unsigned_integral Entier>
    Entier PetitBoutiste()
    {
        uint64_t valeur = 0;
        for (size_t rang = 0; rang < sizeof(Entier); ++rang)
            valeur |= uint64_t{Octet()} << 8 * rang;
        return complets_ ? static_cast<Entier>(valeur) : Entier{};
    }

    // Seven bits a byte, the lowest first, the high bit set on all but the last of at most ten bytes.
    uint64_t Variable()
    {
        uint64_t valeur = 0;
        for (int decalage = 0; complets_; decalage += 7) {
            const uint64_t octet = Octet();
            complets_ = complets_ && (decalage < 63 || octet <= 1);  // what 64 bits hold
            valeur |= (octet & 0x7F) << decalage;
            if (octet < 0x80)
                break;
        }
        return complets_ ? valeur : 0;
    }

    // So many bytes, or as many as are left.
    std::string_view Octets(uint64_t nombre)
    {
        const std::string_view pris = reste_.substr(0, static_cast<size_t>(std::min<uint64_t>(nombre, Reste())));
        reste_.remove_prefix(pris.size());
        return pris;
    }

private:
    uint8_t Octet()
    {
        complets_ = complets_ && !reste_.empty();
        return complets_ ? static_cast<uint8_t>(Octets(1).front()) : 0;
    }

    std::string_view reste_;
    bool complets_ = true;
};

// Whether the CRC-32 of these bytes, in the bits of `masque`, is the one that an archive names.
bool SommeJuste(std::string_view octets, uint32_t attendue, uint32_t masque = UINT32_MAX);
