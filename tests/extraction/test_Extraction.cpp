#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <thread>

#include "Outils.h"
#include "platform/Lecteurs.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace fs = std::filesystem;

namespace {

class ExtractionTest : public EnvironnementExtraction {};

const std::string Entrees = "select * from Liste order by Num";

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
    ASSERT_EQ(Lire(media.numero), FinExtraction::Complete);

    const std::vector<std::string> lignes =
        Lignes(Entrees, {"Répertoire", "RepertoirePere", "Nom", "Taille", "attribut"});
    ASSERT_EQ(lignes.size(), 5U);
    EXPECT_EQ(lignes[0], "000000000|000000001|" + Lecteur(lettre_) + "| |D");
    EXPECT_EQ(lignes[1], "000000001|000000002|musique| |D");
    // The two entries of "musique" come in the order of the file system, both before those of "live".
    EXPECT_TRUE(std::find(lignes.begin(), lignes.end(), "000000002|0|Été.MP3|1,500 Kb|.....a....") != lignes.end());
    EXPECT_TRUE(std::find(lignes.begin(), lignes.end(), "000000002|000000003|live| |D") != lignes.end());
    EXPECT_EQ(lignes[4], "000000003|0|a.zip|0 b|.....a....");

    const std::string cle = " " + std::to_string(media.numero) + "-";
    EXPECT_EQ(Lignes("select * from Catalogue", {"Flag", "Tree", "Unite"})[0],
              "1|#" + cle + "000000001#" + Lecteur(lettre_) + ";" + cle + "000000001#" + cle + "000000002#musique;" +
                  cle + "000000002#" + cle + "000000003#live|" + Lecteur(lettre_)[0]);
    EXPECT_EQ(compteurs_.repertoires, 2);
    EXPECT_EQ(compteurs_.fichiers, 2);
    EXPECT_EQ(compteurs_.archives, 1);
    EXPECT_EQ(compteurs_.listees, 0);
    EXPECT_EQ(ListeExtensions().size(), std::string("|mp3|zip").size());
}

TEST_F(ExtractionTest, LecteurVide)
{
    const ReponseMedia media = Inscrire("V", "Vide");
    ASSERT_EQ(Lire(media.numero), FinExtraction::Complete);
    EXPECT_EQ(Compter(Entrees), 1);
    EXPECT_EQ(compteurs_.repertoires + compteurs_.fichiers, 0);
}

TEST_F(ExtractionTest, LecteurDeCapaciteNulle)
{
    Ecrire(disque_ / "ignore.txt", "x");
    const ReponseMedia media = Inscrire("A", "Audio");
    Extraction extraction(media.numero, lettre_, 0, true);
    ASSERT_EQ(extraction.Executer(), FinExtraction::Complete);
    EXPECT_EQ(Compter(Entrees), 1);
}

TEST_F(ExtractionTest, DossiersSautes)
{
    for (const char* dossier : {"RECYCLER", "RECYCLERS", "Recycled", "System Volume Information",
                                "b/System Volume Information", "b/RECYCLER", "b/Temporary Internet Files"})
        Ecrire(disque_ / dossier / "dedans.txt", "x");
    const ReponseMedia media = Inscrire("S", "Sauts");
    ASSERT_EQ(Lire(media.numero), FinExtraction::Complete);

    std::vector<std::string> dossiers = Lignes("select * from Liste where attribut = 'D'", {"Nom"});
    std::sort(dossiers.begin(), dossiers.end());
    std::vector<std::string> attendus = {Lecteur(lettre_), "RECYCLER", "RECYCLER", "RECYCLERS", "b"};
    std::sort(attendus.begin(), attendus.end());
    EXPECT_EQ(dossiers, attendus);
    // Read: below the top, the first two; the directory without a row keeps its number, a gap.
    EXPECT_EQ(Compter("select * from Liste where Nom = 'dedans.txt'"), 2);
    EXPECT_EQ(compteurs_.repertoires, 8);
    EXPECT_EQ(Lignes("select * from Catalogue", {"Tree"})[0].find("System Volume"), std::string::npos);
}

