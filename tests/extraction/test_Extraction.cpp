#include <sys/mman.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <thread>

#include "extraction/bsDrive.h"
#include "outils/Brut.h"
#include "outils/Enfant.h"
#include "outils/ExtractionTest.h"
#include "platform/Lecteurs.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace fs = std::filesystem;

namespace {

class ExtractionTest : public EnvironnementExtraction {
protected:
    // No row is left of a media, nor one shown.
    void RienNeReste()
    {
        EXPECT_EQ(Compter(Entrees), 0);
        EXPECT_EQ(Compter("Select * from Catalogue where  Flag = true order by  Label asc"), 0);
    }
    static constexpr const char* Entrees = "select * from Liste order by Num";
};

std::string Lecteur(char lettre)
{
    return std::string(1, static_cast<char>(lettre - 'a' + 'A')) + ":";
}

}  // namespace

TEST_F(ExtractionTest, UneArborescenceEntiere)
{
    Ecrire(disque_ / "musique" / "Été.MP3", std::string(1536, 'x'));
    Ecrire(disque_ / "musique" / "live" / "a.zip", "");
    const ReponseMedia media = Inscrire("CD1", "Disque un");
    ASSERT_TRUE(media.accepte);
    SaveSetting(SectionSettings, "OptionsDivers 2", "1");
    Extraction extraction(media.base, media.numero, lettre_, 1536, false);
    EXPECT_EQ(extraction.Lire().pourcentage, "");
    ASSERT_EQ(extraction.Executer(), FinExtraction::Complete);
    EXPECT_EQ(extraction.Lire().pourcentage, "100 %");
    EXPECT_EQ(extraction.Lire().ligne, Lecteur(lettre_) + "\\musique\\live\\a.zip");

    std::vector<std::string> lignes = Lignes(Entrees, {"Répertoire", "RepertoirePere", "Nom", "Taille", "attribut"});
    ASSERT_EQ(lignes.size(), 5U);
    // The two entries of "musique" come in the order of the file system, both before those of "live".
    std::sort(lignes.begin() + 2, lignes.begin() + 4);
    EXPECT_EQ(lignes, (std::vector<std::string>{"000000000|000000001|" + Lecteur(lettre_) + "| |D",
                                                "000000001|000000002|musique| |D", "000000002|000000003|live| |D",
                                                "000000002|0|Été.MP3|1,500 Kb|.....a....",
                                                "000000003|0|a.zip|0 b|.....a...."}));

    const std::string cle = " " + std::to_string(media.numero) + "-";
    EXPECT_EQ(Lignes("select * from Catalogue", {"Flag", "Tree", "Unite"})[0],
              "1|#" + cle + "000000001#" + Lecteur(lettre_) + ";" + cle + "000000001#" + cle + "000000002#musique;" +
                  cle + "000000002#" + cle + "000000003#live|" + Lecteur(lettre_)[0]);
    const CompteursExtraction compteurs = extraction.Lire().compteurs;
    EXPECT_EQ(compteurs.repertoires, 2);
    EXPECT_EQ(compteurs.fichiers, 2);
    EXPECT_EQ(compteurs.archives, 1);
    EXPECT_EQ(compteurs.listees, 0);
    EXPECT_EQ(ListeExtensions().size(), std::string("|mp3|zip").size());
}

TEST_F(ExtractionTest, LecteurVideOuDeCapaciteNulle)
{
    ASSERT_EQ(Lire(Inscrire("V", "Vide").numero), FinExtraction::Complete);
    EXPECT_EQ(Compter(Entrees), 1);
    EXPECT_EQ(compteurs_.repertoires + compteurs_.fichiers, 0);

    Ecrire(disque_ / "ignore.txt", "x");
    ASSERT_EQ(Extraction(BaseCourante(), Inscrire("A", "Audio").numero, lettre_, 0, true).Executer(),
              FinExtraction::Complete);
    EXPECT_EQ(Compter(Entrees), 2);
}

TEST_F(ExtractionTest, DossiersSautes)
{
    for (const char* dossier : {"RECYCLER", "RECYCLERS", "Recycled", "System Volume Information",
                                "b/System Volume Information", "b/RECYCLER", "b/Temporary Internet Files"})
        Ecrire(disque_ / dossier / "dedans.txt", "x");
    ASSERT_EQ(Lire(Inscrire("S", "Sauts").numero), FinExtraction::Complete);

    EXPECT_EQ(Lignes("select * from Liste where attribut = 'D' and Répertoire <> '000000000' order by Nom", {"Nom"}),
              (std::vector<std::string>{"b", "RECYCLER", "RECYCLER", "RECYCLERS"}));
    // Read: below the top, the first two; the directory without a row keeps its number, a gap.
    EXPECT_EQ(Compter("select * from Liste where Nom = 'dedans.txt'"), 2);
    EXPECT_EQ(compteurs_.repertoires, 8);
    EXPECT_EQ(Lignes("select * from Catalogue", {"Tree"})[0].find("System Volume"), std::string::npos);
}

