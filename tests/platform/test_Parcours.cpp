#include <unistd.h>

#include <iterator>
#include <map>
#include <sstream>

#include "outils/Enfant.h"
#include "outils/Environnement.h"
#include "platform/Chemins.h"
#include "platform/Lecteurs.h"
#include "platform/Parcours.h"

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {
class ParcoursDossier : public Environnement {
protected:
    ParcoursDossier() { DonnerLettre('t', travail_.string()); }

    // A chain of directories, all of the same name, and a file at its end. Step by step: the whole path may be too
    // long.
    void CreerChaine(int niveaux, const std::string& nom) const
    {
        const fs::path ici = fs::current_path();
        fs::current_path(travail_);
        for (int niveau = 0; niveau < niveaux; ++niveau) {
            fs::create_directory(nom);
            fs::current_path(nom);
        }
        Ecrire("./fond.txt", "fond");
        fs::current_path(ici);
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

const auto ignorer = [](const EntreeDossier&) { return true; };
}  // namespace

TEST_F(ParcoursDossier, NomsDifficiles)
{
    std::map<std::string, std::string> noms = {
        {"\xE9t\xE9 \x80", "été €"}, {"\xED\xA0\x80", "í\xC2\xA0€"},  // a surrogate is no UTF-8
    };
    for (const std::string& nom :
         {"deux\nlignes"s, "barre\\inverse"s, "l'\"apostrophe\""s, "-rf"s, "été.txt"s, std::string(255, 'n')})
        noms[nom] = nom;
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

// Whatever order the volume keeps: capitals and small letters side by side, ties by their bytes, accents behind all
// plain letters. Asked again from within, each listing keeps its own.
TEST_F(ParcoursDossier, DansLOrdreDesNoms)
{
    std::istringstream voulu("00004 00006 00007 A a a.b B b1 B2 zoo.10 Zoo.9 _bas Éa éB \xE9t\xE9");
    const std::vector<std::string> ordre{std::istream_iterator<std::string>(voulu), {}};
    for (size_t rang = ordre.size(); rang-- > 0;)
        Ecrire(travail_ / ordre[rang], "");
    Executer("for i in $(seq 3000); do : > B2-$i; done; mkdir B2-0; touch B2-0/z B2-0/y");
    std::vector<std::string> noms, dedans;
    Parcours parcours('t');
    parcours.Lister([&](const EntreeDossier& entree) {
        if (!entree.nom.starts_with("B2-"))
            noms.push_back(entree.nomReel);
        if (parcours.Entrer(entree.nomReel)) {
            parcours.Lister([&](const EntreeDossier& sous) { return dedans.push_back(sous.nom), true; });
            parcours.Remonter();
        }
        return true;
    });
    EXPECT_EQ(noms, ordre);
    EXPECT_EQ(dedans, (std::vector<std::string>{"y", "z"}));
}

TEST_F(ParcoursDossier, SeulsLesFichiersOrdinairesSOuvrent)
{
    Executer("printf abc > .lecture; chmod 400 .lecture; mkdir dossier; mkfifo tube");
    Executer("ln -s boucle boucle; ln -s dossier lien");

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
    };
    Parcours parcours('t');
    const auto entrees = Entrees(parcours);
    ASSERT_EQ(entrees.size(), attendus.size());
    const int64_t creation = entrees.at("tube").creation / 10'000'000 - 11'644'473'600;  // counted since 1601
    EXPECT_NEAR(static_cast<double>(creation), static_cast<double>(time(nullptr)), 60);
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
}

TEST_F(ParcoursDossier, CeQuiEstAuMoteurNeSOuvrePas)
{
    Executer("for nom in base.vlr base.vlr-journal autre-journal temp.db; do echo x > $nom; done; ln base.vlr double");
    Executer("echo x > ../programme/temp.db");
    const auto ouverts = [](char lettre) {
        std::string noms;
        Parcours parcours(lettre);
        for (const auto& [nom, entree] : Entrees(parcours))
            noms += parcours.Ouvrir(entree).Ouvert() ? nom + ' ' : "";
        return noms;
    };
    const std::string base = (travail_ / "base.vlr").string(), chemin = (travail_ / "double").string();
    DonnerLettre('u', programme_.string());
    {
        FichierReserve reserve, second;
        EXPECT_TRUE(reserve.Prendre(base));
        EXPECT_FALSE(second.Prendre(chemin));
        EXPECT_EQ(ouverts('t') + ouverts('u'), "autre-journal temp.db ");
        EXPECT_FALSE(Fichier(chemin).Ouvert());
    }
    EXPECT_EQ(ouverts('t') + ouverts('u'), "autre-journal base.vlr base.vlr-journal double temp.db ");
    EXPECT_TRUE(Fichier(chemin).Ouvert());
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
    for (int niveau = niveaux; niveau-- > 0;)
        parcours.Remonter();
    ASSERT_TRUE(Entrees(parcours).contains(nom));

    std::vector<std::string> noms(niveaux, nom);
    noms.emplace_back("fond.txt");
    EXPECT_EQ(Texte(Fichier(CheminReel('t', noms))), "fond");
}

TEST_F(ParcoursDossier, DossierDeplacePuisSupprimePendantLeParcours)
{
    CreerChaine(100, "d");
    Parcours parcours('t');
    for (int niveau = 0; niveau < 100; ++niveau)
        ASSERT_TRUE(parcours.Entrer("d"));
    fs::rename(travail_ / "d/d/d", travail_ / "ailleurs");
    for (int niveau = 0; niveau < 98; ++niveau)
        parcours.Remonter();
    EXPECT_TRUE(Entrees(parcours).empty());  // where "d" was taken away, not where it was put

    fs::remove_all(travail_ / "d");
    for (int niveau = 0; niveau < 2; ++niveau, parcours.Remonter())
        EXPECT_FALSE(parcours.Lister(ignorer) || parcours.Entrer("d")) << niveau;
    EXPECT_TRUE(Entrees(parcours).contains("ailleurs"));
    EXPECT_FALSE(Parcours('q').Lister(ignorer));
}

TEST_F(ParcoursDossier, DossiersFermes)
{
    // One may be listed, its entries not looked at.
    Executer("mkdir ferme opaque; touch ferme/f opaque/f; chmod 755 ..; chmod 0 ferme; chmod 444 opaque");
    Parcours parcours('t');
    EXPECT_TRUE(SansPrivileges([&] {
        const bool opaque = parcours.Entrer("opaque");
        const EntreeDossier entree = Entrees(parcours).at("f");
        const bool muet = entree.ordinaire && !parcours.Ouvrir(entree).Ouvert();
        parcours.Remonter();
        return opaque && muet && !parcours.Entrer("ferme") && Entrees(parcours).size() == 2;
    }));
    Executer("chmod 755 ferme opaque");
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
