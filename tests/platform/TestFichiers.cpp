#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <thread>

#include "Environnement.h"
#include "platform/Bureau.h"
#include "platform/Ceder.h"
#include "platform/Chemins.h"
#include "platform/Fichiers.h"
#include "platform/Lecteurs.h"
#include "platform/TypesSysteme.h"

namespace fs = std::filesystem;

namespace {
class FichiersPropres : public Environnement {
protected:
    std::string Chemin(const char* nom) const { return (travail_ / nom).string(); }
    long Nombre() const { return std::distance(fs::directory_iterator(travail_), fs::directory_iterator()); }
};

mode_t Mode(const std::string& chemin)
{
    struct stat etat {};
    return stat(chemin.c_str(), &etat) == 0 ? etat.st_mode & 07777 : 0;
}
}  // namespace

TEST_F(FichiersPropres, DisquePlein)
{
    const std::string grand(3 << 20, 'g');
    Ecrire(Chemin("source"), grand);
    Ecrire(Chemin("cible"), "ancien");
    const pid_t enfant = fork();
    if (enfant == 0) {
        const rlimit limite{1 << 20, 1 << 20};
        signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limite);
        const bool copie = CopierFichier(Chemin("source"), Chemin("cible"));
        const bool ecrit = EcrireFichier(Chemin("nouveau"), grand);
        _exit(copie || ecrit ? 1 : 0);
    }
    int etat = -1;
    waitpid(enfant, &etat, 0);
    EXPECT_EQ(etat, 0);
    EXPECT_EQ(Contenu(Chemin("cible")), "ancien");
    EXPECT_EQ(Nombre(), 2);
}

TEST_F(FichiersPropres, RemplacementEntier)
{
    Ecrire(Chemin("source"), std::string("a\0b", 3));
    Ecrire(Chemin("cible"), "ancien et plus long");
    chmod(Chemin("cible").c_str(), 0640);
    fs::create_symlink("cible", Chemin("lien"));
    ASSERT_TRUE(CopierFichier(Chemin("source"), Chemin("lien")));
    EXPECT_TRUE(fs::is_symlink(Chemin("lien")));
    EXPECT_EQ(Contenu(Chemin("cible")), std::string("a\0b", 3));
    EXPECT_EQ(Mode(Chemin("cible")), 0640U);

    EXPECT_TRUE(EcrireFichier(Chemin("cible"), "secret", true));
    EXPECT_EQ(Mode(Chemin("cible")), 0600U);
    const std::string nomLong(255, 'n');
    EXPECT_TRUE(EcrireFichier(Chemin(nomLong.c_str()), "x"));

    std::string octets = "intact";
    for (const char* nom : {"absent", "."}) {
        EXPECT_FALSE(CopierFichier(Chemin(nom), Chemin("cible")));
        EXPECT_FALSE(LireFichierEntier(Chemin(nom), octets));
        EXPECT_FALSE(EcrireFichier(Chemin(nom) + "/sous/x", ""));
    }
    EXPECT_EQ(octets, "intact");
    EXPECT_FALSE(EcrireFichier(travail_.string(), "un dossier"));
    EXPECT_EQ(Contenu(Chemin("cible")), "secret");
    EXPECT_EQ(Nombre(), 4);
}

TEST_F(FichiersPropres, VerrouExclusif)
{
    {
        const VerrouFichier premier(Chemin("verrou"), false);
        EXPECT_TRUE(premier.Pris());
        EXPECT_FALSE(VerrouFichier(Chemin("verrou"), false).Pris());
    }
    EXPECT_TRUE(VerrouFichier(Chemin("verrou"), true).Pris());
}

TEST_F(FichiersPropres, CheminsDesDeuxEcritures)
{
    DonnerLettre('t', travail_.string());
    Ecrire(travail_ / "été" / "utf8", "");
    Ecrire(travail_ / "\xE9t\xE9" / "ansi", "");
    fs::create_directory_symlink("été", travail_ / "lien");
    EXPECT_EQ(CheminReel("t:\\été\\utf8"), (travail_ / "été/utf8").string());
    EXPECT_EQ(CheminReel("t:\\été\\ansi"), (travail_ / "\xE9t\xE9/ansi").string());
    EXPECT_EQ(CheminReel("t:\\"), travail_.string());
    EXPECT_EQ(CheminReel("t:\\lien"), (travail_ / "lien").string());
    for (const char* refus :
         {"t:\\été\\absent", "t:\\..", "t:\\été\\..\\lien", "t:\\lien\\utf8", "t:\\a/b", "q:\\", "?:\\x", "t"})
        EXPECT_EQ(CheminReel(refus), "") << refus;
}

TEST_F(FichiersPropres, OuvertureParLeBureau)
{
    Ecrire(travail_ / "bin/xdg-open", "#!/bin/sh\nprintf %s \"$#:$1\" > \"$TUBE\"\n");
    fs::permissions(travail_ / "bin/xdg-open", fs::perms::owner_all);
    ASSERT_EQ(mkfifo(Chemin("tube").c_str(), 0600), 0);
    setenv("TUBE", Chemin("tube").c_str(), 1);
    const std::string avant = getenv("PATH");
    const fs::path ici = fs::current_path();
    fs::current_path(travail_);
    setenv("PATH", Chemin("bin").c_str(), 1);
    EXPECT_TRUE(OuvrirAvecBureau("-x $(id) \xE9"));
    EXPECT_EQ(Contenu(Chemin("tube")), "1:" + Chemin("-x $(id) \xE9"));
    setenv("PATH", Chemin("vide").c_str(), 1);
    EXPECT_FALSE(OuvrirAvecBureau("/tmp"));
    setenv("PATH", avant.c_str(), 1);
    fs::current_path(ici);
}

TEST(Ceder, SeulLeFilDeLaFenetrePompe)
{
    int passages = 0;
    FixerPompe([&] {
        ++passages;
        Ceder();  // may be met again inside
    });
    std::thread([] { Ceder(); }).join();
    EXPECT_EQ(passages, 0);
    Ceder();
    EXPECT_EQ(passages, 1);
    FixerPompe(nullptr);
    Ceder();
    EXPECT_EQ(passages, 1);
}

TEST(TypesSysteme, ParExtensionSeulement)
{
    EXPECT_FALSE(NomTypeFichier("png").empty());
    EXPECT_EQ(NomIconeFichier("png"), "image-png");
    EXPECT_EQ(NomIconeGenerique("png"), "image-x-generic");
    for (const char* inconnue : {"", "zzqx", "a/b", "*"}) {
        EXPECT_EQ(NomTypeFichier(inconnue), "") << inconnue;
        EXPECT_EQ(NomIconeFichier(inconnue), "") << inconnue;
    }
}
