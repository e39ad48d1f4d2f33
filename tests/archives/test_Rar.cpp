#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "archives/ListerRar.h"
#include "shell/Textes.h"
#include "store/CycleBase.h"

namespace {

using namespace std::string_literals;

// Both generations of the format, laid down byte by byte.

uint32_t Crc32(std::string_view octets)
{
    uint32_t reste = UINT32_MAX;
    for (const char octet : octets) {
        reste ^= static_cast<unsigned char>(octet);
        for (int bit = 0; bit < 8; ++bit)
            reste = reste >> 1 ^ (reste & 1 ? 0xEDB88320U : 0);
    }
    return ~reste;
}

std::string Petit(uint64_t valeur, int octets)
{
    std::string resultat;
    for (; octets-- > 0; valeur >>= 8)
        resultat += static_cast<char>(valeur & 0xFF);
    return resultat;
}

std::string Variable(uint64_t valeur)
{
    std::string resultat;
    for (; valeur >= 0x80; valeur >>= 7)
        resultat += static_cast<char>(valeur | 0x80);
    return resultat + static_cast<char>(valeur);
}

const std::string Marque4 = "Rar!\x1A\x07\x00"s, Marque5 = "Rar!\x1A\x07\x01\x00"s;

// `horsSomme` lies in the header but outside its CRC.
std::string Bloc4(int type, int drapeaux, const std::string& champs, const std::string& horsSomme = "")
{
    const std::string couvert =
        Petit(type, 1) + Petit(drapeaux, 2) + Petit(7 + champs.size() + horsSomme.size(), 2) + champs;
    return Petit(Crc32(couvert) & 0xFFFF, 2) + couvert + horsSomme;
}

std::string Principal4(int drapeaux = 0, const std::string& commentaire = "")
{
    return Bloc4(0x73, drapeaux, std::string(6, '\0'), commentaire);
}

struct Plus4 {
    int drapeaux = 0, type = 0x74, systeme = 2;
    std::string horsSomme = {}, derriereNom = {};
};

// The header; `paquet` bytes are to follow it.
std::string Entete4(const std::string& nom, uint64_t taille, uint64_t paquet, const Plus4& plus = {})
{
    const std::string hautes = plus.drapeaux & 0x100 ? Petit(paquet >> 32, 4) + Petit(taille >> 32, 4) : "";
    return Bloc4(plus.type, plus.drapeaux | 0x8000,
                 Petit(paquet, 4) + Petit(taille, 4) + Petit(plus.systeme, 1) + Petit(0, 8) + "\x1D\x33" +
                     Petit(nom.size(), 2) + Petit(0x20, 4) + hautes + nom + plus.derriereNom,
                 plus.horsSomme);
}

std::string Membre4(const std::string& nom, uint64_t taille, const Plus4& plus = {})
{
    return Entete4(nom, taille, 50, plus) + std::string(50, 'r');
}

const std::string Fin4 = Bloc4(0x7B, 0x4000, "");

// `donnees` bytes are to follow it.
std::string Bloc5(uint64_t type, uint64_t drapeaux, const std::string& champs, uint64_t donnees = 0,
                  const std::string& supplement = "")
{
    std::string entete = Variable(type) + Variable(drapeaux | (supplement.empty() ? 0 : 1) | (donnees > 0 ? 2 : 0));
    entete += supplement.empty() ? "" : Variable(supplement.size());
    entete += donnees > 0 ? Variable(donnees) : "";
    entete += champs + supplement;
    entete = Variable(entete.size()) + entete;
    return Petit(Crc32(entete), 4) + entete;
}

std::string Principal5(uint64_t drapeaux = 0)
{
    return Bloc5(1, 0, Variable(drapeaux));
}

struct Plus5 {
    uint64_t drapeaux = 0, drapeauxBloc = 0, type = 2;
    std::string supplement = {};
};

std::string Entete5(const std::string& nom, uint64_t taille, uint64_t paquet, const Plus5& plus = {})
{
    return Bloc5(plus.type, plus.drapeauxBloc,
                 Variable(plus.drapeaux | 6) + Variable(taille) + Variable(0x1A4) + Petit(0, 8) + Variable(0x180) +
                     Variable(1) + Variable(nom.size()) + nom,
                 paquet, plus.supplement);
}

std::string Membre5(const std::string& nom, uint64_t taille, const Plus5& plus = {})
{
    return Entete5(nom, taille, 50, plus) + std::string(50, 'r');
}

const std::string Fin5 = Bloc5(5, 0, Variable(0));

using Liste = std::vector<std::string>;

// Every node of the tree behind its folders: "a\\", "a\\b.txt:12 b".
Liste Lister(const Fichier& fichier)
{
    ArbreArchive tv;
    ListerRar(fichier, tv);
    Liste chemins(2), liste;
    for (int32_t i = 2; i <= tv.Nombre(); ++i) {
        const bool dossier = tv[i].texte.find(':') == std::string::npos;
        chemins.push_back(chemins[static_cast<size_t>(tv[i].parent)] + tv[i].texte + (dossier ? "\\" : ""));
        liste.push_back(chemins.back());
    }
    return liste;
}

// A file in memory: each piece of bytes at its place, nothing between them.
Fichier Memoire(const std::vector<std::pair<uint64_t, std::string>>& morceaux)
{
    const int memoire = memfd_create("archive", MFD_CLOEXEC);
    for (const auto& [place, octets] : morceaux)
        EXPECT_EQ(pwrite(memoire, octets.data(), octets.size(), static_cast<off_t>(place)), ssize_t(octets.size()));
    return Fichier(memoire);
}

Liste Lister(const std::string& octets)
{
    return Lister(Memoire({{0, octets}}));
}

}  // namespace

