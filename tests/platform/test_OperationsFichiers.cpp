#include <cstdlib>
#include <thread>

#include "outils/Enfant.h"
#include "outils/Environnement.h"
#include "platform/Bureau.h"
#include "platform/Chemins.h"
#include "platform/Lecteurs.h"
#include "platform/OperationsFichiers.h"
#include "platform/TypesSysteme.h"

namespace fs = std::filesystem;

namespace {
class FichiersPropres : public Environnement {
protected:
    std::string Chemin(const char* nom) const { return (travail_ / nom).string(); }
    long Nombre() const { return std::distance(fs::directory_iterator(travail_), fs::directory_iterator()); }
};

unsigned Mode(const std::string& chemin)
{
    return static_cast<unsigned>(fs::status(chemin).permissions());
}
}  // namespace

TEST_F(FichiersPropres, DisquePlein)
{
    const std::string grand(3 << 20, 'g');
    Ecrire(Chemin("source"), grand);
    Ecrire(Chemin("cible"), "ancien");
    EXPECT_TRUE(DansUnEnfant([&] {
        LimiterDisque(1 << 20);
        return !CopierFichier(Chemin("source"), Chemin("cible")) && !EcrireFichier(Chemin("nouveau"), grand);
    }));
    EXPECT_EQ(Contenu(Chemin("cible")), "ancien");
    EXPECT_EQ(Nombre(), 2);
}

TEST_F(FichiersPropres, RemplacementEntier)
{
    Ecrire(Chemin("source"), std::string("a\0b", 3));
    Ecrire(Chemin("cible"), "ancien et plus long");
    Executer("chmod 640 cible; ln -s cible lien");
    ASSERT_TRUE(CopierFichier(Chemin("source"), Chemin("lien")));
    EXPECT_TRUE(fs::is_symlink(Chemin("lien")));
    EXPECT_EQ(Contenu(Chemin("cible")), std::string("a\0b", 3));
    EXPECT_EQ(Mode(Chemin("cible")), 0640U);

    EXPECT_TRUE(EcrireFichier(Chemin("cible"), "secret", true));
    EXPECT_EQ(Mode(Chemin("cible")), 0600U);
    EXPECT_TRUE(EcrireFichier(Chemin(std::string(255, 'n').c_str()), "x"));

    std::string octets = "intact";
    for (const char* nom : {"absent", "."}) {
        EXPECT_FALSE(CopierFichier(Chemin(nom), Chemin("cible")));
        EXPECT_FALSE(LireFichier(Chemin(nom), octets));
        EXPECT_FALSE(EcrireFichier(Chemin(nom) + "/sous/x", ""));
    }
    EXPECT_EQ(octets, "intact");
    EXPECT_FALSE(EcrireFichier(travail_.string(), "un dossier"));
    EXPECT_EQ(Contenu(Chemin("cible")), "secret");
    EXPECT_EQ(Nombre(), 4);
}

TEST_F(FichiersPropres, SeulsLesBrouillonsDesMortsPartent)
{
    pid_t mort = 0;
    EXPECT_FALSE(DansUnEnfant([&] {
        return EcrireFichier(
            Chemin("cible"), [](const Versement& verser) { return verser("x") && Mourir(); }, false);
    }));
    ASSERT_EQ(Nombre(), 1);
    const std::string brouillon = fs::directory_iterator(travail_)->path().string();
    ASSERT_EQ(sscanf(brouillon.substr(brouillon.rfind('/')).c_str(), "/.velourne-brouillon-%d-", &mort), 1);
    const std::string debut = ".velourne-brouillon-", numero = std::to_string(mort);
    for (const std::string& nom : {debut + std::to_string(getpid()) + "-1", debut + numero, debut + numero + "-1007x",
                                   debut + "-1-1", ".velourne-" + numero + "-1", "a" + debut + numero + "-1"})
        Ecrire(travail_ / nom, "à garder");
    fs::create_directory(Chemin((debut + numero + "-1007").c_str()));
    fs::create_symlink("cible", Chemin((debut + numero + "-1008").c_str()));
    NettoyerBrouillons(travail_.string());
    NettoyerBrouillons(Chemin("absent"));
    EXPECT_FALSE(FichierExiste(brouillon));
    EXPECT_EQ(Nombre(), 8);
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
    Executer("chmod 700 bin/xdg-open; mkfifo tube");
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

TEST(TypesSysteme, ParExtensionSeulement)
{
    EXPECT_FALSE(NomTypeFichier("png").empty());
    EXPECT_EQ(NomIconeFichier("png"), "image-png");
    EXPECT_EQ(NomIconeGenerique("png"), "image-x-generic");
    for (const char* inconnue : {"", "zzqx", "a/b", "*"})
        EXPECT_EQ(NomTypeFichier(inconnue) + NomIconeFichier(inconnue), "") << inconnue;
}
