#pragma once

#include <cstdint>
#include <string>

// A number of so many bytes, the least significant first.
inline std::string Petit(uint64_t valeur, int octets = 2)
{
    std::string texte;
    for (; octets-- > 0; valeur >>= 8)
        texte += static_cast<char>(valeur & 0xFF);
    return texte;
}

// The same, the most significant first.
inline std::string Gros(uint64_t valeur, int octets = 2)
{
    const std::string petit = Petit(valeur, octets);
    return {petit.rbegin(), petit.rend()};
}

// Bytes with others laid over them at a place.
inline std::string Avec(std::string octets, size_t place, const std::string& nouveaux)
{
    return octets.replace(place, nouveaux.size(), nouveaux);
}

// A text so many times over.
inline std::string Fois(int nombre, const std::string& texte)
{
    std::string suite;
    while (nombre-- > 0)
        suite += texte;
    return suite;
}