TEST(Rar, Archives)
{
    constexpr uint64_t giga = 1ULL << 30;
    const std::string cinqGiga = FormatTaille(5.0 * giga);
    const std::string bourre(100 * 1024, 'M');
    const std::string commentaire = Bloc4(0x75, 0, "\x02\0\x0F\x30\x34\x12"s, "hi");
    const std::string a4 = Membre4("a.txt", 12), b4 = Membre4("b.txt", 34);
    const std::string a5 = Membre5("a.txt", 12), b5 = Membre5("b.txt", 34);
    const std::string debut4 = Marque4 + Principal4(), debut5 = Marque5 + Principal5();
    const Liste ab = {"a.txt:12 b", "b.txt:34 b"}, a = {"a.txt:12 b"};

    struct Cas {
        const char* nom;
        std::string octets;
        Liste attendu;
    };
    const Cas table[] = {
        {"plain, what follows the end is no member", debut4 + a4 + b4 + Fin4 + b4, ab},
        {"plain 5", debut5 + a5 + b5 + Fin5 + b5, ab},
        {"no end block", debut4 + a4 + b4, ab},
        {"no end block 5", debut5 + a5 + b5, ab},
        {"solid", Marque4 + Principal4(8) + a4 + Membre4("b.txt", 34, {.drapeaux = 0x10}), ab},
        {"solid 5", Marque5 + Principal5(4) + a5 + b5, ab},
        {"self-extracting", bourre + debut4 + a4, a},
        {"self-extracting 5, mark of a later format before it", "Rar!\x1A\x07\x02" + bourre + debut5 + a5, a},
        {"too far behind", std::string(1024 * 1024 + 1, 'M') + debut4 + a4, {}},
        {"no RAR archive", bourre, {}},

        {"folders once, empty files as folders",
         debut4 + Membre4("d\\e", 0, {.drapeaux = 0xE0}) + Membre4("d\\e\\x", 1) + Membre4("d/f/y", 2, {.systeme = 3}) +
             Membre4("d\\e", 0) + Membre4("vide.txt", 0),
         {"d\\", "d\\e\\", "d\\e\\x:1 b", "d\\f\\", "d\\f\\y:2 b", "vide.txt\\"}},
        {"folders 5",
         debut5 + Membre5("d/e/x", 1) + Membre5("d/e/", 0, {.drapeaux = 1}) + Membre5("d/f\\y", 2) + Membre5("v", 0),
         {"d\\", "d\\e\\", "d\\e\\x:1 b", "d\\f\\", "d\\f\\y:2 b", "v\\"}},
        {"over 4 GiB",
         debut4 + Membre4("a", 5 * giga, {.drapeaux = 0x100}) + Membre4("b", 4 * giga, {.drapeaux = 0x100}) +
             Membre4("c", 3 * giga),
         {"a:" + cinqGiga, "b:" + FormatTaille(4.0 * giga), "c:" + FormatTaille(3.0 * giga)}},
        {"over 4 GiB 5", debut5 + Membre5("a", 5 * giga), {"a:" + cinqGiga}},
        {"unknown size", debut4 + Membre4("a", UINT64_MAX, {.drapeaux = 0x100}) + b4, {"a:", "b.txt:34 b"}},
        {"unknown size 5", debut5 + Membre5("a", 0, {.drapeaux = 8}) + b5, {"a:", "b.txt:34 b"}},

        {"service and recovery blocks",
         Marque4 + Principal4(0x40) + Membre4("CMT", 50, {.type = 0x7A}) + a4 +
             Bloc4(0x78, 0x8000, Petit(50, 4) + std::string(15, 'p')) + std::string(50, 'r') +
             Entete4("RR", 5 * giga, 50, {.drapeaux = 0x100, .type = 0x7A}) + std::string(50, 'r') + b4,
         ab},
        {"service blocks 5",
         debut5 + Membre5("CMT", 50, {.type = 3}) + a5 + Bloc5(99, 4, "champs", 20) + std::string(20, 'd') +
             Membre5("RR", 50, {.type = 3}) + b5,
         ab},
        {"comments inside headers and between them",
         Marque4 + Principal4(2, commentaire) + Membre4("a.txt", 12, {.drapeaux = 8, .horsSomme = commentaire}) +
             commentaire + b4,
         ab},
        {"salt, exact times",
         debut4 + Membre4("a.txt", 12, {.drapeaux = 0x1404, .derriereNom = std::string(8, 's') + "\0\x80"s}) + b4, ab},
        {"supplement 5",
         debut5 + Membre5("a.txt", 12, {.supplement = "\x02\x7F\x01"}) + Membre5("b.txt", 34, {.supplement = "?"}), ab},

        {"encrypted headers", Marque4 + Principal4(0x80) + a4, {}},
        {"encrypted headers 5", Marque5 + Bloc5(4, 0, std::string(34, 'c')) + Principal5() + a5, {}},
        {"first volume", Marque4 + Principal4(0x101) + a4 + Membre4("b.txt", 34, {.drapeaux = 2}) + b4 + a4, ab},
        {"first volume 5", Marque5 + Principal5(1) + a5 + Membre5("b.txt", 34, {.drapeauxBloc = 0x10}) + b5 + a5, ab},
        {"second volume", Marque4 + Principal4(1) + Membre4("a.txt", 12, {.drapeaux = 1}) + b4, ab},
        {"second volume 5", Marque5 + Principal5(1) + Membre5("a.txt", 12, {.drapeauxBloc = 8}) + b5, ab},

        {"data behind the end of the file", debut4 + a4 + Entete4("b.txt", 34, 5000) + a4, ab},
        {"data behind the end of the file 5", debut5 + a5 + Entete5("b.txt", 34, 5000) + a5, ab},
        {"data around the end of numbers", debut4 + a4 + Entete4("b.txt", 34, UINT64_MAX - 60, {.drapeaux = 0x100}),
         ab},
        {"data around the end of numbers 5", debut5 + a5 + Entete5("b.txt", 34, UINT64_MAX - 60), ab},
        {"header of no size", debut4 + a4 + "\0\0\x74\0\x80\0\0"s + b4, a},
        {"header of no size 5", debut5 + a5 + Petit(Crc32("\0"s), 4) + "\0"s + b5, a},
        {"endless number 5", debut5 + a5 + Petit(0, 4) + std::string(300, '\xFF') + b5, a},
        {"fields beyond 64 bits 5",
         debut5 + Bloc5(2, 0, std::string(9, '\xFF') + "\x02" + std::string(20, '\0')) + b5,
         {"b.txt:34 b"}},
        {"name beyond the header 5", debut5 + Bloc5(2, 0, "\0\x0C\0\0\0\x7F"s + "a.txt") + b5, ab},
        {"header above 2 MiB 5", debut5 + a5 + Bloc5(3, 0, std::string(2 * 1024 * 1024, 's')) + b5, a},
    };
    for (const Cas& cas : table)
        EXPECT_EQ(Lister(cas.octets), cas.attendu) << cas.nom;
}

