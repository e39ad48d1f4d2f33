#include "browser/ChargerArbre.h"
#include "browser/CommandesBase.h"
#include "browser/LectureListeFichiers.h"
#include "catalogue/Cles.h"
#include "extraction/bsDrive.h"
#include "outils/LignesTest.h"
#include "platform/Lecteurs.h"
#include "store/Base.h"
#include "store/CycleBase.h"

namespace fs = std::filesystem;

namespace {

class Choix : public ChoixLecteur {
public:
    char Choisir(const MediaDemande& media) override
    {
        demandes.push_back(media);
        return lettre;
    }
    char lettre = 0;
    std::vector<MediaDemande> demandes;
};

}  // namespace

class TestOuvrir : public EnvironnementBase {
protected:
    TestOuvrir()
    {
        Ecrire(disque_ / "sous\\dossier" / "l'été;#.txt", "contenu");
        DonnerLettre('q', disque_.string());
    }
    EntreeCataloguee Entree(int64_t media) { return {std::to_string(media), {"sous\\dossier", "l'été;#.txt"}}; }
    // A media as an extraction of drive q writes it.
    static MediaTest MediaDe(const std::string& unite, const std::string& disque)
    {
        bsDrive lecteur;
        lecteur.GetInfo("Q");
        const InfosLecteur infos = AfficherInfo(lecteur);
        MediaTest media{"Média", "#a"};
        media.unite = unite;
        media.disque = disque;
        media.serie = infos.serie;
        media.total = infos.total;
        media.libre = infos.libre;
        return media;
    }

    fs::path disque_ = travail_ / "disque";
    fs::path fichier_ = disque_ / "sous\\dossier" / "l'été;#.txt";
    Choix choix_;
};

TEST_F(TestOuvrir, TrouveSansDemander)
{
    for (const auto& [unite, disque] : {std::pair{"Q", ""}, {"q", ""}, {"Z", "Q"}}) {
        SCOPED_TRACE(unite);
        const int64_t media = AjouterMediaTest(MediaDe(unite, disque));
        EXPECT_EQ(LocaliserEntree(Entree(media), false, dialogues_, choix_), fichier_.string());
        EXPECT_EQ(LocaliserEntree(Entree(media), true, dialogues_, choix_), fichier_.parent_path().string());
    }
    EXPECT_TRUE(dialogues_.dites.empty());
    EXPECT_TRUE(choix_.demandes.empty());
}

TEST_F(TestOuvrir, DemandeLeLecteurDUnMediaAbsent)
{
    MediaTest absent = MediaDe("Z", "");
    absent.serie = "1234-ABCD";
    const int64_t media = AjouterMediaTest(absent);
    EXPECT_EQ(LocaliserEntree(Entree(media), false, dialogues_, choix_), "") << "given up";
    EXPECT_EQ(dialogues_.dites, (std::vector<std::string>{"Le N de série du média ne correspond pas ...",
                                                          "La capicité du média ne correspond pas ..."}));
    ASSERT_EQ(choix_.demandes.size(), 1U);
    EXPECT_EQ(choix_.demandes[0].identifiant, "ID1");
    EXPECT_EQ(choix_.demandes[0].invite, " L'unité actuelle : Z:");

    choix_.lettre = 'Q';
    EXPECT_EQ(LocaliserEntree(Entree(media), false, dialogues_, choix_), fichier_.string());
}

TEST_F(TestOuvrir, RienNEstOuvertQuandRienNExiste)
{
    const int64_t media = AjouterMediaTest(MediaDe("Q", ""));
    choix_.lettre = 'Q';
    const EntreeCataloguee cas[] = {{}, {"99", {"x"}}, {std::to_string(media), {"disparu"}}, {"1 or 1=1", {"x"}}};
    for (const EntreeCataloguee& entree : cas)
        EXPECT_FALSE(OuvrirEntree(entree, false, dialogues_, choix_)) << entree.catalogue;
    const int64_t sansLettre = AjouterMediaTest({"Sans", "#a"});
    choix_.lettre = 0;
    EXPECT_FALSE(OuvrirEntree(Entree(sansLettre), false, dialogues_, choix_));
}

TEST_F(TestOuvrir, SuitLesNomsDuDisqueEtNonLesAlias)
{
    const int64_t media = AjouterMediaTest(MediaDe("Q", ""));
    AjouterLignes(media, {{"000000000", "000000001", "Q:", "D"},
                          {"000000001", "000000002", "sous\\dossier", "D", " ", " ", " ", " ", "renommé"},
                          {"000000002", "0", "l'été;#.txt", "a", " ", " ", " ", " ", "joli nom"}});
    ArbreCatalogue arbre;
    ChargerArbre(arbre);
    const int32_t dossier = arbre.Ajouter(arbre.Selection(), CleRepertoire(media, "000000002"), "renommé");
    arbre.Selectionner(dossier);
    ListeFichiers liste;
    IconesExtensions icones;
    LectureListeFichiers(arbre, liste, icones);
    ASSERT_EQ(liste.Nombre(), 1);
    EXPECT_EQ(liste[0].cellules[ColNom], "joli nom");
    EXPECT_EQ(LocaliserEntree(EntreeItem(arbre, liste[0]), false, dialogues_, choix_), fichier_.string());
    EXPECT_EQ(LocaliserEntree(EntreeNoeud(arbre), false, dialogues_, choix_), fichier_.parent_path().string());
}

using TestCommandes = EnvironnementBase;

TEST_F(TestCommandes, CreeDupliqueEtSupprime)
{
    AjouterMediaTest({"Média", "#a"});
    const std::string premier = BaseCourante(), second = (travail_ / "second.vlr").string();
    DupliquerCatalogue(premier, dialogues_);
    EXPECT_EQ(dialogues_.dites.back(), "Veuillez saisir un autre nom différent que celui du catalogue courant !");
    DupliquerCatalogue(second, dialogues_);
    EXPECT_EQ(BaseCourante(), premier);

    dialogues_.oui = false;
    EXPECT_FALSE(CreerCatalogue(second, dialogues_));
    EXPECT_FALSE(SupprimerCatalogue(dialogues_));
    ASSERT_TRUE(OuvrirCatalogue(second));
    ArbreCatalogue arbre;
    ChargerArbre(arbre);
    EXPECT_EQ(arbre.Nombre(), 2) << "the copy holds the media";

    dialogues_.oui = true;
    ASSERT_TRUE(SupprimerCatalogue(dialogues_));
    EXPECT_EQ(dialogues_.dites.back(), "Êtes-vous sur de vouloir supprimer la base actuelle : " + second + " ?");
    EXPECT_FALSE(fs::exists(second));
    EXPECT_EQ(BaseCourante(), CheminBaseParDefaut());
    ASSERT_TRUE(ChargerArbre(arbre));
    EXPECT_EQ(arbre.Nombre(), 1);
    EXPECT_TRUE(CreerCatalogue(premier, dialogues_)) << "over an existing file, after the question";
    FixerArbreARecharger(true);
    ChargerArbre(arbre);
    EXPECT_EQ(arbre.Nombre(), 1);
}
