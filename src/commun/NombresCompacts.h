#pragma once

#include <cstdint>
#include <string>

// Numbers of variable length: seven bits to the byte, the lowest first; the top bit says that more follow.

inline void AjouterNombre(std::string& suite, uint64_t nombre)
{
    for (; nombre >= 0x80; nombre >>= 7)
        suite += static_cast<char>(nombre | 0x80);
    suite += static_cast<char>(nombre);
}

// Reads one, asking `octetSuivant` for byte after byte (0 to 255).
template <typename OctetSuivant>
uint64_t LireNombre(const OctetSuivant& octetSuivant)
{
    uint64_t nombre = 0;
    for (int decalage = 0; decalage < 64; decalage += 7) {
        const uint64_t octet = octetSuivant();
        nombre |= (octet & 0x7F) << decalage;
        if (octet < 0x80)
            break;
    }
    return nombre;
}
