#include "extractors/DecrireOgg.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "commun/Texte.h"
#include "platform/LecteurOctets.h"

namespace {

using namespace std::string_view_literals;

constexpr uint64_t Bloc = 2048;

// The packet type, "vorbis" and the low byte of the vendor text's length: only vendors of 29 or 32 characters count
// (kept, particularité 28).
const std::vector<std::string_view> DebutsCommentaires = {"\x03vorbis\x1D", "\x03vorbis "};
constexpr std::string_view DebutReglages = "\x05vorbis";        // the next packet, the setup header
constexpr std::string_view FinCommentaires = "\x01\x05vorbis";  // framing bit, then the same
constexpr std::string_view LongueurHaute = "\0\0\0"sv;          // the high bytes of the next comment's length

struct Champ {
    std::string_view cle;
    std::string_view intitule;
};
constexpr Champ Champs[] = {
    {"TITLE=", "Titre            : "},         {"ALBUM=", "Album            : "},
    {"ARTIST=", "Artiste          : "},        {"GENRE=", "Genre            : "},
    {"TRACKNUMBER=", "Nombre de pistes : "},   {"DATE=", "Date             : "},
    {"ENCODED_USING=", "Encodage         : "}, {"COMMENT=", "Commentaire      : "},
};

// The place of the comment header in its block of 2048 bytes, else Introuvable; across two blocks it is not seen.
uint64_t ChercherCommentaires(const Fichier& fichier)
{
    const size_t longueur = DebutsCommentaires[0].size();
    uint64_t place = ChercherUnDe(fichier, DebutsCommentaires);
    while (place != Introuvable && place % Bloc + longueur > Bloc)
        place = ChercherUnDe(fichier, DebutsCommentaires, place + 1);
    return place == Introuvable ? Introuvable : place % Bloc;
}

// The value of the key at `place`. False when nothing marks its end, or that lies in the wrong place.
bool LireValeur(std::string_view entete, size_t place, std::string_view cle, std::string_view& valeur)
{
    const size_t debut = place + cle.size();
    const size_t longueurHaute = entete.find(LongueurHaute, place);
    const size_t finCommentaires = entete.find(FinCommentaires, place);
    if (longueurHaute == std::string_view::npos && finCommentaires == std::string_view::npos)
        return false;
    // Before the high bytes of the next length stands its low byte.
    const size_t fin = finCommentaires < longueurHaute ? finCommentaires : longueurHaute - 1;
    if (fin < debut)
        return false;
    valeur = entete.substr(debut, fin - debut);
    return true;
}

}  // namespace

bool DecrireOgg(const Fichier& fichier, std::string& resultat)
{
    const uint64_t place = ChercherCommentaires(fichier);
    if (place == Introuvable)
        return false;
    // The place in the block serves as the place in the file, so that only the first block gives its comments (kept,
    // particularité 28).
    const std::string entete = LecteurOctets(fichier, place).Octets(Bloc);
    if (entete.find(DebutReglages, 6) == std::string::npos)  // too long for the block
        return false;

    std::string description;
    bool trouve = false;
    for (const Champ& champ : Champs) {
        std::string_view valeur;
        const size_t q = entete.find(champ.cle);
        if (q != std::string::npos) {
            if (!LireValeur(entete, q, champ.cle, valeur))
                return false;
            trouve = true;
        }
        description += description.empty() ? "" : "\r\n";
        description.append(champ.intitule).append(AnsiEnTexte(valeur));
    }
    if (trouve)
        resultat = std::move(description);
    return trouve;
}
