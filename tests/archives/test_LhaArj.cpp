#include <cstdlib>

#include "Archives.h"
#include "Environnement.h"
#include "archives/ListerArj.h"
#include "archives/ListerLha.h"
#include "store/CycleBase.h"

namespace {

using Noeuds = std::vector<std::string>;

// A header of level 1 and the member's packed data, as many bytes as it says or fewer.
std::string Lha(const std::string& nom, const std::string& donnees, uint32_t taille)
{
    const auto longueurEntete = static_cast<char>(25 + nom.size());
    return longueurEntete + std::string("?-lh5-") + Entier(taille, 4) + Entier(99999, 4) + Entier(0, 4) + " \1" +
           static_cast<char>(nom.size()) + nom + Entier(0, 2) + 'M' + Entier(0, 2) + donnees;
}

std::string Lha(const std::string& nom, const std::string& donnees = "donnees")
{
    return Lha(nom, donnees, static_cast<uint32_t>(donnees.size()));
}

// Header as the DOS versions write it, with the packed data behind it.
std::string Arj(const std::string& nom, const std::string& donnees, uint32_t taille)
{
    const std::string corps = "\x1E\7\1" + std::string(9, '\1') + Entier(taille, 4) + Entier(99999, 4) +
                              std::string(10, '\0') + nom + std::string(2, '\0');
    return "\x60\xEA" + Entier(corps.size(), 2) + corps + Entier(0, 6) + donnees;
}

std::string Arj(const std::string& nom, const std::string& donnees = "donnees")
{
    return Arj(nom, donnees, static_cast<uint32_t>(donnees.size()));
}

const std::string FinArj("\x60\xEA\0\0", 4);

struct Cas {
    const char* nom;
    std::string octets;
    Noeuds noeuds;
};

}  // namespace

class LhaArjTest : public Environnement {
protected:
    Noeuds Lister(void (*lister)(const Fichier&, ArbreArchive&), const std::filesystem::path& nom)
    {
        ArbreArchive tv;
        tv.Membre(ArbreArchive::Racine, "reste d'avant:");
        lister(Fichier((travail_ / nom).string()), tv);
        return TexteArbre(tv);
    }

    Noeuds ListerOctets(void (*lister)(const Fichier&, ArbreArchive&), const std::string& octets)
    {
        Ecrire(travail_ / "a", octets);
        return Lister(lister, "a");
    }

    void Executer(const std::string& commande)
    {
        ASSERT_EQ(std::system(("cd '" + travail_.string() + "' && " + commande + " >/dev/null 2>&1").c_str()), 0);
    }
};

TEST_F(LhaArjTest, LhaTable)
{
    const std::string a = Lha("a");
    const Cas table[] = {
        {"vide", "", {}},
        {"dossiers une fois",
         Lha("a/b/c.txt") + Lha("a/b/d.txt") + Lha("e") + std::string(1, '\0'),
         {"1 a", "2 b", "3 c.txt:7 b::", "3 d.txt:7 b::", "1 e:7 b::"}},
        {"barre inverse, accents, blancs, rien",
         Lha("a\\b") + Lha(" \xE9t\xE9 ") + Lha("") + Lha("d/"),
         {"1 a\\b:7 b::", "1 été:7 b::", "1 :7 b::", "1 d", "5 :7 b::"}},
        {"nom de 255 octets", Lha(std::string(255, 'n')) + a, {"1 " + std::string(255, 'n') + ":7 b::", "1 a:7 b::"}},
        // What is no header is passed over 22 bytes at a time.
        {"glisse de 44", std::string(44, 'x') + a, {"1 a:7 b::"}},
        {"glisse à côté", std::string(43, 'x') + a, {}},
        // The step of level 1 overshoots the next member of level 0 by three bytes.
        {"niveau 0",
         "\x16?-lh0-" + Entier(1, 4) + Entier(1, 4) + Entier(0, 4) + std::string(" \0\1a", 4) + "CRx" + a,
         {"1 a:1 b::"}},
        {"taille hors du fichier", a + Lha("b", "reste", UINT32_MAX) + a, {"1 a:7 b::", "1 b:4,000 Gb::"}},
        {"nom coupé", a + Lha("long").substr(0, 24), {"1 a:7 b::", "1 lo:7 b::"}},
        {"en-tête coupé", a + Lha("long").substr(0, 21), {"1 a:7 b::"}},
    };
    for (const Cas& cas : table)
        EXPECT_EQ(ListerOctets(ListerLha, cas.octets), cas.noeuds) << cas.nom;
}

