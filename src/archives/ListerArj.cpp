#include "archives/ListerArj.h"

#include <string>
#include <string_view>

#include "archives/EnteteArchive.h"
#include "platform/LecteurOctets.h"

namespace {

// Header of the archive and of each member; the name follows, ended by a NUL. Newer archivers put fields of theirs
// between the two.
struct EnteteArj {
    uint16_t identifiant = 0;
    uint16_t taille = 0;  // from the next field to the CRC of the header
    uint8_t tailleFixe = 0;
    uint8_t version = 0;
    uint8_t versionMinimale = 0;
    uint8_t systeme = 0;
    uint8_t drapeaux = 0;
    uint8_t methode = 0;
    uint8_t type = 0;
    uint8_t reserve = 0;
    uint32_t dateHeure = 0;
    uint32_t tailleCompressee = 0;
    uint32_t tailleOriginale = 0;
    uint32_t crc = 0;
    uint16_t placeNom = 0;
    uint16_t acces = 0;
    uint16_t donneesHote = 0;

    static constexpr uint64_t Taille = 34;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(identifiant, taille, tailleFixe, version, versionMinimale, systeme, drapeaux,
                                     methode, type, reserve, dateHeure, tailleCompressee, tailleOriginale, crc,
                                     placeNom, acces, donneesHote);
    }
    bool Valide() const { return identifiant == 60000; }

    // What stands ahead of the name; `tailleFixe` does not count the first two fields.
    uint64_t DebutNom() const
    {
        const uint64_t debut = 4 + uint64_t{tailleFixe};
        return tailleFixe < taille && debut > Taille ? debut : Taille;
    }

    // Length of the whole header: identifier, size, what the size counts, CRC and the size of an extended header.
    uint64_t Longueur() const { return 2 + 2 + uint64_t{taille} + 4 + 2; }
};

}  // namespace

void ListerArj(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv)
{
    constexpr uint64_t plusLongNom = 256;

    tv = ArbreArchive();
    LecteurOctets lecteur(fichier);
    EnteteArj entete;
    if (!entete.Lire(lecteur) || !entete.Valide())
        return;
    lecteur.Aller(entete.Longueur());  // particularité 25

    while (!arret.stop_requested()) {
        const uint64_t place = lecteur.Position();
        if (lecteur.Reste() < EnteteArj::Taille || !entete.Lire(lecteur))
            return;
        if (!entete.Valide())
            continue;  // slides on by whole headers, not by bytes (kept, particularité 15)
        if (entete.taille == 0)
            return;  // the end header; what lies behind is padding
        lecteur.Aller(place + entete.DebutNom());
        const std::string nom = lecteur.Octets(plusLongNom);
        AccrocherMembre(std::string_view(nom).substr(0, nom.find('\0')), entete.tailleCompressee, tv);
        lecteur.Aller(place + entete.Longueur() + entete.tailleCompressee);
    }
}
