#include "extractors/clsMP3.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>
#include <vector>

#include "commun/Formes.h"
#include "commun/Texte.h"
#include "extractors/GenresID3.h"
#include "platform/FormesLocales.h"
#include "platform/LecteurOctets.h"

namespace {

// A frame header: 32 bits, given here from the most significant on.
struct EnteteTrame {
    uint32_t synchro;     // 11 bits
    uint32_t version;     // 2
    uint32_t couche;      // 2
    uint32_t protection;  // 1
    uint32_t debit;       // 4
    uint32_t frequence;   // 2
    uint32_t bourrage;    // 1
    uint32_t prive;       // 1
    uint32_t mode;        // 2

    static EnteteTrame Decouper(uint32_t bits)
    {
        const auto prendre = [&bits](int nombre) {
            const uint32_t valeur = bits >> (32 - nombre);
            bits <<= nombre;
            return valeur;
        };
        return {prendre(11), prendre(2), prendre(2), prendre(1), prendre(4),
                prendre(2),  prendre(1), prendre(1), prendre(2)};
    }
};

// The first bytes of each MPEG-1 Layer III frame, without and with a check sum. No other version or layer is looked
// for, so that the tables of Layer III are all that is needed.
const std::vector<std::string_view> DebutsTrame = {"\xFF\xFB", "\xFF\xFA"};

constexpr std::string_view VersionsEtCouches[] = {"0", "3", "2", "1"};
constexpr std::string_view Modes[] = {"stereo", "joint stereo", "dual channel", "single channel"};
constexpr uint32_t Frequences[] = {44100, 48000, 32000};
constexpr uint32_t Debits[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};

constexpr uint64_t TailleMinimaleFlux = 256;
constexpr uint64_t PlaceXing = 36;  // in the frame: behind the header and the side information of two channels

// The last 128 bytes of a file.
struct EnregistrementID3v1 {
    char marque[3];  // "TAG"
    char titre[30];
    char artiste[30];
    char album[30];
    char annee[4];
    char commentaire[30];
    uint8_t genre;
};
static_assert(sizeof(EnregistrementID3v1) == 128);

// The first bytes of a file, the tag body behind them.
struct EnteteID3v2 {
    char marque[3];  // "ID3"
    uint8_t version;
    uint8_t revision;
    uint8_t drapeaux;
    uint8_t taille[4];

    // The weight of the first byte is no power of two: with it only huge files have a tag over 2 MB (kept,
    // particularité 18).
    uint64_t TailleCorps() const
    {
        return taille[0] * uint64_t{20917152} + taille[1] * 16384U + taille[2] * 128U + taille[3];
    }
};

struct EnteteTrameID3v22 {
    char nom[3];
    uint8_t taille[3];
    uint8_t codage;
};

struct EnteteTrameID3v23 {
    char nom[4];
    uint8_t taille[4];
    uint8_t drapeaux[2];
    uint8_t codage;
};

constexpr size_t TexteLePlusLong = 254;  // only the last byte of a frame's size counts, and it counts the encoding too

// A frame as it is read. Its encoding is skipped, not obeyed: each byte of the text is one character (kept,
// particularité 33).
struct TrameID3v2 {
    size_t longueur = 0;  // bytes of the text, with its encoding byte
    bool codee = false;   // compressed or encrypted
    std::string_view texte;

    // False when the bytes end before the encoding.
    bool Lire(std::string_view octets, uint8_t version)
    {
        const size_t placeTaille =
            version == 2 ? offsetof(EnteteTrameID3v22, taille[2]) : offsetof(EnteteTrameID3v23, taille[3]);
        const size_t placeTexte = version == 2 ? sizeof(EnteteTrameID3v22) : sizeof(EnteteTrameID3v23);
        if (octets.size() < placeTexte - 1)
            return false;
        longueur = static_cast<uint8_t>(octets[placeTaille]);
        codee = version == 3 && (octets[offsetof(EnteteTrameID3v23, drapeaux[1])] & 0xC0) != 0;
        texte = octets.substr(std::min(placeTexte, octets.size()), std::max<size_t>(longueur, 1) - 1);
        return true;
    }
};

// In the order in which they are read, which shows where a frame ends the reading. Version 2 has the original artist
// and the name of version 3 for the track (kept, particularité 17).
struct ChampTrame {
    std::string clsMP3::*champ;
    std::string_view nomV2;
    std::string_view nomV3;
};
constexpr ChampTrame ChampsTrames[] = {
    {&clsMP3::Title, "TT2", "TIT2"}, {&clsMP3::Album, "TAL", "TALB"}, {&clsMP3::Artist, "TOA", "TPE1"},
    {&clsMP3::Year, "TYE", "TYER"},  {&clsMP3::Genre, "TCO", "TCON"}, {&clsMP3::Track, "TRCK", "TRCK"},
};

// Without trailing blanks, then without NULs: blanks before a NUL stay.
template <size_t Taille>
std::string Nettoyer(const char (&champ)[Taille])
{
    std::string texte(champ, Taille);
    texte.erase(texte.find_last_not_of(' ') + 1);
    std::erase(texte, '\0');
    return texte;
}

// "(17)Rock" gives "Rock", "(17)" nothing.
std::string_view SansNumero(std::string_view genre)
{
    const size_t fin = genre.find(')');
    return genre.starts_with('(') && fin != std::string_view::npos ? genre.substr(fin + 1) : genre;
}

}  // namespace