TEST_F(ExtractionTest, NomsEtEntreesHostiles)
{
    const std::vector<std::string> noms = {"a\nb", "l'été;1#2", std::string(255, 'n'), "C:\\x", " blancs ", "100%_*?"};
    for (const std::string& nom : noms)
        Ecrire(disque_ / nom, "x");
    Ecrire(disque_ / "caf\xe9.txt", "x");
    Ecrire(disque_ / "d;o#s" / "f", "x");
    fs::create_symlink(".", disque_ / "boucle");
    fs::create_symlink("/nulle/part", disque_ / "casse");
    ASSERT_EQ(mkfifo((disque_ / "tube.exe").c_str(), 0600), 0);
    const int prise = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un adresse{};
    adresse.sun_family = AF_UNIX;
    const std::string chemin = (disque_ / "prise").string();
    chemin.copy(adresse.sun_path, sizeof adresse.sun_path - 1);
    ASSERT_EQ(bind(prise, reinterpret_cast<sockaddr*>(&adresse), sizeof adresse), 0);
    close(prise);

    const ReponseMedia media = Inscrire("l'identifiant", "l'hostile");
    ASSERT_EQ(Lire(media.numero), FinExtraction::Complete);
    const std::vector<std::string> lus = Lignes(Entrees, {"Nom", "attribut"});
    for (const std::string& nom : noms)
        EXPECT_TRUE(std::find(lus.begin(), lus.end(), nom + "|.....a....") != lus.end()) << nom;
    EXPECT_TRUE(std::find(lus.begin(), lus.end(), "café.txt|.....a....") != lus.end());
    EXPECT_EQ(compteurs_.fichiers, 12);
    EXPECT_EQ(compteurs_.repertoires, 1);
    EXPECT_EQ(Lignes("select * from Liste where Nom = 'tube.exe'", {"Taille"})[0], "0 b");
    EXPECT_EQ(Lignes("select * from Catalogue", {"Identifiant", "Label"})[0], "l'identifiant|l'hostile");
}

TEST_F(ExtractionTest, CinqCentsNiveaux)
{
    fs::path courant = fs::current_path();
    fs::current_path(disque_);
    for (int i = 0; i < 500; ++i) {  // the whole path is far over 4,096 bytes
        fs::create_directory("niveau numéro");
        fs::current_path("niveau numéro");
    }
    Ecrire("./fond.txt", "x");
    fs::current_path(courant);

    const ReponseMedia media = Inscrire("P", "Profond");
    ASSERT_EQ(Lire(media.numero), FinExtraction::Complete);
    EXPECT_EQ(compteurs_.repertoires, 500);
    EXPECT_EQ(Lignes("select * from Liste where Nom = 'fond.txt'", {"Répertoire"})[0], "000000501");
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

    const std::vector<std::string> attendues = {
        "Veuillez renseigner l'identifiant du média !", "Veuillez renseigner le nom du média !",
        "Le média avec l'identifiant : \"d'abord\" existe, voulez vous le remplacer ?",
        "Le média : \"_2001\" existe, voulez vous le remplacer ?",
        "Le média avec l'identifiant : \"d'abord\" existe, voulez vous le remplacer ?"};
    EXPECT_EQ(dialogues_.dites, attendues);
}

TEST_F(ExtractionTest, AbandonNeLaisseRien)
{
    for (int i = 0; i < 3000; ++i)
        Ecrire(disque_ / ("d" + std::to_string(i % 50)) / std::to_string(i), "");
    const ReponseMedia media = Inscrire("X", "Abandon");
    Extraction extraction(media.numero, lettre_, 1, false);
    FinExtraction fin{};
    std::thread ouvrier([&] { fin = extraction.Executer(); });
    while (extraction.Lire().compteurs.fichiers == 0)
        std::this_thread::yield();
    extraction.Abandonner();
    ouvrier.join();
    if (fin == FinExtraction::Complete)
        GTEST_SKIP() << "the run was faster than the click";
    EXPECT_EQ(fin, FinExtraction::Abandonnee);
    EXPECT_EQ(Compter("select * from Catalogue"), 0);
    EXPECT_EQ(Compter(Entrees), 0);
}

TEST_F(ExtractionTest, TueEnPleinTravail)
{
    for (int i = 0; i < 2000; ++i)
        Ecrire(disque_ / ("d" + std::to_string(i % 40)) / std::to_string(i), "");
    const pid_t enfant = fork();
    if (enfant == 0) {
        const ReponseMedia media = Inscrire("K", "Tué");
        Extraction extraction(media.numero, lettre_, 1, false);
        std::thread([&] { extraction.Executer(); }).detach();
        while (extraction.Lire().compteurs.fichiers == 0)
            std::this_thread::yield();
        kill(getpid(), SIGKILL);
    }
    int etat = 0;
    waitpid(enfant, &etat, 0);
    ASSERT_TRUE(WIFSIGNALED(etat));

    InitialiserBase();
    EXPECT_EQ(Compter("Select * from Catalogue where  Flag = true order by  Label asc"), 0);
    EXPECT_EQ(Compter(Entrees), 0);
    const ReponseMedia reprise = Inscrire("K", "Tué");
    EXPECT_EQ(dialogues_.dites.back(), "Le média avec l'identifiant : \"K\" existe, voulez vous le remplacer ?");
    EXPECT_EQ(Lire(reprise.numero), FinExtraction::Complete);
    EXPECT_EQ(Compter(Entrees), 2041);
}

