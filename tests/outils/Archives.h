#pragma once

#include <string>
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

class TestArchives : public Environnement {
protected:
    using Lecture = void (*)(const Fichier&, ArbreArchive&);

    struct Cas {
        const char* nom;
        std::string octets;
        Noeuds noeuds;
    };

    // What the reader makes of a file.
    Noeuds Lister(Lecture lister, const char* nom) const
    {
        ArbreArchive tv;
        lister(Fichier((travail_ / nom).string()), tv);
        return TexteArbre(tv);
    }

    Noeuds ListerOctets(Lecture lister, const std::string& octets) const
    {
        Ecrire(travail_ / "octets", octets);
        return Lister(lister, "octets");
    }
};
