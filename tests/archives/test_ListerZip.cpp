#include "archives/ConstruireTv.h"
#include "archives/ListerZip.h"
#include "outils/Archives.h"

namespace {

using namespace std::string_literals;
using Lignes = std::vector<std::string>;

// A member's record in the central directory, which is all that a listing needs.
struct Entree {
    std::string nom;
    uint32_t taille = 12;
    unsigned annee = 2003, mois = 12, jour = 24, heure = 14, minute = 5;
    uint16_t drapeaux = 0;
    std::string extra = {};
    uint8_t systeme = 0;

    std::string Octets() const
    {
        return "PK\1\2" + Petit(20, 1) + Petit(systeme, 1) + Petit(20) + Petit(drapeaux) + Petit(0) +
               Petit(heure << 11 | minute << 5) + Petit((annee - 1980) << 9 | mois << 5 | jour) + Petit(0, 4) +
               Petit(taille, 4) + Petit(taille, 4) + Petit(nom.size()) + Petit(extra.size()) + Petit(0, 14) + nom +
               extra;
    }
};

std::string Fin(uint64_t nombre, uint64_t taille, uint64_t debut, size_t commentaire = 0)
{
    return "PK\5\6" + Petit(0, 4) + Petit(nombre) + Petit(nombre) + Petit(taille, 4) + Petit(debut, 4) +
           Petit(commentaire);
}

std::string Fin64(uint64_t nombre, uint64_t taille, uint64_t debut, uint64_t place)
{
    return "PK\6\6" + Petit(44, 8) + Petit(45) + Petit(45, 10) + Petit(nombre, 8) + Petit(nombre, 8) +
           Petit(taille, 8) + Petit(debut, 8) + "PK\6\7" + Petit(0, 4) + Petit(place, 8) + Petit(1, 4) +
           Fin(0xFFFF, UINT32_MAX, UINT32_MAX);
}

std::string Archive(const Entree& entree)
{
    const std::string repertoire = entree.Octets();
    return repertoire + Fin(1, repertoire.size(), 0);
}

std::string Extra(uint16_t identifiant, const std::string& contenu)
{
    return Petit(identifiant) + Petit(contenu.size()) + contenu;
}

std::string NomUnicode(const std::string& nomMembre, const std::string& nom, uint8_t version = 1)
{
    return Extra(0x7075, Petit(version, 1) + Petit(Crc32(nomMembre), 4) + nom);
}

}  // namespace

class ZipTest : public TestArchives {
protected:
    // The members with their whole paths; folders show in these alone.
    Lignes ListerFichier(std::stop_token arret = {}) const
    {
        ArbreArchive tv;
        ListerZip(Fichier((travail_ / "a.zip").string()), std::move(arret), tv);
        Lignes lignes;
        std::vector<bool> dossiers(static_cast<size_t>(tv.Nombre()) + 1);
        for (int32_t indice = tv.Nombre(); indice > ArbreArchive::Racine; --indice) {
            dossiers[static_cast<size_t>(tv[indice].parent)] = true;
            if (dossiers[static_cast<size_t>(indice)])
                continue;
            std::string chemin = tv[indice].texte;
            for (int32_t haut = tv[indice].parent; haut > ArbreArchive::Racine; haut = tv[haut].parent)
                chemin = tv[haut].texte + '/' + chemin;
            lignes.insert(lignes.begin(), chemin);
        }
        return lignes;
    }

    Lignes Lister(const std::string& octets, std::stop_token arret = {}) const
    {
        Ecrire(travail_ / "a.zip", octets);
        return ListerFichier(std::move(arret));
    }
};