TEST_F(ExtractionTest, NomsEtEntreesHostiles)
{
    const std::vector<std::string> noms = {"a\nb", "l'été;1#2", "C:\\x", " blancs ", "100%_*?"};
    for (const std::string& nom : noms)
        Ecrire(disque_ / nom, "x");
    Ecrire(disque_ / "d;o#s" / "f", "x");
    Ecrire(disque_ / "barre\\" / "f", "x");
    Executer("cd disque && ln -s . boucle && ln -s /nulle/part casse && mkfifo tube.exe");

    ASSERT_EQ(Lire(Inscrire("l'identifiant", "l'hostile").numero), FinExtraction::Complete);
    const std::vector<std::string> lus = Lignes(Entrees, {"Nom", "attribut"});
    for (const std::string& nom : noms)
        EXPECT_EQ(std::count(lus.begin(), lus.end(), nom + "|.....a...."), 1) << nom;
    EXPECT_EQ(compteurs_.fichiers, 10);
    EXPECT_EQ(compteurs_.repertoires, 2);
    EXPECT_EQ(std::count(lus.begin(), lus.end(), "barre\\|D"), 1);
    EXPECT_NE((Lignes("select * from Catalogue", {"Tree"})[0] + ";").find("#barre\\;"), std::string::npos);
    EXPECT_EQ(Lignes("select * from Liste where Nom = 'tube.exe'", {"Taille"})[0], "0 b");
    EXPECT_EQ(Lignes("select * from Catalogue", {"Identifiant", "Label"})[0], "l'identifiant|l'hostile");
}

TEST_F(ExtractionTest, IdentiteDuMedia)
{
    EXPECT_FALSE(Inscrire("  ", "nom").accepte);
    EXPECT_FALSE(Inscrire("id", " ").accepte);
    const ReponseMedia premier = Inscrire(" d'abord ", "2001");
    ASSERT_TRUE(premier.accepte);
    EXPECT_EQ(Lignes("select * from Catalogue", {"Identifiant", "Label"})[0], "d'abord|_2001");
    ASSERT_EQ(Lire(premier.numero), FinExtraction::Complete);

    dialogues_.oui = false;
    EXPECT_FALSE(Inscrire("d'abord", "autre").accepte);
    EXPECT_EQ(Compter(Entrees), 1);
    EXPECT_TRUE(Inscrire("second", "2001").accepte);  // compared as typed, stored with "_": no duplicate
    EXPECT_FALSE(Inscrire("troisième", "_2001").accepte);

    dialogues_.oui = true;
    const ReponseMedia remplace = Inscrire("d'abord", "nouveau");
    ASSERT_TRUE(remplace.accepte);
    EXPECT_GT(remplace.numero, premier.numero);
    EXPECT_EQ(Compter(Entrees), 0);
    EXPECT_EQ(Compter("select * from Catalogue"), 2);

    const std::string existe = "Le média avec l'identifiant : \"d'abord\" existe, voulez vous le remplacer ?";
    EXPECT_EQ(dialogues_.dites,
              (std::vector<std::string>{"Veuillez renseigner l'identifiant du média !",
                                        "Veuillez renseigner le nom du média !", existe,
                                        "Le média : \"_2001\" existe, voulez vous le remplacer ?", existe}));
}

TEST_F(ExtractionTest, TueEnPleinTravail)
{
    Remplir(2000);
    EXPECT_FALSE(DansUnEnfant([this] {
        Extraction extraction(BaseCourante(), Inscrire("K", "Tué").numero, lettre_, 1, false);
        std::thread([&] { extraction.Executer(); }).detach();
        while (extraction.Lire().compteurs.fichiers == 0)
            std::this_thread::yield();
        return Mourir();
    }));
    InitialiserBase();
    RienNeReste();
    const ReponseMedia reprise = Inscrire("K", "Tué");
    EXPECT_EQ(dialogues_.dites.back(), "Le média avec l'identifiant : \"K\" existe, voulez vous le remplacer ?");
    EXPECT_EQ(Lire(reprise.numero), FinExtraction::Complete);
    EXPECT_EQ(Compter(Entrees), 2021);
}

