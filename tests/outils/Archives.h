#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "archives/ArbreArchive.h"
#include "catalogue/TexteArbre.h"
#include "outils/Environnement.h"
#include "outils/Octets.h"
#include "platform/Fichier.h"

using Noeuds = std::vector<std::string>;

// The nodes behind the first, each as "parent text".
inline Noeuds TexteArbre(const ArbreArchive& tv)
{
    Noeuds noeuds;
    for (int32_t indice = 2; indice <= tv.Nombre(); ++indice)
        noeuds.push_back(std::to_string(tv[indice].parent) + ' ' + tv[indice].texte);
    return noeuds;
}

inline uint32_t Crc32(std::string_view octets)
{
    uint32_t reste = UINT32_MAX;
    for (size_t bit = 0; bit < octets.size() * 8; ++bit) {
        reste ^= bit % 8 == 0 ? static_cast<unsigned char>(octets[bit / 8]) : 0;
        reste = reste >> 1 ^ (reste & 1 ? 0xEDB88320U : 0);
    }
    return ~reste;
}

// A token whose stop was asked for.
inline std::stop_token Arrete()
{
    std::stop_source source;
    source.request_stop();
    return source.get_token();
}

class TestArchives : public Environnement {
protected:
    using Lecture = void (*)(const Fichier&, std::stop_token, ArbreArchive&);

    struct Cas {
        const char* nom;
        std::string octets;
        Noeuds noeuds;
    };

    // What the reader makes of a file.
    Noeuds Lister(Lecture lister, const char* nom, std::stop_token arret = {}) const
    {
        ArbreArchive tv;
        lister(Fichier((travail_ / nom).string()), std::move(arret), tv);
        return TexteArbre(tv);
    }

    Noeuds ListerOctets(Lecture lister, const std::string& octets, std::stop_token arret = {}) const
    {
        Ecrire(travail_ / "octets", octets);
        return Lister(lister, "octets", std::move(arret));
    }
};
