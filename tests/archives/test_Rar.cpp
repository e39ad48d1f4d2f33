#include <algorithm>
#include <fstream>

#include "archives/ListerRar.h"
#include "outils/Archives.h"

namespace {

using namespace std::string_literals;

// Both generations of the format, laid down byte by byte.

std::string Variable(uint64_t valeur)
{
    std::string resultat;
    for (; valeur >= 0x80; valeur >>= 7)
        resultat += static_cast<char>(valeur | 0x80);
    return resultat + static_cast<char>(valeur);
}

const std::string Marque5 = "Rar!\x1A\x07\x01\x00"s;

// `horsSomme` lies in the header but outside its CRC.
std::string Bloc4(int type, int drapeaux, const std::string& champs, const std::string& horsSomme = "")
{
    const size_t taille = 7 + champs.size() + horsSomme.size();
    const std::string couvert = Petit(type, 1) + Petit(drapeaux) + Petit(taille) + champs;
    return Petit(Crc32(couvert)) + couvert + horsSomme;
}

std::string Debut4(int drapeaux = 0, const std::string& commentaire = "")
{
    return "Rar!\x1A\x07\x00"s + Bloc4(0x73, drapeaux, Petit(0, 6), commentaire);
}

struct Plus4 {
    int drapeaux = 0, type = 0x74, systeme = 2;
    std::string horsSomme = {}, sel = {};
};

// The header; `paquet` bytes are to follow it.
std::string Entete4(const std::string& nom, uint64_t taille, uint64_t paquet, const Plus4& plus = {})
{
    const std::string hautes = plus.drapeaux & 0x100 ? Petit(paquet >> 32, 4) + Petit(taille >> 32, 4) : "";
    return Bloc4(plus.type, plus.drapeaux | 0x8000,
                 Petit(paquet, 4) + Petit(taille, 4) + Petit(plus.systeme, 9) + "\x1D\x33" + Petit(nom.size()) +
                     Petit(0x20, 4) + hautes + nom + plus.sel,
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

std::string Debut5(uint64_t drapeaux = 0)
{
    return Marque5 + Bloc5(1, 0, Variable(drapeaux));
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

}  // namespace

class Rar : public TestArchives {
protected:
    Noeuds Lister(const std::string& octets) const { return ListerOctets(ListerRar, octets); }
};

TEST_F(Rar, Archives)
{
    constexpr uint64_t giga = 1ULL << 30;
    const std::string bourre(100 * 1024, 'M');
    const std::string commentaire = Bloc4(0x75, 0, "\x02\0\x0F\x30\x34\x12"s, "hi");
    const std::string a4 = Membre4("a.txt", 12), b4 = Membre4("b.txt", 34);
    const std::string a5 = Membre5("a.txt", 12), b5 = Membre5("b.txt", 34);
    const std::string debut4 = Debut4(), debut5 = Debut5();
    const Noeuds ab = {"1 a.txt:12 b", "1 b.txt:34 b"}, a = {"1 a.txt:12 b"};

    const Cas table[] = {
        {"plain, what follows the end is no member", debut4 + a4 + b4 + Fin4 + b4, ab},
        {"plain 5", debut5 + a5 + b5 + Fin5 + b5, ab},
        {"self-extracting 5, mark of a later format before it", "Rar!\x1A\x07\x02" + bourre + debut5 + a5, a},
        {"no RAR archive", bourre, {}},

        {"folders once, empty files as folders",
         debut4 + Membre4("d\\e", 0, {.drapeaux = 0xE0}) + Membre4("d\\e\\x", 1) + Membre4("d/f/y", 2, {.systeme = 3}) +
             Membre4("d\\e", 0) + Membre4("vide.txt", 0),
         {"1 d", "2 e", "3 x:1 b", "2 f", "5 y:2 b", "1 vide.txt"}},
        {"folders 5",
         debut5 + Membre5("d/e/x", 1) + Membre5("d/e/", 0, {.drapeaux = 1}) + Membre5("d/f\\y", 2) + Membre5("v", 0),
         {"1 d", "2 e", "3 x:1 b", "2 f", "5 y:2 b", "1 v"}},
        {"over 4 GiB", debut4 + Membre4("a", 5 * giga, {.drapeaux = 0x100}), {"1 a:5,000 Gb"}},
        {"unknown size", debut4 + Membre4("a", UINT64_MAX, {.drapeaux = 0x100}) + b4, {"1 a:", "1 b.txt:34 b"}},
        {"known size of 32 bits", debut4 + Membre4("a", UINT32_MAX), {"1 a:4,000 Gb"}},
        {"unknown size 5", debut5 + Membre5("a", 0, {.drapeaux = 8}) + b5, {"1 a:", "1 b.txt:34 b"}},

        {"service and recovery blocks",
         Debut4(0x40) + Membre4("CMT", 50, {.type = 0x7A}) + a4 +
             Bloc4(0x78, 0x8000, Petit(50, 4) + std::string(15, 'p')) + std::string(50, 'r') +
             Entete4("RR", 5 * giga, 50, {.drapeaux = 0x100, .type = 0x7A}) + std::string(50, 'r') + b4,
         ab},
        {"service blocks 5",
         debut5 + Membre5("CMT", 50, {.type = 3}) + a5 + Bloc5(99, 4, "champs", 20) + std::string(20, 'd') + b5, ab},
        {"comments inside headers and between them",
         Debut4(2, commentaire) + Membre4("a.txt", 12, {.drapeaux = 8, .horsSomme = commentaire}) + commentaire + b4,
         ab},
        {"salt before a comment",
         debut4 + Membre4("a.txt", 12, {.drapeaux = 0x408, .horsSomme = commentaire, .sel = "selselse"}) + b4, ab},
        {"supplement 5",
         debut5 + Membre5("a.txt", 12, {.supplement = "\x02\x7F\x01"}) + Membre5("b.txt", 34, {.supplement = "?"}), ab},

        {"encrypted headers", Debut4(0x80) + a4, {}},
        {"encrypted headers 5", Marque5 + Bloc5(4, 0, std::string(34, 'c')) + a5, {}},
        {"first volume 5", Debut5(1) + a5 + Membre5("b.txt", 34, {.drapeauxBloc = 0x10}) + b5 + a5, ab},
        {"first volume", Debut4(1) + a4 + Membre4("b.txt", 34, {.drapeaux = 2}) + b4, ab},
        {"goes on, but in no volume", debut4 + Membre4("a.txt", 12, {.drapeaux = 2}) + b4, ab},
        {"goes on, but in no volume 5", debut5 + Membre5("a.txt", 12, {.drapeauxBloc = 0x10}) + b5, ab},
        {"second volume", Debut4(1) + Membre4("a.txt", 12, {.drapeaux = 1}) + b4, ab},

        {"data around the end", debut4 + a4 + Entete4("b.txt", 34, UINT64_MAX - 60, {.drapeaux = 0x100}), ab},
        {"data around the end 5", debut5 + a5 + Entete5("b.txt", 34, UINT64_MAX - 60), ab},
        {"fields beyond 64 bits 5",
         debut5 + Bloc5(2, 0, std::string(9, '\xFF') + "\x02" + std::string(20, '\0')) + b5,
         {"1 b.txt:34 b"}},
        {"name beyond the header 5", debut5 + Bloc5(2, 0, "\0\x0C\0\0\0\x7F"s + "a.txt") + b5, ab},
        {"header above 2 MiB 5", debut5 + a5 + Bloc5(3, 0, std::string(2 * 1024 * 1024, 's')) + b5, a},
    };
    for (const Cas& cas : table)
        EXPECT_EQ(Lister(cas.octets), cas.noeuds) << cas.nom;
}

TEST_F(Rar, Noms)
{
    const auto quatre = [this](const std::string& nom, int drapeaux) {
        return Lister(Debut4() + Membre4(nom, 1, {.drapeaux = drapeaux}));
    };
    const auto cinq = [this](const std::string& nom) { return Lister(Debut5() + Membre5(nom, 1)); };

    constexpr int unicode = 0x200;
    const std::pair<std::string, const char*> depliages[] = {
        {"ete.txt\0\0\x03\xE9t\xE9\x02"s, "1 été.txt:1 b"},   // single bytes, then a run from the plain name
        {"____.t\0\x04\x54\x44\x30\x39\0\0x"s, "1 фай:1 b"},  // high byte; a NUL ends the name
        {"abcde\0\x04\xC0\x83\xD2"s, "1 гдежз:1 b"},          // a run with correction and high byte
        {"__\0\0\xA0\x3D\xD8\x00\xDE"s, "1 😀:1 b"},           // two surrogates
        {"abc\0\0\xC0\x7F"s, "1 abc:1 b"},                    // a run longer than the plain name
        {"abc\0"s, "1 abc:1 b"},                              // no differences, in three ways
        {"abc\0\x04"s, "1 abc:1 b"},
        {"abc\0\0\0\0"s, "1 abc:1 b"},
        {"\xC3\xA9t\xC3\xA9", "1 été:1 b"},  // no NUL: UTF-8
    };
    for (const auto& [nom, attendu] : depliages)
        EXPECT_EQ(quatre(nom, unicode), Noeuds{attendu}) << attendu;
    EXPECT_EQ(quatre("\xE9t\xE9\0reste"s, 0), Noeuds{"1 été:1 b"});  // plain bytes
    EXPECT_EQ(cinq("\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80\0reste"s), Noeuds{"1 été 😀:1 b"});

    // 259 characters are kept, not bytes.
    EXPECT_EQ(cinq(Fois(300, "é")), Noeuds{"1 " + Fois(259, "é") + ":1 b"});
    EXPECT_EQ(cinq(Fois(300, "d/") + "x").size(), 130U);  // the folders of 259 characters, and the member
}

// Cut anywhere or with any byte changed, an archive gives a part of its list, and whole members only.
TEST_F(Rar, Degats)
{
    const std::string archives[] = {
        Debut4() + Membre4("d\\a", 1) + Membre4("CMT", 9, {.type = 0x7A}) + Membre4("b", 2) + Fin4,
        Debut5() + Membre5("d/a", 1) + Membre5("CMT", 9, {.type = 3}) + Membre5("b", 2) + Fin5,
    };
    const Noeuds entiere = {"1 d", "2 a:1 b", "1 b:2 b"};
    const auto debutDe = [&](const Noeuds& liste) {
        return liste.size() <= entiere.size() && std::equal(liste.begin(), liste.end(), entiere.begin());
    };
    for (const std::string& octets : archives) {
        ASSERT_EQ(Lister(octets), entiere);
        for (size_t i = 0; i < octets.size(); ++i) {
            EXPECT_TRUE(debutDe(Lister(octets.substr(0, i)))) << i;
            EXPECT_TRUE(debutDe(Lister(Avec(octets, i, {1, static_cast<char>(~octets[i])})))) << i;
        }
    }
}

// Members lie gigabytes apart: only the headers are read, and all of them.
TEST_F(Rar, GrandeArchive)
{
    constexpr uint64_t ecart = 10ULL << 30;
    const std::string debut = Debut4(), entete = Entete4("x", 1, ecart, {.drapeaux = 0x100});
    std::ofstream flux(travail_ / "grande.rar", std::ios::binary);
    flux << debut;
    for (int i = 0; i < 20; ++i)
        (flux << entete).seekp(ecart, std::ios::cur);
    flux.close();
    EXPECT_EQ(TestArchives::Lister(ListerRar, "grande.rar"), Noeuds(20, "1 x:1 b"));
}

TEST_F(Rar, Abandon)
{
    EXPECT_EQ(ListerOctets(ListerRar, Debut4() + Membre4("a", 1), Arrete()), Noeuds{});
}