TEST_F(ExtractionTest, DisquePlein)
{
    for (int i = 0; i < 3000; ++i)
        Ecrire(disque_ / ("d" + std::to_string(i % 50)) / ("un nom assez long " + std::to_string(i)), "");
    const pid_t enfant = fork();
    if (enfant == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const ReponseMedia media = Inscrire("F", "Plein");
        const rlimit limite{120 * 1024, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &limite);
        _exit(Lire(media.numero) == FinExtraction::Echec ? 0 : 1);
    }
    int etat = 0;
    waitpid(enfant, &etat, 0);
    EXPECT_EQ(WEXITSTATUS(etat), 0);
    EXPECT_TRUE(OpenDatabase(BaseCourante()).Ouverte());
    EXPECT_EQ(Compter(Entrees), 0);
    EXPECT_EQ(Compter("Select * from Catalogue where  Flag = true order by  Label asc"), 0);
}

TEST_F(ExtractionTest, DossierIllisible)
{
    Ecrire(disque_ / "ouvert" / "a.txt", "");
    Ecrire(disque_ / "ferme" / "b.txt", "");
    fs::permissions(disque_ / "ferme", fs::perms::none);
    const pid_t enfant = fork();
    if (enfant == 0) {
        // As another user than root, from whom nothing is hidden.
        if (geteuid() == 0) {
            for (const fs::directory_entry& entree : fs::recursive_directory_iterator(racine_))
                if (lchown(entree.path().c_str(), 65534, 65534) != 0)
                    _exit(2);
            if (chown(racine_.c_str(), 65534, 65534) != 0 || setuid(65534) != 0)
                _exit(2);
        }
        const ReponseMedia media = Inscrire("I", "Illisible");
        if (Lire(media.numero) != FinExtraction::Complete)
            _exit(1);
        _exit(compteurs_.repertoires == 2 && compteurs_.fichiers == 1 ? 0 : 3);
    }
    int etat = 0;
    waitpid(enfant, &etat, 0);
    fs::permissions(disque_ / "ferme", fs::perms::owner_all);
    EXPECT_EQ(WEXITSTATUS(etat), 0);
}

TEST_F(ExtractionTest, PourcentageEtLigneDeProgression)
{
    Ecrire(disque_ / "moitie.bin", std::string(500, 'x'));
    const ReponseMedia media = Inscrire("%", "Pour cent");
    Extraction extraction(media.numero, lettre_, 1000, false);
    EXPECT_EQ(extraction.Lire().pourcentage, "");
    SaveSetting(SectionSettings, "OptionsDivers 2", "1");
    ASSERT_EQ(extraction.Executer(), FinExtraction::Complete);
    EXPECT_EQ(extraction.Lire().pourcentage, "100 %");
    EXPECT_EQ(extraction.Lire().ligne, Lecteur(lettre_) + "\\moitie.bin");
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
    Ecrire(disque_ / "son.mp3", std::string(200, 'x'));
    Ecrire(disque_ / "non.lnk", "ici");
    Ecrire(disque_ / "image.gif", "GIF89a\x01\0\x02\0\x07"s);
    SaveSetting(SectionDescriptions, "GIF", "0");
    fs::create_symlink(disque_ / "FILE_ID.DIZ", disque_ / "lien.nfo");
    const ReponseMedia media = Inscrire("CD1", "Disque un");
    ASSERT_EQ(Lire(media.numero), FinExtraction::Complete);

    Base base = OpenDatabase(BaseCourante());
    std::map<std::string, std::string> descriptions;
    for (Recordset lignes = base.OpenRecordset(Entrees); !lignes.Eof(); lignes.MoveNext())
        if (!lignes.EstNul("Description"))
            descriptions[std::string(lignes.Texte("Nom"))] = lignes.Texte("Description");
    ASSERT_EQ(descriptions.size(), 4U);
    EXPECT_EQ(descriptions["FILE_ID.DIZ"], "\0\x01\x1A°Éé\r\nfin\0"s);
    EXPECT_EQ(descriptions["page.HTML"], "Titre: Ã‰tÃ©");  // one character for each byte
    EXPECT_TRUE(descriptions["son.mp3"].starts_with("Album: \r\nChanson: \r\n"));
    EXPECT_EQ(descriptions["non.lnk"].substr(0, 17), "Raccourci: Error ");
    EXPECT_EQ(compteurs_.descriptions, 4);
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
