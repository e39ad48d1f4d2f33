#include "archives/ListerArchive.h"
#include "archives/ListerArj.h"
#include "archives/ListerLha.h"
#include "outils/Archives.h"
#include "store/Reglages.h"

namespace {

// A header of level 1 and the member's packed data, whose size may be a lie.
std::string Lha(const std::string& nom, uint32_t taille)
{
    return Petit(25 + nom.size(), 1) + "?-lh5-" + Petit(taille, 4) + Petit(99999, 8) + " \1" + Petit(nom.size(), 1) +
           nom + Petit(0) + 'M' + Petit(0) + "donnees";
}

// Header as the DOS versions write it, with the packed data behind it.
std::string Arj(const std::string& nom, uint32_t taille)
{
    const std::string corps = "\x1E\7\1" + std::string(9, '\1') + Petit(taille, 4) + Petit(99999, 14) + nom + Petit(0);
    return "\x60\xEA" + Petit(corps.size()) + corps + Petit(0, 6) + (taille > 0 ? "donnees" : "");
}

const std::string DebutArj = Arj("x.arj", 0), FinArj = "\x60\xEA" + Petit(0);

}  // namespace

using LhaArjTest = TestArchives;

TEST_F(LhaArjTest, LesDeuxFormes)
{
    struct Forme {
        Lecture lister;
        std::string (*membre)(const std::string&, uint32_t);
        std::string debut, fin;
        size_t entete;  // bytes before a member's name, also the step over what is no header
        size_t longueur;
    };
    for (const Forme& forme :
         {Forme{ListerLha, Lha, "", Petit(0, 1), 22, 255}, Forme{ListerArj, Arj, DebutArj, FinArj, 34, 256}}) {
        SCOPED_TRACE(forme.debut);
        const auto membre = [&](const std::string& nom, uint32_t taille = 7) { return forme.membre(nom, taille); };
        const std::string a = membre("a"), nomLong(forme.longueur, 'n');
        for (const Cas& cas : {
                 Cas{"sans membre", "", {}},
                 Cas{"dossiers une fois", membre("a/b/c") + membre("a/b/d"), {"1 a", "2 b", "3 c:7 b::", "3 d:7 b::"}},
                 Cas{"barre inverse", membre("a\\b"), {"1 a\\b:7 b::"}},
                 Cas{"accents, blancs, rien", membre(" \xE9t\xE9 ") + membre(""), {"1 été:7 b::", "1 :7 b::"}},
                 Cas{"dossier seul", membre("d/"), {"1 d", "2 :7 b::"}},
                 Cas{"nom le plus long", membre(nomLong) + a, {"1 " + nomLong + ":7 b::", "1 a:7 b::"}},
                 Cas{"glisse", std::string(2 * forme.entete, 'x') + a, {"1 a:7 b::"}},
                 Cas{"glisse à côté", std::string(2 * forme.entete - 1, 'x') + a, {}},
                 Cas{"taille hors du fichier", a + membre("b", UINT32_MAX) + a, {"1 a:7 b::", "1 b:4,000 Gb::"}},
             })
            EXPECT_EQ(ListerOctets(forme.lister, forme.debut + cas.octets + forme.fin), cas.noeuds) << cas.nom;
        const std::string coupe = forme.debut + a + membre("long").substr(0, forme.entete + 2);
        EXPECT_EQ(ListerOctets(forme.lister, coupe), (Noeuds{"1 a:7 b::", "1 lo:7 b::"}));
        EXPECT_EQ(ListerOctets(forme.lister, coupe.substr(0, coupe.size() - 3)), Noeuds{"1 a:7 b::"});

        EXPECT_EQ(ListerOctets(forme.lister, forme.debut + a, Arrete()), Noeuds());
        ArbreArchive tv;
        tv.Membre(ArbreArchive::Racine, "reste d'avant:");
        forme.lister(Fichier(), {}, tv);
        EXPECT_EQ(TexteArbre(tv), Noeuds());
    }
}

TEST_F(LhaArjTest, ChacuneSesDetours)
{
    // The step of level 1 overshoots the next member of level 0 by three bytes.
    const std::string niveau0 = "\x16?-lh0-" + Petit(1, 4) + Petit(1, 8) + std::string(" \0\1a", 4) + "CRx";
    EXPECT_EQ(ListerOctets(ListerLha, niveau0 + Lha("b", 7)), Noeuds{"1 a:1 b::"});

    EXPECT_EQ(ListerOctets(ListerLha, Avec(Lha("a", 7), 3, "z")), Noeuds());  // "-zh5-"

    const std::string a = Arj("a", 7) + FinArj;
    EXPECT_EQ(ListerOctets(ListerArj, DebutArj + a + Fois(60, "\x1A") + a), Noeuds{"1 a:7 b::"});  // padded
    EXPECT_EQ(ListerOctets(ListerArj, "MZ" + DebutArj + a), Noeuds());
    EXPECT_EQ(ListerOctets(ListerArj, Arj("x.arj" + std::string(1, '\0') + "note", 0) + a), Noeuds{"1 a:7 b::"});
    EXPECT_EQ(ListerOctets(ListerArj, DebutArj + Arj(std::string(300, 'n'), 7) + a),
              (Noeuds{"1 " + std::string(256, 'n') + ":7 b::", "1 a:7 b::"}));
}

TEST_F(LhaArjTest, SortesParExtension)
{
    const std::pair<const char*, const char*> cles[] = {{"zip", "Compression 0"},
                                                        {"arj", "Compression 1"},
                                                        {"lha", "Compression 2"},
                                                        {"lzh", "Compression 2"},
                                                        {"rar", "Compression 3"}};
    for (const auto& [extension, cle] : cles)
        EXPECT_EQ(ChoisirSorte(extension)->Voulue(), extension == std::string("arj")) << extension;
    for (const auto& [extension, cle] : cles)
        for (const char* valeur : {"0", "1", "3"}) {
            SaveSetting(SectionSettings, cle, valeur);
            EXPECT_EQ(ChoisirSorte(extension)->Voulue(), *valeur == '1') << extension;
        }
    for (const char* extension : {"", "ace", "ZIP"})
        EXPECT_EQ(ChoisirSorte(extension), nullptr) << extension;
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

    // Its headers are longer than those of old.
    Executer("arj a -m0 un.arj hasard.bin a/b/d.txt a/b/c.txt");
    EXPECT_EQ(Lister(ListerArj, "un.arj"),
              (Noeuds{"1 hasard.bin:19,53 Kb::", "1 a", "3 b", "4 d.txt:5 b::", "4 c.txt:4,883 Kb::"}));
}