bool clsMP3::ReadMP3(const Fichier& fichier)
{
    *this = clsMP3();
    LireFlux(fichier);
    LireEtiquettes(fichier);
    for (std::string* champ : {&Title, &Artist, &Album, &Year, &Comment, &Genre, &Track})
        *champ = AnsiEnTexte(*champ);
    return true;
}

void clsMP3::LireFlux(const Fichier& fichier)
{
    const uint64_t taille = fichier.Taille();
    if (taille < TailleMinimaleFlux)
        return;
    const uint64_t place = ChercherUnDe(fichier, DebutsTrame);
    LecteurOctets lecteur(fichier, place);
    uint32_t bits = 0;
    if (place == Introuvable || !lecteur.GrosBoutiste(bits))
        return;

    char marque[4] = {};
    uint32_t drapeaux = 0, trames = 0;
    lecteur.Aller(place + PlaceXing);
    Xing = lecteur.Lire(marque, sizeof marque) && std::memcmp(marque, "Xing", sizeof marque) == 0;
    if (Xing && lecteur.GrosBoutiste(drapeaux))  // which do not matter: the frame count is always taken
        lecteur.GrosBoutiste(trames);

    const EnteteTrame entete = EnteteTrame::Decouper(bits);
    MpegVersion = VersionsEtCouches[entete.version];
    Layer = VersionsEtCouches[entete.couche];
    Mode = Modes[entete.mode];
    if (entete.frequence >= std::size(Frequences))
        return;
    const uint32_t frequence = Frequences[entete.frequence];
    Frequency = std::to_string(frequence);

    if (Xing ? trames == 0 : entete.debit >= std::size(Debits))
        return;
    const uint64_t debit =  // a frame of Layer III takes 144 x bit rate / sampling rate bytes
        Xing ? static_cast<uint64_t>(static_cast<double>(taille) * frequence / (144'000.0 * trames))
             : Debits[entete.debit];
    Bitrate = std::to_string(debit);
    if (debit == 0)
        return;
    // 125 bytes are a kilobit; the tags count as sound (kept, particularité 34).
    const uint64_t secondes = taille / debit / 125;
    Duration = std::to_string(secondes / 60) + "m " + std::to_string(secondes % 60) + "s";
}

void clsMP3::LireEtiquettes(const Fichier& fichier)
{
    if (LireID3v1(fichier) && LireID3v2(fichier) && EstNumerique(Genre))
        Genre = GenreID3(Genre);
}

bool clsMP3::LireID3v1(const Fichier& fichier)
{
    EnregistrementID3v1 id3;
    if (fichier.Taille() < sizeof id3 || fichier.Lire(fichier.Taille() - sizeof id3, &id3, sizeof id3) < sizeof id3)
        return false;
    if (std::memcmp(id3.marque, "TAG", sizeof id3.marque) != 0)
        return true;
    Title = Nettoyer(id3.titre);
    Artist = Nettoyer(id3.artiste);
    Album = Nettoyer(id3.album);
    Year = Nettoyer(id3.annee);
    Comment = Nettoyer(id3.commentaire);
    Genre = std::to_string(id3.genre);
    // Blanks and most punctuation go, and with them the track number that ID3v1.1 keeps here (kept, particularité
    // 19).
    std::erase_if(Comment, [](unsigned char c) { return c < '0'; });
    return true;
}

bool clsMP3::LireID3v2(const Fichier& fichier)
{
    EnteteID3v2 entete;
    if (fichier.Lire(0, &entete, sizeof entete) < sizeof entete)
        return false;
    if (entete.marque[1] != 'D' || entete.marque[2] != '3')
        return true;
    const uint64_t taille = entete.TailleCorps();
    if (taille == 0 || taille > fichier.Taille() || (entete.version != 2 && entete.version != 3))
        return false;

    std::vector<std::string_view> noms;
    for (const ChampTrame& trame : ChampsTrames)
        noms.push_back(entete.version == 2 ? trame.nomV2 : trame.nomV3);
    // A name is taken wherever it first lies, be it inside other data.
    const uint64_t fin = std::min(sizeof entete + taille, fichier.Taille());
    const std::vector<uint64_t> places = ChercherChacun(fichier, noms, sizeof entete, fin);

    LecteurOctets lecteur(fichier);
    for (size_t i = 0; i < places.size(); ++i) {
        if (places[i] == Introuvable)
            continue;
        lecteur.Aller(places[i]);
        const std::string octets =
            lecteur.Octets(std::min(fin - places[i], sizeof(EnteteTrameID3v23) + TexteLePlusLong));
        TrameID3v2 trame;
        if (!trame.Lire(octets, entete.version))
            return false;
        std::string clsMP3::*const champ = ChampsTrames[i].champ;
        if (trame.codee && champ != &clsMP3::Title)
            continue;
        if (trame.longueur == 0)
            return false;
        if (champ == &clsMP3::Genre)
            Genre = SansNumero(trame.texte);
        else if (!trame.texte.empty())
            this->*champ = trame.texte;
    }
    return true;
}
