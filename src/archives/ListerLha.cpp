#include "archives/ListerLha.h"

#include <algorithm>

#include "archives/EnteteArchive.h"
#include "platform/LecteurOctets.h"
#include "store/CycleBase.h"

namespace {

// Fixed part of a member's header; its name follows.
struct EnteteLha {
    uint8_t tailleEntete;
    uint8_t somme;
    std::array<char, 5> methode;  // "-lh5-"
    PetitBoutiste<4> tailleCompressee;
    PetitBoutiste<4> tailleOriginale;
    PetitBoutiste<4> dateHeure;
    uint8_t attribut;
    uint8_t niveau;
    uint8_t longueurNom;

    bool Valide() const { return methode[0] == '-' && methode[1] == 'l'; }
};
static_assert(sizeof(EnteteLha) == 22);

// What follows the name in a header of level 1. The level is not looked at: in others the walk loses its way.
struct SuiteEnteteLha {
    PetitBoutiste<2> crc;
    uint8_t systeme;
    PetitBoutiste<2> tailleExtension;  // the extensions count as packed data
};

}  // namespace

void ListerLha(const Fichier& fichier, ArbreArchive& tv)
{
    tv = ArbreArchive();
    LecteurOctets lecteur(fichier);
    EnteteLha entete;
    while (!ExtractionAbandonnee() && lecteur.Lire(&entete, sizeof entete)) {
        if (!entete.Valide())
            continue;  // slides on by whole headers, not by bytes
        std::array<char, UINT8_MAX> nom;
        const auto longueur = static_cast<size_t>(std::min<uint64_t>(entete.longueurNom, lecteur.Reste()));
        if (!lecteur.Lire(nom.data(), longueur))
            return;
        AccrocherMembre({nom.data(), longueur}, entete.tailleCompressee, tv);
        lecteur.Sauter(sizeof(SuiteEnteteLha));
        lecteur.Sauter(entete.tailleCompressee);
    }
}
