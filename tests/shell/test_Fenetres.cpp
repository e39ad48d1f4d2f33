#include "shell/Fenetres.h"

#include "browser/frmView.h"
#include "extraction/FrmSemiAuto.h"
#include "extraction/RangeeOnglets.h"
#include "outils/Brut.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "platform/Lecteurs.h"
#include "search/frmRecherche.h"
#include "shell/FrmMain.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Transaction.h"

namespace {

// The whole program but for its entry point, on a base with enough rows for work to be met half way.
class Programme : public EnvironnementBase {
protected:
    Programme()
    {
        dialogues_.oui = false;
        std::vector<LigneTest> lignes = {{"000000000", "000000001", "D:", "D"}};
        std::string arbre = "#a";
        for (int i = 2; i < 3000; ++i) {
            const std::string code = CodeRepertoire(i);
            arbre += "; 1-000000001# 1-" + code + "#d" + std::to_string(i);
            lignes.push_back({"000000001", code, "d" + std::to_string(i), "D"});
        }
        for (int i = 0; i < 4000; ++i)
            lignes.push_back({"000000001", "0", "f" + std::to_string(i) + ".x" + std::to_string(i % 9), "a", " ", "F"});
        AjouterMediaTest({"Média", arbre});
        Base base = OpenDatabase(BaseCourante());
        Transaction transaction(base);
        AjouterLignes(1, lignes);
        transaction.Valider();
        base.Close();

        fermeur_.start(5);
        QObject::connect(&fermeur_, &QTimer::timeout, [] {
            if (QWidget* modale = QApplication::activeModalWidget())
                modale->close();
            else if (QWidget* menu = QApplication::activePopupWidget())
                menu->close();
        });
        fenetres_ = std::make_unique<Fenetres>(dialogues_);
        fenetres_->Demarrer();
        Enfant<QToolButton>(*Fenetre<FrmMain>(), "Visualiser")->click();
        Calme();
        emit Fenetre<frmView>()->rechercheVoulue();
        Calme();
        Fenetre<frmRecherche>()->close();
        Calme();
    }
    void Calme() { Calmer(fenetres_->Ouvrage()); }
    // All that can be triggered or pressed, in windows that are there; what asks for more is left at once.
    static void TireSurTout()
    {
        QList<QWidget*> fenetres;
        if (auto* vue = Fenetre<frmView>())
            fenetres.append(vue);
        if (auto* recherche = Fenetre<frmRecherche>())
            fenetres.append(recherche);
        for (QWidget* fenetre : fenetres) {
            for (QAction* action : fenetre->findChildren<QAction*>())
                action->trigger();
            for (auto* bouton : fenetre->findChildren<QAbstractButton*>())
                bouton->click();
            for (auto* tete : fenetre->findChildren<QHeaderView*>())
                emit tete->sectionClicked(1);
            for (auto* vue : fenetre->findChildren<QAbstractItemView*>())
                if (const QModelIndex index = vue->currentIndex(); index.isValid())
                    emit vue->doubleClicked(index);
        }
    }
    std::vector<std::string> Contenu()
    {
        return Brut(BaseCourante(),
                    "select (select count(*) || sum(Num) || group_concat(distinct attribut) from Liste) || "
                    "(select group_concat(Label || Flag || length(Tree)) from Catalogue) || (select Data from LE)");
    }

    QTimer fermeur_;
    std::unique_ptr<Fenetres> fenetres_;
};

}  // namespace

// Whatever is fired while each kind of work runs, nothing is lost and all is shown as it is in the end.
TEST_F(Programme, ToutesLesCommandesPendantChaqueTravail)
{
    auto* vue = Fenetre<frmView>();
    auto* arbre = Enfant<QTreeView>(*vue, "tvTreeView");
    auto* rapport = Enfant<QTreeView>(*vue, "lvRapport");
    emit arbre->clicked(arbre->model()->index(0, 0, arbre->model()->index(0, 0)));
    arbre->setCurrentIndex(arbre->model()->index(0, 0, arbre->model()->index(0, 0)));
    Calme();
    const std::vector<std::string> avant = Contenu();
    const std::string base = BaseCourante(), extensions = ListeExtensions();
    ASSERT_FALSE(extensions.empty());
    const int noeuds = arbre->model()->rowCount(arbre->model()->index(0, 0, arbre->model()->index(0, 0)));
    ASSERT_EQ(noeuds, 2998);

    const std::pair<const char*, std::function<void()>> travaux[] = {
        {"arbre",
         [&] {
             FixerArbreARecharger(true);
             vue->ChargerArbre();
         }},
        {"liste", [&] { arbre->setCurrentIndex(arbre->model()->index(0, 0)); }},
        {"tri", [&] { emit rapport->header()->sectionClicked(0); }},
        {"recherche",
         [&] {
             emit vue->rechercheVoulue();
             auto* recherche = Fenetre<frmRecherche>();
             Enfant<QLineEdit>(*recherche, "Saisie0")->setText("*1*");
             Enfant<QPushButton>(*recherche, "OK0")->click();
         }},
        {"course",
         [&] {
             // What a run learns stays when it is given up: this one meets no new extension.
             for (int i = 0; i < 200; ++i)
                 Ecrire(travail_ / "lu" / ("f" + std::to_string(i) + ".x1"), "");
             DonnerLettre('t', (travail_ / "lu").string());
             emit vue->ajoutVoulu();
             auto* assistant = Fenetre<FrmSemiAuto>();
             ASSERT_TRUE(Attendre([&] { return !assistant->EnConsultation(); }));
             for (auto* rangee : assistant->findChildren<RangeeOnglets*>())
                 if (rangee->Position('t') != RangeeOnglets::Aucun)
                     rangee->Onglet(rangee->Position('t'))->click();
             ASSERT_TRUE(Attendre([&] { return !assistant->EnConsultation(); }));
             Enfant<QLineEdit>(*assistant, "Identifiant")->setText("abandonné");
             Enfant<QLineEdit>(*assistant, "Label")->setText("abandonné");
             Calme();  // behind other work the run would begin later, and could not be given up yet
             Enfant<QPushButton>(*assistant, "OK")->click();
             dialogues_.oui = true;  // to the question whether to give it up
             Enfant<QPushButton>(*assistant, "OK")->click();
             dialogues_.oui = false;
         }},
    };
    for (const auto& [nom, lancer] : travaux) {
        SCOPED_TRACE(nom);
        lancer();
        TireSurTout();
        Calme();
        if (auto* assistant = Fenetre<FrmSemiAuto>()) {
            ASSERT_TRUE(Attendre([&] { return !assistant->EnCours(); }));
            assistant->close();
        }
        Calme();
        FixerArbreARecharger(true);
        vue->ChargerArbre();
        Calme();
        EXPECT_EQ(BaseCourante(), base);
        EXPECT_EQ(ListeExtensions(), extensions);
        EXPECT_EQ(Contenu(), avant);
        const QModelIndex media = arbre->model()->index(0, 0, arbre->model()->index(0, 0));
        EXPECT_EQ(arbre->model()->rowCount(media), noeuds);
        arbre->setCurrentIndex(arbre->model()->index(0, 0));
        Calme();
        arbre->setCurrentIndex(media);
        Calme();
        EXPECT_EQ(rapport->model()->rowCount(), 6998);
    }
}
