#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <map>

#include "Environnement.h"
#include "platform/Chemins.h"
#include "platform/Lecteurs.h"
#include "platform/Parcours.h"

namespace fs = std::filesystem;

namespace {
class ParcoursDossier : public Environnement {
protected:
    ParcoursDossier() { DonnerLettre('t', travail_.string()); }

    // A chain of directories, all of the same name, and a file at its end. By descriptors: paths would be too long.
    void CreerChaine(int niveaux, const std::string& nom) const
    {
        int dossier = open(travail_.c_str(), O_PATH | O_DIRECTORY);
        for (int niveau = 0; niveau < niveaux; ++niveau) {
            mkdirat(dossier, nom.c_str(), 0755);
            const int suivant = openat(dossier, nom.c_str(), O_PATH | O_DIRECTORY);
            close(dossier);
            dossier = suivant;
        }
        const int fichier = openat(dossier, "fond.txt", O_WRONLY | O_CREAT, 0644);
        EXPECT_EQ(write(fichier, "fond", 4), 4);
        close(fichier);
        close(dossier);
    }
};

std::map<std::string, EntreeDossier> Entrees(Parcours& parcours)
{
    std::map<std::string, EntreeDossier> entrees;
    parcours.Lister([&](const EntreeDossier& entree) {
        entrees[entree.nomReel] = entree;
        return true;
    });
    return entrees;
}

std::string Texte(const Fichier& fichier)
{
    std::string texte(fichier.Taille(), '\0');
    texte.resize(fichier.Lire(0, texte.data(), texte.size()));
    return texte;
}

// Runs as an ordinary user in a process of its own; true when the work says so.
bool SansPrivileges(const std::function<bool()>& travail)
{
    const pid_t enfant = fork();
    if (enfant == 0)
        _exit((geteuid() != 0 || setuid(65534) == 0) && travail() ? 0 : 1);
    int etat = -1;
    waitpid(enfant, &etat, 0);
    return etat == 0;
}

const auto ignorer = [](const EntreeDossier&) { return true; };
}  // namespace

TEST_F(ParcoursDossier, NomsDifficiles)
{
    const std::map<std::string, std::string> noms = {
        {"deux\nlignes", "deux\nlignes"},
        {"barre\\inverse", "barre\\inverse"},
        {"l'\"apostrophe\"", "l'\"apostrophe\""},
        {"-rf", "-rf"},
        {"\xE9t\xE9 \x80", "été €"},
        {"été.txt", "été.txt"},
        {"\xED\xA0\x80", "í\xC2\xA0€"},  // a surrogate is no UTF-8
        {std::string(255, 'n'), std::string(255, 'n')},
    };
    for (const auto& [reel, texte] : noms)
        Ecrire(travail_ / reel, texte);

    Parcours parcours('t');
    const auto entrees = Entrees(parcours);
    EXPECT_EQ(entrees.size(), noms.size());
    for (const auto& [reel, texte] : noms) {
        ASSERT_TRUE(entrees.contains(reel)) << texte;
        EXPECT_EQ(entrees.at(reel).nom, texte);
        EXPECT_EQ(Texte(parcours.Ouvrir(entrees.at(reel))), texte);
        EXPECT_EQ(CheminReel('t', {texte}), (travail_ / reel).string());
    }
}

TEST_F(ParcoursDossier, SeulsLesFichiersOrdinairesSOuvrent)
{
    Ecrire(travail_ / ".lecture", "abc");
    fs::permissions(travail_ / ".lecture", fs::perms::owner_read);
    fs::create_directory(travail_ / "dossier");
    fs::create_symlink("boucle", travail_ / "boucle");
    fs::create_directory_symlink("dossier", travail_ / "lien");
    ASSERT_EQ(mkfifo((travail_ / "tube").c_str(), 0644), 0);
    sockaddr_un adresse{AF_UNIX, {}};
    (travail_ / "prise").string().copy(adresse.sun_path, sizeof adresse.sun_path - 1);
    const int prise = socket(AF_UNIX, SOCK_STREAM, 0);
    bind(prise, reinterpret_cast<const sockaddr*>(&adresse), sizeof adresse);

    struct Attendu {
        uint32_t attributs;
        uint64_t taille;
        bool ordinaire, entrable;
    };
    const std::map<std::string, Attendu> attendus = {
        {".lecture", {AttributLectureSeule | AttributCache | AttributArchive, 3, true, false}},
        {"dossier", {AttributDossier, 0, false, true}},
        {"boucle", {AttributLien, 6, false, false}},
        {"lien", {AttributLien, 7, false, false}},
        {"tube", {0, 0, false, false}},
        {"prise", {0, 0, false, false}},
    };
    Parcours parcours('t');
    const auto entrees = Entrees(parcours);
    ASSERT_EQ(entrees.size(), attendus.size());
    for (const auto& [nom, attendu] : attendus) {
        SCOPED_TRACE(nom);
        EXPECT_EQ(entrees.at(nom).attributs, attendu.attributs);
        EXPECT_EQ(entrees.at(nom).taille, attendu.taille);
        EXPECT_EQ(entrees.at(nom).ordinaire, attendu.ordinaire);
        EXPECT_EQ(parcours.Ouvrir(entrees.at(nom)).Ouvert(), attendu.ordinaire);
        EXPECT_EQ(Fichier((travail_ / nom).string()).Ouvert(), attendu.ordinaire);
        EXPECT_EQ(parcours.Entrer(nom), attendu.entrable);
        if (attendu.entrable)
            parcours.Remonter();
    }
    for (const char* nom : {"..", ".", "", "dossier/..", "/etc"})
        EXPECT_FALSE(parcours.Entrer(nom)) << nom;
    close(prise);
}