// Plain, ZIP64, encrypted, with comments, with a program in front whose length counts or not, with bytes behind.
TEST_F(ZipTest, FaitsParDesOutils)
{
    Ecrire(travail_ / "dossier/été.txt", std::string(12, 'x'));
    Ecrire(travail_ / "dossier/vide", "");
    Ecrire(travail_ / "sans", std::string(1000, 'x'));
    Ecrire(travail_ / "programme", "MZ" + std::string(5000, 'x'));
    Executer("touch -d '2003-12-24 14:05' dossier/été.txt; touch -d '1999-12-01 09:30' sans");
    for (const char* commande :
         {"zip a.zip dossier dossier/été.txt dossier/vide sans", "zip -0 -fz a.zip dossier/été.txt sans",
          "zip -P secret a.zip dossier/été.txt sans && echo 'un PK mot' | zip -z a.zip",
          "7z a -tzip a.zip dossier/été.txt sans dossier/vide",
          "7z a -tzip -psecret -mem=AES256 a.zip dossier/été.txt sans",
          "zip b.zip dossier/été.txt sans && cat programme b.zip > a.zip",
          "cat programme b.zip > a.zip && zip -A a.zip", "cat b.zip programme > a.zip"}) {
        std::filesystem::remove(travail_ / "a.zip");
        Executer(commande);
        EXPECT_EQ(ListerFichier(), (Lignes{"dossier/été.txt:12 b:20031224:14h05", "sans:1\u202F000 b:19991201:9h30"}))
            << commande;
    }

    // A download that stopped has no end, or one cut short whose directory can still be found.
    const std::string octets = Contenu(travail_ / "b.zip");
    const Lignes entiere = Lister(octets);
    ASSERT_EQ(entiere.size(), 2U);
    for (size_t taille = 0; taille < octets.size(); ++taille)
        EXPECT_EQ(Lister(octets.substr(0, taille)), taille < octets.size() - 18 ? Lignes() : entiere) << taille;
}

TEST_F(ZipTest, NomsDesMembres)
{
    const std::string n255(255, 'n'), e255 = Fois(255, "é"), dos = "\x82t\x82", ete = "\xC9t\xE9";
    const std::string autre = Extra(0x5455, "\1....");
    for (const auto& [entree, nom] : std::initializer_list<std::pair<Entree, std::string>>{
             // the code page of DOS under its systems, ANSI or UTF-8 under the others
             {{"\xB7 propos \xE1\x9B"}, "À propos ßø"},
             {{.nom = dos, .systeme = 6}, "été"},
             {{.nom = dos, .systeme = 10}, "été"},
             {{.nom = dos, .systeme = 11}, "été"},
             {{.nom = dos, .systeme = 14}, "été"},
             {{"été"}, "├®t├®"},
             {{.nom = ete, .systeme = 3}, "Été"},
             {{.nom = "été", .systeme = 3}, "été"},
             {{.nom = ete, .systeme = 19}, "Été"},
             // marked as UTF-8, rightly or not
             {{.nom = "été", .drapeaux = 0x800}, "été"},
             {{.nom = dos, .drapeaux = 0x800}, "été"},
             {{.nom = ete, .drapeaux = 0x800, .systeme = 3}, "Été"},
             // a name beside the name, as long as that is the one it was made for
             {{.nom = "_t_", .extra = autre + NomUnicode("_t_", "été")}, "été"},
             {{.nom = "_t_", .extra = NomUnicode("autre", "été")}, "_t_"},
             {{.nom = "_t_", .extra = NomUnicode("_t_", "été", 2)}, "_t_"},
             {{.nom = "_t_", .extra = NomUnicode("_t_", ete)}, "_t_"},
             {{.nom = "_t_", .extra = Extra(0x7075, "\1abc")}, "_t_"},
             {{.nom = "é", .drapeaux = 0x800, .extra = NomUnicode("é", "non")}, "é"},
             {{.nom = "_t_", .extra = Petit(1) + Petit(900) + NomUnicode("_t_", "été")}, "_t_"},  // damaged
             {{.nom = "a", .extra = "x"}, "a"},
             // ends, lengths, blanks
             {{"a"s + '\0' + "b"}, "a"},
             {{.nom = "a", .extra = NomUnicode("a", "b\0c"s)}, "b"},
             {{"  blanc .txt "}, "blanc .txt"},
             {{n255 + "n"}, n255},
             {{.nom = e255 + "éé", .systeme = 3}, e255},
             {{""}, ""},
         })
        EXPECT_EQ(Lister(Archive(entree)), Lignes{nom + ":12 b:20031224:14h05"});
}

