#include "archives/ConstruireTv.h"
#include "archives/ListerZip.h"
#include "outils/Archives.h"

namespace {

using Lignes = std::vector<std::string>;

// A member's record in the central directory, which is all that a listing needs.
struct Entree {
    std::string nom;
    uint32_t taille = 12;
    unsigned annee = 2003, mois = 12, jour = 24, heure = 14, minute = 5;
    uint16_t drapeaux = 0;
    std::string extra = {};

    std::string Octets() const
    {
        return "PK\1\2" + Petit(20) + Petit(20) + Petit(drapeaux) + Petit(0) + Petit(heure << 11 | minute << 5) +
               Petit((annee - 1980) << 9 | mois << 5 | jour) + Petit(0, 4) + Petit(taille, 4) + Petit(taille, 4) +
               Petit(nom.size()) + Petit(extra.size()) + Petit(0, 14) + nom + extra;
    }
};

std::string Fin(uint64_t nombre, uint64_t taille, uint64_t debut)
{
    return "PK\5\6" + Petit(0, 4) + Petit(nombre) + Petit(nombre) + Petit(taille, 4) + Petit(debut, 4) + Petit(0);
}

std::string Archive(const std::vector<Entree>& entrees)
{
    std::string repertoire;
    for (const Entree& entree : entrees)
        repertoire += entree.Octets();
    return repertoire + Fin(entrees.size(), repertoire.size(), 0);
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

    // Nothing is left of a download that stopped, wherever it did.
    const std::string octets = Contenu(travail_ / "b.zip");
    ASSERT_GT(octets.size(), 300U);
    for (size_t taille = 0; taille < octets.size(); taille += 7)
        EXPECT_EQ(Lister(octets.substr(0, taille)), Lignes()) << taille;
}

TEST_F(ZipTest, LigneDUnMembre)
{
    const std::string n255(255, 'n'), e255 = Fois(255, "é"), suite = ":12 b:20031224:14h05";
    const std::string zip64 = Petit(1) + Petit(16) + Petit(5ULL << 30, 8) + Petit(5ULL << 30, 8);
    const std::pair<Entree, std::string> table[] = {
        {{"\x82t\x82.txt"}, "été.txt" + suite},
        {{.nom = "été", .drapeaux = 0x800}, "été" + suite},
        {{"  blanc .txt "}, "blanc .txt" + suite},
        {{n255 + "n"}, n255 + suite},
        {{e255 + "éé"}, e255 + suite},
        {{""}, suite},
        {{.nom = "gros", .taille = UINT32_MAX, .extra = zip64}, "gros:5,000 Gb:20031224:14h05"},
        // The year is made of its last two digits.
        {{.nom = "a", .annee = 1980, .mois = 1, .jour = 1, .heure = 0, .minute = 0}, "a:12 b:19800101:0h00"},
        {{.nom = "a", .annee = 2012}, "a:12 b:00121224:14h05"},
        // Summer time, and the hour of autumn that comes twice.
        {{.nom = "a", .mois = 7, .jour = 1}, "a:12 b:20030701:14h05"},
        {{.nom = "a", .mois = 10, .jour = 26, .heure = 2}, "a:12 b:20031026:2h05"},
    };
    for (const auto& [entree, ligne] : table)
        EXPECT_EQ(Lister(Archive({entree, {.nom = "vide", .taille = 0}})), Lignes{ligne});
}

// What the counts promise does not lie in the file, or the other way round.
TEST_F(ZipTest, Mensonges)
{
    const std::string membre = Entree{"a"}.Octets();
    const uint64_t taille = membre.size();
    for (const std::string& fin : {Fin(65535, taille, 0), Fin(1, taille + 100, 0), Fin(1, UINT32_MAX, 0),
                                   Fin(1, taille, UINT32_MAX), Fin(0, taille, 0), Fin(2, taille, 0)})
        EXPECT_EQ(Lister(membre + fin), Lignes()) << testing::PrintToString(fin);
}

// More members than the short end record counts, in a directory longer than any buffer.
TEST_F(ZipTest, BeaucoupDeMembres)
{
    constexpr uint64_t nombre = 70000;
    std::string octets;
    for (uint64_t i = 0; i < nombre; ++i)
        octets += Entree{"d" + std::to_string(i % 300) + "/f" + std::to_string(i)}.Octets();
    const uint64_t taille = octets.size();
    octets += "PK\6\6" + Petit(44, 8) + Petit(45) + Petit(45, 10) + Petit(nombre, 8) + Petit(nombre, 8) +
              Petit(taille, 8) + Petit(0, 8) + "PK\6\7" + Petit(0, 4) + Petit(taille, 8) + Petit(1, 4) +
              Fin(0xFFFF, UINT32_MAX, UINT32_MAX);
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
    const std::string profond = Fois(100000, "p/");
    tv = ArbreArchive();
    for (const char* membre : {"x:1 b", "y:1 b"})
        ConstruireTv(profond + membre, tv);
    EXPECT_EQ(tv.Nombre(), 100003);
}