TEST_F(ParcoursDossier, CreationDateeDepuis1601)
{
    Ecrire(travail_ / "neuf", "");
    struct stat etat {};
    stat((travail_ / "neuf").c_str(), &etat);
    Parcours parcours('t');
    const int64_t secondes = Entrees(parcours).at("neuf").creation / 10'000'000 - 11'644'473'600;
    EXPECT_NEAR(static_cast<double>(secondes), static_cast<double>(etat.st_mtime), 60);
}

TEST_F(ParcoursDossier, ProfondeurSansLimite)
{
    constexpr int niveaux = 500;
    const std::string nom(200, 'p');
    CreerChaine(niveaux, nom);

    Parcours parcours('t');
    for (int niveau = 0; niveau < niveaux; ++niveau)
        ASSERT_TRUE(parcours.Entrer(nom)) << niveau;
    EXPECT_EQ(Texte(parcours.Ouvrir(Entrees(parcours).at("fond.txt"))), "fond");
    const fs::directory_iterator descripteurs("/proc/self/fd");
    EXPECT_LT(std::distance(begin(descripteurs), end(descripteurs)), 64);
    for (int niveau = niveaux; niveau-- > 0;) {
        parcours.Remonter();
        ASSERT_TRUE(Entrees(parcours).contains(nom)) << niveau;
    }

    std::vector<std::string> noms(niveaux, nom);
    noms.emplace_back("fond.txt");
    EXPECT_EQ(Texte(Fichier(CheminReel('t', noms))), "fond");
}

TEST_F(ParcoursDossier, DossierDeplacePendantLeParcours)
{
    CreerChaine(100, "d");
    Ecrire(travail_ / "temoin", "");
    Parcours parcours('t');
    for (int niveau = 0; niveau < 100; ++niveau)
        ASSERT_TRUE(parcours.Entrer("d"));
    fs::path milieu = travail_;
    for (int niveau = 0; niveau < 50; ++niveau)
        milieu /= "d";
    fs::rename(milieu, travail_ / "ailleurs");

    for (int niveau = 0; niveau < 51; ++niveau)
        parcours.Remonter();
    EXPECT_TRUE(Entrees(parcours).empty());  // where "d" was taken away, not where it was put
    for (int niveau = 0; niveau < 49; ++niveau)
        parcours.Remonter();
    EXPECT_TRUE(Entrees(parcours).contains("temoin"));
}

TEST_F(ParcoursDossier, DossierSupprimePendantLeParcours)
{
    CreerChaine(60, "d");
    Parcours parcours('t');
    for (int niveau = 0; niveau < 60; ++niveau)
        ASSERT_TRUE(parcours.Entrer("d"));
    fs::remove_all(travail_ / "d");
    for (int niveau = 0; niveau < 60; ++niveau, parcours.Remonter()) {
        EXPECT_FALSE(parcours.Lister(ignorer)) << niveau;
        EXPECT_FALSE(parcours.Entrer("d"));
    }
    EXPECT_TRUE(parcours.Lister(ignorer));
    EXPECT_FALSE(Parcours('q').Lister(ignorer));
}

TEST_F(ParcoursDossier, DossiersFermes)
{
    Ecrire(travail_ / "ferme" / "f", "x");
    Ecrire(travail_ / "opaque" / "f", "x");
    fs::permissions(racine_, fs::perms(0755));
    fs::permissions(travail_ / "ferme", fs::perms(0));
    fs::permissions(travail_ / "opaque", fs::perms(0444));  // may be listed, its entries not looked at
    Parcours parcours('t');
    EXPECT_TRUE(SansPrivileges([&] {
        const bool opaque = parcours.Entrer("opaque");
        const EntreeDossier entree = Entrees(parcours).at("f");
        const bool muet = entree.ordinaire && !parcours.Ouvrir(entree).Ouvert();
        parcours.Remonter();
        return opaque && muet && !parcours.Entrer("ferme") && Entrees(parcours).size() == 2;
    }));
    fs::permissions(travail_ / "ferme", fs::perms(0755));
    fs::permissions(travail_ / "opaque", fs::perms(0755));
}

TEST_F(ParcoursDossier, ResteSurSonVolume)
{
    DonnerLettre('r', "/");
    Parcours parcours('r');
    const auto entrees = Entrees(parcours);
    ASSERT_TRUE(entrees.contains("proc"));
    EXPECT_TRUE(entrees.at("proc").attributs & AttributDossier);
    EXPECT_FALSE(parcours.Entrer("proc"));
    EXPECT_TRUE(parcours.Entrer("usr"));
}