TEST_F(LhaArjTest, ArjTable)
{
    const std::string archive = Arj("x.arj", ""), a = Arj("a");
    const Cas table[] = {
        {"vide", "", {}},
        {"pas une archive", "MZ" + archive + a, {}},
        {"sans membre", archive + FinArj, {}},
        {"dossiers une fois",
         archive + Arj("a/b/c.txt") + Arj("a/b/d.txt") + Arj("e") + FinArj,
         {"1 a", "2 b", "3 c.txt:7 b::", "3 d.txt:7 b::", "1 e:7 b::"}},
        {"barre inverse, accents, blancs, rien",
         archive + Arj("a\\b") + Arj(" \xE9t\xE9 ") + Arj("") + Arj("d/", "") + FinArj,
         {"1 a\\b:7 b::", "1 été:7 b::", "1 :7 b::", "1 d", "5 :0 b::"}},
        {"nom de 300 octets",
         archive + Arj(std::string(300, 'n')) + a + FinArj,
         {"1 " + std::string(256, 'n') + ":7 b::", "1 a:7 b::"}},
        {"commentaire d'archive", Arj("x.arj" + std::string(1, '\0') + "note", "") + a + FinArj, {"1 a:7 b::"}},
        // What is no header is passed over 34 bytes at a time.
        {"glisse de 68", archive + std::string(68, 'x') + a, {"1 a:7 b::"}},
        {"glisse à côté", archive + std::string(67, 'x') + a + FinArj, {}},
        {"taille hors du fichier", archive + a + Arj("b", "reste", UINT32_MAX) + a, {"1 a:7 b::", "1 b:4,000 Gb::"}},
        {"nom coupé", archive + a + Arj("long").substr(0, 36), {"1 a:7 b::", "1 lo:7 b::"}},
        {"en-tête coupé", archive + a + Arj("long").substr(0, 33), {"1 a:7 b::"}},
    };
    for (const Cas& cas : table)
        EXPECT_EQ(ListerOctets(ListerArj, cas.octets), cas.noeuds) << cas.nom;
}

TEST_F(LhaArjTest, FaitsParDesOutils)
{
    Ecrire(travail_ / "a/b/c.txt", std::string(5000, 'c'));
    Ecrire(travail_ / "a/b/d.txt", "court");
    Ecrire(travail_ / "hasard.bin", Contenu("/proc/self/exe").substr(0, 20000));

    // Sizes are packed ones, in which this level counts the extension that holds the folders of the name.
    Executer("jlha -a1f un.lzh hasard.bin a/b/d.txt a/b/c.txt");
    const Noeuds lha = Lister(ListerLha, "un.lzh");
    ASSERT_EQ(lha.size(), 3U);
    EXPECT_TRUE(lha[0].starts_with("1 hasard.bin:"));
    EXPECT_EQ(lha[1], "1 d.txt:17 b::");
    EXPECT_TRUE(lha[2].starts_with("1 c.txt:"));

    // Its headers are longer than those of old.
    Executer("arj a -m0 un.arj hasard.bin a/b/d.txt a/b/c.txt");
    EXPECT_EQ(Lister(ListerArj, "un.arj"),
              (Noeuds{"1 hasard.bin:19,53 Kb::", "1 a", "3 b", "4 d.txt:5 b::", "4 c.txt:4,883 Kb::"}));
}

TEST_F(LhaArjTest, Abandon)
{
    FixerAbandon(true);
    EXPECT_EQ(ListerOctets(ListerLha, Lha("a")), Noeuds());
    EXPECT_EQ(ListerOctets(ListerArj, Arj("x", "") + Arj("a")), Noeuds());
    EXPECT_EQ(Lister(ListerArj, "absent"), Noeuds());
}