TEST(Rar, Noms)
{
    const auto quatre = [](const std::string& nom, int drapeaux) {
        return Lister(Marque4 + Principal4() + Membre4(nom, 1, {.drapeaux = drapeaux}));
    };
    const auto cinq = [](const std::string& nom) { return Lister(Marque5 + Principal5() + Membre5(nom, 1)); };

    struct Cas {
        std::string octets;
        const char* attendu;
    };
    constexpr int unicode = 0x200;
    const Cas depliages[] = {
        {"ete.txt\0\0\x03\xE9t\xE9\x02"s, "été.txt:1 b"},   // single bytes, then a run from the plain name
        {"____.t\0\x04\x54\x44\x30\x39\0\0x"s, "фай:1 b"},  // high byte; a NUL ends the name
        {"abcde\0\x04\xC0\x83\xD2"s, "гдежз:1 b"},          // a run with correction and high byte
        {"__\0\0\xA0\x3D\xD8\x00\xDE"s, "😀:1 b"},           // two surrogates
        {"_\0\0\x80\x00\xDE"s, "?:1 b"},                    // half of them
        {"abc\0\0\xC0\x7F"s, "abc:1 b"},                    // a run longer than the plain name
        {"abc\0\0\x80\x41"s, "abc:1 b"},                    // cut short
        {"abc\0"s, "abc:1 b"},
        {"\xC3\xA9t\xC3\xA9", "été:1 b"},  // no NUL: UTF-8
    };
    for (const Cas& cas : depliages)
        EXPECT_EQ(quatre(cas.octets, unicode), Liste{cas.attendu}) << cas.attendu;
    EXPECT_EQ(quatre("\xE9t\xE9\0reste"s, 0), Liste{"été:1 b"});  // plain bytes
    EXPECT_EQ(cinq("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80\0reste"s), Liste{"été 😀:1 b"});
    EXPECT_EQ(cinq("\xE9t\xE9"), Liste{"été:1 b"});

    // 259 characters are kept, not bytes.
    std::string longNom;
    for (int i = 0; i < 300; ++i)
        longNom += "é";
    EXPECT_EQ(cinq(longNom), Liste{longNom.substr(0, 2 * 259) + ":1 b"});

    std::string profond;
    for (int i = 0; i < 300; ++i)
        profond += "d/";
    EXPECT_EQ(cinq(profond + "x").size(), 130U);  // the folders of 259 characters, and the member
}

