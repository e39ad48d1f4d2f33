#include "archives/ListerLha.h"

#include <array>

#include "archives/EnteteArchive.h"
#include "platform/LecteurOctets.h"

namespace {

// Fixed part of a member's header; its name follows.
struct EnteteLha {
    uint8_t tailleEntete = 0;
    uint8_t somme = 0;
    std::array<char, 5> methode = {};  // "-lh5-"
    uint32_t tailleCompressee = 0;
    uint32_t tailleOriginale = 0;
    uint32_t dateHeure = 0;
    uint8_t attribut = 0;
    uint8_t niveau = 0;
    uint8_t longueurNom = 0;

    static constexpr uint64_t Taille = 22;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(tailleEntete, somme, methode, tailleCompressee, tailleOriginale, dateHeure,
                                     attribut, niveau, longueurNom);
    }
    bool Valide() const { return methode[0] == '-' && methode[1] == 'l'; }
};

// Behind the name of a header of level 1 stand a CRC, a system and the size of an extension, which counts as packed
// data. The level is not looked at (kept, particularité 14).
constexpr uint64_t SuiteEntete = 2 + 1 + 2;

}  // namespace

void ListerLha(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv)
{
    tv = ArbreArchive();
    LecteurOctets lecteur(fichier);
    EnteteLha entete;
    while (!arret.stop_requested() && lecteur.Reste() >= EnteteLha::Taille && entete.Lire(lecteur)) {
        if (!entete.Valide())
            continue;  // slides on by whole headers, not by bytes (kept, particularité 15)
        AccrocherMembre(lecteur.Octets(entete.longueurNom), entete.tailleCompressee, tv);
        lecteur.Sauter(SuiteEntete);  // particularité 25
        lecteur.Sauter(entete.tailleCompressee);
    }
}
