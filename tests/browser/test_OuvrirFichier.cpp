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
    std::string Localiser(const EntreeCataloguee& entree, bool dossier)
    {
        std::string trouve = "?";
        LocaliserEntree(entree, dossier, lecteurs_, dialogues_, choix_,
                        [&](const std::string& chemin) { trouve = chemin; });
        lecteurs_.Attendre();
        return trouve;
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
    Consultation lecteurs_{{}};
};

TEST_F(TestOuvrir, TrouveSansDemander)
{
    for (const auto& [unite, disque] : {std::pair{"Q", ""}, {"q", ""}, {"Z", "Q"}}) {
        SCOPED_TRACE(unite);
        const int64_t media = AjouterMediaTest(MediaDe(unite, disque));
        EXPECT_EQ(Localiser(Entree(media), false), fichier_.string());
        EXPECT_EQ(Localiser(Entree(media), true), fichier_.parent_path().string());
    }
    EXPECT_TRUE(dialogues_.dites.empty());
    EXPECT_TRUE(choix_.demandes.empty());
}

TEST_F(TestOuvrir, DemandeLeLecteurDUnMediaAbsent)
{
    MediaTest absent = MediaDe("Z", "");
    absent.serie = "1234-ABCD";
    const int64_t media = AjouterMediaTest(absent);
    EXPECT_EQ(Localiser(Entree(media), false), "") << "given up";
    EXPECT_EQ(dialogues_.dites, (std::vector<std::string>{"Le N de série du média ne correspond pas ...",
                                                          "La capicité du média ne correspond pas ..."}));
    ASSERT_EQ(choix_.demandes.size(), 1U);
    EXPECT_EQ(choix_.demandes[0].identifiant, "ID1");
    EXPECT_EQ(choix_.demandes[0].invite, " L'unité actuelle : Z:");

    choix_.lettre = 'Q';
    EXPECT_EQ(Localiser(Entree(media), false), fichier_.string());
}

TEST_F(TestOuvrir, RienNEstOuvertQuandRienNExiste)
{
    const int64_t media = AjouterMediaTest(MediaDe("Q", ""));
    choix_.lettre = 'Q';
    const EntreeCataloguee cas[] = {{}, {"99", {"x"}}, {std::to_string(media), {"disparu"}}, {"1 or 1=1", {"x"}}};
    for (const EntreeCataloguee& entree : cas)
        EXPECT_EQ(Localiser(entree, false), "") << entree.catalogue;
    const int64_t sansLettre = AjouterMediaTest({"Sans", "#a"});
    choix_.lettre = 0;
    EXPECT_EQ(Localiser(Entree(sansLettre), false), "");
}

TEST_F(TestOuvrir, SuitLesNomsDuDisqueEtNonLesAlias)
{
    const int64_t media = AjouterMediaTest(MediaDe("Q", ""));
    AjouterLignes(media, {{"000000000", "000000001", "Q:", "D"},
                          {"000000001", "000000002", "sous\\dossier", "D", " ", " ", " ", " ", "renommé"},
                          {"000000002", "0", "l'été;#.txt", "a", " ", " ", " ", " ", "joli nom"}});
    IconesExtensions icones;
    std::atomic<double> part;
    ArbreCatalogue arbre = ChargerArbre(icones, {}, {}, part).arbre;
    const int32_t dossier = arbre.Ajouter(arbre.Selection(), CleRepertoire(media, "000000002"), "renommé");
    arbre.Selectionner(dossier);
    const ListeFichiers liste = LectureListeFichiers(std::string(arbre.CleSelection()), icones, {}, {}, part).liste;
    ASSERT_EQ(liste.Nombre(), 1);
    EXPECT_EQ(liste[0].cellules[ColNom], "joli nom");
    EXPECT_EQ(Localiser(EntreeItem(arbre, liste[0]), false), fichier_.string());
    EXPECT_EQ(Localiser(EntreeNoeud(arbre), false), fichier_.parent_path().string());
}

class TestCommandes : public EnvironnementBase {
protected:
    static int32_t Noeuds()
    {
        IconesExtensions icones;
        std::atomic<double> part;
        return ChargerArbre(icones, {}, {}, part).arbre.Nombre();
    }
    template <typename Commande>
    auto Avec(const std::string& fichier, Commande commande)
    {
        dialogues_.fichier = fichier;
        return commande(dialogues_);
    }
};

TEST_F(TestCommandes, CreeDupliqueEtSupprime)
{
    AjouterMediaTest({"Média", "#a"});
    const std::string premier = BaseCourante(), second = (travail_ / "second.vlr").string();
    Avec(premier, DupliquerCatalogue);
    EXPECT_EQ(dialogues_.dites.back(), "Veuillez saisir un autre nom différent que celui du catalogue courant !");
    EXPECT_TRUE(dialogues_.demandes.back().confirmer);
    Avec(second, DupliquerCatalogue);
    EXPECT_EQ(BaseCourante(), premier);

    EXPECT_FALSE(Avec("", CreerCatalogue)) << "a dialog left changes nothing";
    EXPECT_FALSE(Avec("", OuvrirCatalogue));
    dialogues_.oui = false;
    EXPECT_FALSE(Avec(second, CreerCatalogue));
    EXPECT_FALSE(SupprimerCatalogue(dialogues_));
    ASSERT_TRUE(Avec(second, OuvrirCatalogue));
    EXPECT_EQ(Noeuds(), 2) << "the copy holds the media";

    dialogues_.oui = true;
    ASSERT_TRUE(SupprimerCatalogue(dialogues_));
    EXPECT_EQ(dialogues_.dites.back(), "Êtes-vous sur de vouloir supprimer la base actuelle : " + second + " ?");
    EXPECT_FALSE(fs::exists(second));
    EXPECT_EQ(BaseCourante(), CheminBaseParDefaut());
    EXPECT_EQ(Noeuds(), 1);
    EXPECT_TRUE(Avec(premier, CreerCatalogue)) << "over an existing file, after the question";
    EXPECT_EQ(Noeuds(), 1);
}