// Cut anywhere or with any byte changed, an archive gives a part of its list, and whole members only.
TEST(Rar, Degats)
{
    const std::string archives[] = {
        Marque4 + Principal4() + Membre4("d\\a", 1) + Membre4("CMT", 9, {.type = 0x7A}) + Membre4("b", 2) + Fin4,
        Marque5 + Principal5() + Membre5("d/a", 1) + Membre5("CMT", 9, {.type = 3}) + Membre5("b", 2) + Fin5,
    };
    const Liste entiere = {"d\\", "d\\a:1 b", "b:2 b"};
    const auto debutDe = [&](const Liste& liste) {
        return liste.size() <= entiere.size() && std::equal(liste.begin(), liste.end(), entiere.begin());
    };
    for (const std::string& octets : archives) {
        ASSERT_EQ(Lister(octets), entiere);
        for (size_t i = 0; i < octets.size(); ++i) {
            EXPECT_TRUE(debutDe(Lister(octets.substr(0, i)))) << i;
            std::string abime = octets;
            abime[i] = static_cast<char>(~abime[i]);
            EXPECT_TRUE(debutDe(Lister(abime))) << i;
        }
    }
}

// Members lie gigabytes apart: only the headers are read, and all of them.
TEST(Rar, GrandeArchive)
{
    constexpr uint64_t ecart = 10ULL << 30;
    const std::string debut = Marque4 + Principal4(), entete = Entete4("x", 1, ecart, {.drapeaux = 0x100});
    std::vector<std::pair<uint64_t, std::string>> morceaux = {{0, debut}};
    for (uint64_t i = 0; i < 20; ++i)
        morceaux.emplace_back(debut.size() + i * (entete.size() + ecart), entete);
    EXPECT_EQ(Lister(Memoire(morceaux)), Liste(20, "x:1 b"));
}

TEST(Rar, Abandon)
{
    FixerAbandon(true);
    EXPECT_EQ(Lister(Marque4 + Principal4() + Membre4("a", 1)), Liste{});
    FixerAbandon(false);
}