// The base lies on the drive that is read, as it does by default: nobody else gets at it meanwhile.
TEST_F(ExtractionTest, LaBaseResteFermeeAuxAutresPendantQuElleEstLue)
{
    struct Partage {
        std::atomic<bool> ouverte, fin;
        std::atomic<int> tours, ouvertures;
    };
    void* memoire = mmap(nullptr, sizeof(Partage), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memoire, MAP_FAILED);
    auto* partage = new (memoire) Partage{};
    const std::string base = (disque_ / "base.exe").string();
    CreerBaseVide(base);
    SaveSetting(SectionSettings, CleBaseCourante, base);
    RelireBaseCourante();
    fs::create_hard_link(base, disque_ / "la même.exe");
    Remplir(200);
    const pid_t autre = fork();
    if (autre == 0) {
        for (; !partage->fin; ++partage->tours)
            partage->ouvertures += partage->ouverte && OpenDatabase(base).Ouverte();
        _exit(0);
    }
    const ReponseMedia media = Inscrire("B", "Base");
    {
        const Base retenue = OpenDatabase(base);
        ASSERT_TRUE(retenue.Ouverte());
        partage->ouverte = true;
        EXPECT_EQ(Lire(media.numero), FinExtraction::Complete);
        const auto attendre = [&] {
            for (const int avant = partage->tours; partage->tours < avant + 3;)
                std::this_thread::yield();
        };
        attendre();
        partage->ouverte = false;
        attendre();  // a try that had begun is over
    }
    partage->fin = true;
    waitpid(autre, nullptr, 0);
    EXPECT_EQ(partage->ouvertures, 0);
    EXPECT_EQ(Compter("select * from Liste where Nom like '*.exe'"), 2);
    EXPECT_EQ(Brut(base, "pragma integrity_check"), std::vector<std::string>{"ok"});
    munmap(memoire, sizeof(Partage));
}

// The list of extensions is kept although nothing of the media is.
TEST_F(ExtractionTest, AbandonneeEnChemin)
{
    Remplir(500);
    for (int i = 0; i < 500; ++i)
        Ecrire(disque_ / ("z" + std::to_string(i) + ".zzy"), "");
    Extraction extraction(BaseCourante(), Inscrire("G", "Abandonnée").numero, lettre_, 1, false);
    std::thread abandon([&] {
        while (extraction.Lire().compteurs.fichiers == 0)
            std::this_thread::yield();
        extraction.Abandonner();
    });
    const FinExtraction fin = extraction.Executer();
    abandon.join();
    if (fin != FinExtraction::Abandonnee)
        GTEST_SKIP() << "read before it could be given up";
    RienNeReste();
    EXPECT_EQ(Lignes("select * from LE", {"Data"})[0], ListeExtensions().empty() ? " " : ListeExtensions());
}

TEST_F(ExtractionTest, MontreLesDernieresEntrees)
{
    Remplir(150);
    Extraction extraction(BaseCourante(), Inscrire("M", "Montrée").numero, lettre_, 0, false);
    EXPECT_FALSE(extraction.Lire().mesurable);
    ASSERT_EQ(extraction.Executer(), FinExtraction::Complete);
    const std::vector<std::string> entrees = extraction.Lire().entrees;
    ASSERT_EQ(entrees.size(), 64U);
    EXPECT_EQ(entrees[13], "un nom assez long 99");
    EXPECT_EQ(entrees[14], "un nom assez long 100");
    EXPECT_EQ(entrees.back(), "un nom assez long 149");
}

TEST_F(ExtractionTest, DisquePlein)
{
    Remplir(3000);
    EXPECT_TRUE(DansUnEnfant([this] {
        const ReponseMedia media = Inscrire("F", "Plein");
        LimiterDisque(120 * 1024);
        return Lire(media.numero) == FinExtraction::Echec;
    }));
    EXPECT_TRUE(OpenDatabase(BaseCourante()).Ouverte());
    RienNeReste();
}

TEST_F(ExtractionTest, DossierIllisible)
{
    Executer("mkdir disque/ouvert disque/ferme; touch disque/ouvert/a.txt disque/ferme/b.txt");
    Executer("chmod -R a+rwX .. && chmod 0 disque/ferme");
    EXPECT_TRUE(SansPrivileges([this] {
        const bool lu = Lire(Inscrire("I", "Illisible").numero) == FinExtraction::Complete;
        return lu && compteurs_.repertoires == 2 && compteurs_.fichiers == 1;
    }));
    Executer("chmod 755 disque/ferme");
}

