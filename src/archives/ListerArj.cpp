#include "archives/ListerArj.h"

#include <algorithm>

#include "archives/EnteteArchive.h"
#include "platform/LecteurOctets.h"
#include "store/CycleBase.h"

namespace {

// Header of the archive and of each member; the name follows, ended by a NUL. Newer archivers put fields of theirs
// between the two.
struct EnteteArj {
    PetitBoutiste<2> identifiant;
    PetitBoutiste<2> taille;  // from the next field to the CRC of the header
    uint8_t tailleFixe;
    uint8_t version;
    uint8_t versionMinimale;
    uint8_t systeme;
    uint8_t drapeaux;
    uint8_t methode;
    uint8_t type;
    uint8_t reserve;
    PetitBoutiste<4> dateHeure;
    PetitBoutiste<4> tailleCompressee;
    PetitBoutiste<4> tailleOriginale;
    PetitBoutiste<4> crc;
    PetitBoutiste<2> placeNom;
    PetitBoutiste<2> acces;
    PetitBoutiste<2> donneesHote;

    bool Valide() const { return identifiant == 60000U; }

    // What stands ahead of the name; `tailleFixe` does not count the first two fields.
    uint64_t DebutNom() const
    {
        const uint64_t debut = 4 + tailleFixe;
        return tailleFixe < taille && debut > sizeof(EnteteArj) ? debut : sizeof(EnteteArj);
    }

    // Length of the whole header: identifier, size, what the size counts, CRC and the size of an extended header.
    uint64_t Longueur() const { return 2 + 2 + taille + 4 + 2; }
};
static_assert(sizeof(EnteteArj) == 34);

// The name at the reader's place.
std::string_view LireNom(LecteurOctets& lecteur, std::array<char, 256>& tampon)
{
    const auto lus = static_cast<size_t>(std::min<uint64_t>(tampon.size(), lecteur.Reste()));
    if (!lecteur.Lire(tampon.data(), lus))
        return {};
    const std::string_view nom(tampon.data(), lus);
    return nom.substr(0, nom.find('\0'));
}

}  // namespace

void ListerArj(const Fichier& fichier, ArbreArchive& tv)
{
    tv = ArbreArchive();
    LecteurOctets lecteur(fichier);
    EnteteArj entete;
    if (!lecteur.Lire(&entete, sizeof entete) || !entete.Valide())
        return;
    lecteur.Aller(entete.Longueur());

    while (!ExtractionAbandonnee()) {
        const uint64_t place = lecteur.Position();
        if (!lecteur.Lire(&entete, sizeof entete))
            return;
        if (!entete.Valide())
            continue;  // slides on by whole headers, not by bytes
        std::array<char, 256> tampon;
        lecteur.Aller(place + entete.DebutNom());
        AccrocherMembre(LireNom(lecteur, tampon), entete.tailleCompressee, tv);
        lecteur.Aller(place + entete.Longueur() + entete.tailleCompressee);
    }
}
