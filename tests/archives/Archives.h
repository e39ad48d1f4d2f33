#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "archives/ArbreArchive.h"

// A little-endian number of so many bytes.
inline std::string Entier(uint64_t valeur, int octets)
{
    std::string texte;
    for (; octets-- > 0; valeur >>= 8)
        texte += static_cast<char>(valeur & 0xFF);
    return texte;
}

// The nodes behind the first, each as "parent text".
inline std::vector<std::string> TexteArbre(const ArbreArchive& tv)
{
    std::vector<std::string> noeuds;
    for (int32_t indice = 2; indice <= tv.Nombre(); ++indice)
        noeuds.push_back(std::to_string(tv[indice].parent) + ' ' + tv[indice].texte);
    return noeuds;
}