TEST_F(ZipTest, TaillesEtDates)
{
    const std::string giga5 = Petit(5ULL << 30, 8);
    for (const auto& [entree, suite] : std::initializer_list<std::pair<Entree, std::string>>{
             {{.nom = "a", .taille = UINT32_MAX, .extra = Extra(9, "x") + Extra(1, giga5 + giga5)},
              "5,000 Gb:20031224:14h05"},
             {{.nom = "a", .taille = UINT32_MAX, .extra = Extra(1, "courte")}, "4,000 Gb:20031224:14h05"},
             {{.nom = "a", .taille = 7, .extra = Extra(1, giga5)}, "7 b:20031224:14h05"},
             {{.nom = "a", .taille = 1}, "1 b:20031224:14h05"},
             // The year is made of its last two digits.
             {{.nom = "a", .annee = 1980, .mois = 1, .jour = 1, .heure = 0, .minute = 0}, "12 b:19800101:0h00"},
             {{.nom = "a", .annee = 1999}, "12 b:19991224:14h05"},
             {{.nom = "a", .annee = 2009}, "12 b:20091224:14h05"},
             {{.nom = "a", .annee = 2012}, "12 b:00121224:14h05"},
             {{.nom = "a", .annee = 2049}, "12 b:00491224:14h05"},
             {{.nom = "a", .annee = 2050}, "12 b:19501224:14h05"},
             {{.nom = "a", .annee = 2107}, "12 b:20071224:14h05"},
             // As the bits say: days that no calendar has, and an hour that no clock showed.
             {{.nom = "a", .annee = 1980, .mois = 0, .jour = 0}, "12 b:19800000:14h05"},
             {{.nom = "a", .mois = 2, .jour = 31}, "12 b:20030231:14h05"},
             {{.nom = "a", .mois = 15, .heure = 31, .minute = 63}, "12 b:20031524:31h63"},
             {{.nom = "a", .mois = 3, .jour = 30, .heure = 2, .minute = 30}, "12 b:20030330:2h30"},
             {{.nom = "a", .mois = 10, .jour = 26, .heure = 2}, "12 b:20031026:2h05"},
         })
        EXPECT_EQ(Lister(Archive(entree)), Lignes{"a:" + suite});
    EXPECT_EQ(Lister(Archive({.nom = "vide", .taille = 0})), Lignes());
    EXPECT_EQ(Lister(Archive({.nom = "vide", .taille = UINT32_MAX, .extra = Extra(1, Petit(0, 8))})), Lignes());
}