// The descriptions of a run, from files whose names and settings decide, and what the base gives back of them.
TEST_F(ExtractionTest, Descriptions)
{
    using namespace std::string_literals;
    const std::string octets = "\0\x01\x1A\xB0\xC9\xE9\r\nfin\0"s;
    Ecrire(disque_ / "FILE_ID.DIZ", octets);
    Ecrire(disque_ / "readme.diz", octets);
    Ecrire(disque_ / "vide.nfo", "");
    Ecrire(disque_ / "page.HTML", "<TITLE>Été</TITLE>");
    Ecrire(disque_ / "notes.txt", "MZ, disait-il");
    Ecrire(disque_ / "Piste 01.cda", "MZ");
    Ecrire(disque_ / "image.gif", "GIF89a\x01\0\x02\0\x07"s);
    SaveSetting(SectionDescriptions, "GIF", "0");
    fs::create_symlink(disque_ / "FILE_ID.DIZ", disque_ / "lien.nfo");
    ASSERT_EQ(Lire(Inscrire("CD1", "Disque un").numero), FinExtraction::Complete);

    Base base = OpenDatabase(BaseCourante());
    std::map<std::string, std::string> descriptions;
    for (Recordset lignes = base.OpenRecordset(Entrees); !lignes.Eof(); lignes.MoveNext())
        if (!lignes.EstNul("Description"))
            descriptions[std::string(lignes.Texte("Nom"))] = lignes.Texte("Description");
    ASSERT_EQ(descriptions.size(), 2U);
    EXPECT_EQ(descriptions["FILE_ID.DIZ"], "\0\x01\x1A°Éé\r\nfin\0"s);
    EXPECT_EQ(descriptions["page.HTML"], "Titre: Ã‰tÃ©");  // one character for each byte
    EXPECT_EQ(compteurs_.descriptions, 2);
}

TEST(bsDrive, TextesDuLecteur)
{
    EXPECT_EQ(TexteSerie(0x1234ABCD), "1234-ABCD");
    EXPECT_EQ(TexteSerie(0xABCDE), "ABCD-BCDE");
    EXPECT_EQ(TexteSerie(0xAB), "AB-AB");
    EXPECT_STREQ(NomTypeLecteur(5), "Lecteur DVD/CD-ROM");
    EXPECT_STREQ(NomTypeLecteur(7), "Unknown");
    bsDrive lecteur;
    EXPECT_THROW(lecteur.GetInfo(""), std::invalid_argument);
}

// Archives inside a run: codes, order and texts of the rows of their members, and the asymmetric switches.
TEST_F(ExtractionTest, MembresDArchives)
{
    Ecrire(travail_ / "a" / "b" / "c.txt", "12345");
    Ecrire(travail_ / "a" / "vide.txt", "");
    const std::string commande = "cd '" + travail_.string() + "' && TZ=UTC touch -d '2003-12-24 14:05' a/b/c.txt && ";
    ASSERT_EQ(
        std::system((commande + "zip -qr disque/un.zip a && arj a -m0 disque/deux.arj a/b/c.txt >/dev/null").c_str()),
        0);
    Ecrire(disque_ / "faux.rar", "pas une archive");
    const ReponseMedia premier = Inscrire("CD1", "Disque un");
    ASSERT_EQ(Lire(premier.numero), FinExtraction::Complete);
    EXPECT_EQ(compteurs_.archives, 3);
    EXPECT_EQ(compteurs_.listees, 1);  // ARJ alone is on from the start
    EXPECT_EQ(compteurs_.fichiers, 3);

    SaveSetting(SectionSettings, "Compression 0", "1");
    SaveSetting(SectionSettings, "Compression 3", "1");
    const ReponseMedia second = Inscrire("CD2", "Disque deux");
    ASSERT_EQ(Lire(second.numero), FinExtraction::Complete);
    EXPECT_EQ(compteurs_.listees, 3);
    const std::string media = std::to_string(second.numero);
    const std::string zip = Lignes("select * from Liste where Nom = 'un.zip' and NCatalogue = " + media, {"Num"})[0];
    const auto code = [&](int64_t k) { return "A " + zip + " " + std::to_string(second.numero + k); };
    EXPECT_EQ(Lignes("select * from Liste where Répertoire like 'A " + zip + " *' order by Num",
                     {"Répertoire", "RepertoirePere", "Nom", "Taille", "TypeF", "DateF", "attribut"}),
              (std::vector<std::string>{code(0) + "|" + code(1) + "|a| | | |Z", code(1) + "|" + code(2) + "|b| | | |Z",
                                        code(2) + "|0|c.txt|5 b| |20031224| "}));
    EXPECT_EQ(Compter("select * from Liste where Nom = 'c.txt' and NCatalogue = " + media), 2);
    EXPECT_NE(ListeExtensions().find("|txt"), std::string::npos);
    EXPECT_EQ(Lignes("select * from LE", {"Data"})[0], ListeExtensions());
}