// What stands around a directory, and what its end tells of it, may all be wrong.
TEST_F(ZipTest, FinsEtEnvirons)
{
    const std::string suite = ":12 b:20031224:14h05", donnees = "PK\3\4" + std::string(500, 'd'), loin(70'000, '?');
    const std::string a = Entree{"a"}.Octets(), ab = a + Entree{"b"}.Octets(), c = Entree{"c"}.Octets();
    const uint64_t taille = ab.size(), place = donnees.size();
    const std::string debut = donnees + ab, bon = Fin(2, taille, place), seule = donnees + c + Fin(1, c.size(), place);
    const std::string stub = "MZ" + std::string(2'000'000, 'm') + "PK\3\4" + std::string(99, 'm');
    const Lignes lesDeux = {"a" + suite, "b" + suite}, aucune, leC = {"c" + suite};
    for (const Cas& cas : {
             Cas{"sound", debut + bon, lesDeux},
             Cas{"counts", debut + Fin(65535, taille, place), lesDeux},
             Cas{"no count", debut + Fin(0, taille, place), lesDeux},
             Cas{"size", debut + Fin(2, taille + 9, place), lesDeux},
             Cas{"size beyond the file", debut + Fin(2, UINT32_MAX, place), lesDeux},
             Cas{"place", debut + Fin(2, taille, place + 9), lesDeux},
             Cas{"place beyond the file", debut + Fin(2, taille, UINT32_MAX), lesDeux},
             Cas{"size and place", debut + Fin(2, taille + 9, place + 9), lesDeux},
             Cas{"size and place, members in the data", c + "x" + debut + Fin(2, 3, 3), lesDeux},
             Cas{"end cut short", debut + bon.substr(0, 9), lesDeux},
             Cas{"nothing behind its signature", debut + "PK\5\6", lesDeux},
             Cas{"no end", debut, aucune},
             Cas{"empty", Fin(0, 0, 0), aucune},
             Cas{"comment", debut + Fin(2, taille, place, 9) + "un PK\5\6.", lesDeux},
             Cas{"comment one byte short", debut + Fin(2, taille, place, 9) + "un court", lesDeux},
             Cas{"bytes behind", debut + bon + loin, lesDeux},
             Cas{"a megabyte behind", debut + bon + Fois(16, loin), aucune},
             Cas{"program in front, not counted", stub + debut + bon, lesDeux},
             Cas{"program in front, counted", stub + debut + Fin(2, taille, stub.size() + place), lesDeux},
             Cas{"joined", debut + bon + seule, leC},
             Cas{"joined, the last empty", debut + bon + Fin(0, 0, 0), aucune},
             Cas{"last volume", debut + Avec(bon, 4, Petit(3) + Petit(3)), lesDeux},
             Cas{"directory begun in the volume before",
                 ab.substr(a.size() - 9) + Fin(2, taille, place),
                 {"b" + suite}},
             Cas{"second record damaged", Avec(debut, place + a.size(), "?") + bon, {"a" + suite}},
             Cas{"size, and second record damaged",
                 Avec(debut, place + a.size(), "?") + Fin(2, taille + 9, place),
                 {"a" + suite}},
             Cas{"first record damaged", Avec(debut, place, "?") + bon, {"b" + suite}},
             Cas{"name beyond the file", donnees + Avec(a, 28, "\xFF\xFF") + Fin(1, a.size(), place), aucune},
             Cas{"extra bytes beyond the file",
                 donnees + Avec(a, 30, "\xFF\xFF") + Fin(1, a.size(), place),
                 {"a" + suite}},
             Cas{"comment of a member",
                 donnees + Avec(a, 32, "\3") + "PK." + c + Fin(2, taille + 3, place),
                 {"a" + suite, "c" + suite}},
             Cas{"64", debut + Fin64(2, taille, place, place + taille), lesDeux},
             Cas{"64, directory alone", ab + Fin64(2, taille, 0, taille), lesDeux},
             Cas{"64, program not counted", stub + debut + Fin64(2, taille, place, place + taille), lesDeux},
             Cas{"64, size", debut + Fin64(2, taille + 9, place, place + taille), lesDeux},
             Cas{"64, record lost", debut + Fin64(2, taille, place, UINT64_MAX), lesDeux},
             Cas{"64, not needed", debut + Fin64(9, 9, 9, place + taille).substr(0, 76) + bon, lesDeux},
         })
        EXPECT_EQ(Lister(cas.octets), cas.noeuds) << cas.nom;
}

// More members than the short end record counts, in a directory longer than any buffer.
TEST_F(ZipTest, BeaucoupDeMembres)
{
    constexpr uint64_t nombre = 70000;
    std::string octets;
    for (uint64_t i = 0; i < nombre; ++i)
        octets += Entree{"d" + std::to_string(i % 300) + "/f" + std::to_string(i)}.Octets();
    octets += Fin64(nombre, octets.size(), 0, octets.size());
    Ecrire(travail_ / "a.zip", octets);
    ArbreArchive tv;
    ListerZip(Fichier((travail_ / "a.zip").string()), {}, tv);
    EXPECT_EQ(tv.Nombre(), 1 + 300 + static_cast<int32_t>(nombre));
    EXPECT_EQ(tv[tv.Nombre()].texte, "f69999:12 b:20031224:14h05");
    EXPECT_EQ(Lister(octets, Arrete()), Lignes());
}

TEST_F(ZipTest, DossiersUneFois)
{
    const std::pair<Lignes, Lignes> table[] = {
        {{"a/b/c:1 b", "a/d:2 b", "a/b/e:3 b", "b/c:4 b"},
         {"1 a", "2 b", "3 c:1 b", "2 d:2 b", "3 e:3 b", "1 b", "7 c:4 b"}},
        {{"../x:1 b", "/abs:1 b", "a//b:1 b", "d/:1 b"},
         {"1 ..", "2 x:1 b", "1 ", "4 abs:1 b", "1 a", "6 ", "7 b:1 b", "1 d", "9 :1 b"}},
        {{"a:1 b", "a:1 b", "a/a:1 b"}, {"1 a:1 b", "1 a:1 b", "1 a", "4 a:1 b"}},
    };
    ArbreArchive tv;
    for (const auto& [lignes, noeuds] : table) {
        tv = ArbreArchive();
        for (const std::string& ligne : lignes)
            ConstruireTv(ligne, tv);
        EXPECT_EQ(TexteArbre(tv), noeuds);
    }
    tv = ArbreArchive();
    for (int parent = 0; parent < 1000; ++parent)  // one name below many
        ConstruireTv(std::to_string(parent) + "/d/x:1 b", tv);
    EXPECT_EQ(tv.Nombre(), 1 + 3 * 1000);
    const std::string profond = Fois(100000, "p/");
    tv = ArbreArchive();
    for (const char* membre : {"x:1 b", "y:1 b"})
        ConstruireTv(profond + membre, tv);
    EXPECT_EQ(tv.Nombre(), 100003);
}
