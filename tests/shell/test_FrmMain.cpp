#include "shell/FrmMain.h"

#include "extraction/FrmSemiAuto.h"
#include "outils/Environnement.h"
#include "outils/Fenetres.h"
#include "outils/Reponses.h"
#include "platform/OperationsFichiers.h"
#include "shell/FrmExit.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

class Depart : public Environnement {
protected:
    Depart()
    {
        reponse_.oui = false;
        Ouvrir();
    }

    void Ouvrir()
    {
        fenetre_ = std::make_unique<FrmMain>(reponse_, [this](FrmMain&) {
            auto fenetre = std::make_unique<QWidget>();
            vue_ = fenetre.get();
            return FrmMain::Vue{std::move(fenetre), [this](FrmExit&) { ++chargements_; }};
        });
        fenetre_->terminer = [this] { ++fins_; };
        fenetre_->show();
    }

    QToolButton* Bouton(const char* nom) { return Enfant<QToolButton>(*fenetre_, nom); }
    std::string Commentaire() { return Enfant<QLabel>(*fenetre_, "Commentaire")->text().toStdString(); }

    Reponses reponse_;
    std::unique_ptr<FrmMain> fenetre_;
    QWidget* vue_ = nullptr;
    int chargements_ = 0, fins_ = 0;
};

constexpr const char* Repos = "Cliquer sur un des deux boutons ci dessus pour accéder au logiciel";
constexpr const char* Extraire = "Extraire les informations du CD-ROM";
constexpr const char* Visualiser = "Visualiser et rechercher les informations contenues dans un CD-ROM";

}  // namespace

TEST_F(Depart, CommentsOnHoverAndFocus)
{
    const auto envoyer = [&](const char* nom, QEvent&& evenement) { QApplication::sendEvent(Bouton(nom), &evenement); };
    const QPointF la(5, 5);
    EXPECT_EQ(Commentaire(), Repos);
    envoyer("Visualiser", QEnterEvent(la, la, la));
    EXPECT_EQ(Commentaire(), Visualiser);
    envoyer("Extraire", QFocusEvent(QEvent::FocusIn, Qt::TabFocusReason));
    EXPECT_EQ(Commentaire(), Visualiser) << "the pointer goes before the keyboard";
    envoyer("Visualiser", QEvent(QEvent::Leave));
    EXPECT_EQ(Commentaire(), Extraire);
    envoyer("Extraire", QFocusEvent(QEvent::FocusOut));
    EXPECT_EQ(Commentaire(), Repos);
    // The window comes to the front, the pointer passes over a button, a key is pressed.
    envoyer("Extraire", QFocusEvent(QEvent::FocusIn, Qt::ActiveWindowFocusReason));
    EXPECT_EQ(Commentaire(), Repos);
    envoyer("Extraire", QEnterEvent(la, la, la));
    envoyer("Extraire", QEvent(QEvent::Leave));
    EXPECT_EQ(Commentaire(), Repos);
    envoyer("Extraire", QKeyEvent(QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier));
    EXPECT_EQ(Commentaire(), Extraire);
}

TEST_F(Depart, PlaceIsKeptUnlessOutsideTheScreens)
{
    const QRect ecran = QGuiApplication::primaryScreen()->geometry();
    const QPoint centre((ecran.width() - fenetre_->width()) / 2, (ecran.height() - fenetre_->height()) / 2);
    EXPECT_EQ(fenetre_->pos(), centre);
    for (const auto& [gauche, haut, place] : {std::tuple{"150", "300", QPoint(10, 20)},
                                              {"150000", "-15", centre},
                                              {"1e300", "rien", QPoint(centre.x(), 0)}}) {
        SaveSetting(SectionSettings, "LeftMain", gauche);
        SaveSetting(SectionSettings, "TopMain", haut);
        Ouvrir();
        EXPECT_EQ(fenetre_->pos(), place) << gauche;
    }
    fenetre_->move(30, 40);
    fenetre_->close();
    EXPECT_EQ(GetSetting(SectionSettings, "LeftMain", ""), "450");
    EXPECT_EQ(GetSetting(SectionSettings, "TopMain", ""), "600");
}

TEST_F(Depart, ExitAsksCompactsAndCleansUp)
{
    Ecrire(CheminIconeTemporaire(), "image");
    EXPECT_FALSE(fenetre_->close());
    EXPECT_TRUE(fenetre_->isVisible());
    EXPECT_TRUE(FichierExiste(CheminIconeTemporaire()));
    EXPECT_EQ(fins_, 0);
    reponse_.oui = true;
    EXPECT_TRUE(fenetre_->close());
    EXPECT_EQ(reponse_.dites, std::vector<std::string>(2, "Voulez-vous vraiment quitter Velourne ?"));
    EXPECT_FALSE(FichierExiste(CheminIconeTemporaire()));
    EXPECT_TRUE(FichierExiste(BaseCourante()));
    EXPECT_EQ(fins_, 1);
}

TEST_F(Depart, GoesToTheWizardAndTheBrowserAndBack)
{
    Bouton("Extraire")->click();
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_EQ(fenetre_->FormeCourante(), "FrmSemiAuto");
    fenetre_->Assistant()->close();
    EXPECT_EQ(fenetre_->FormeCourante(), "FrmMain");
    EXPECT_TRUE(reponse_.dites.empty());

    Bouton("Visualiser")->click();
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_EQ(fenetre_->FormeCourante(), "FrmView");
    fenetre_->AjouterMedias();
    EXPECT_FALSE(vue_->isVisible());
    fenetre_->Assistant()->close();
    EXPECT_TRUE(vue_->isVisible()) << "the wizard goes back to where it came from";
    EXPECT_EQ(chargements_, 2);
    EXPECT_TRUE(fenetre_->FermerVue());
    EXPECT_TRUE(fenetre_->isVisible());
}

TEST_F(Depart, BrowserOpenedFromTheWizardEndsTheProgram)
{
    Bouton("Extraire")->click();
    fenetre_->Assistant()->setGeometry(50, 60, 720, 600);
    Enfant<QAbstractButton>(*fenetre_->Assistant(), "Bouton")->click();
    EXPECT_EQ(vue_->geometry(), QRect(50, 60, 720, 600));
    EXPECT_FALSE(fenetre_->Assistant()->isVisible());
    EXPECT_FALSE(fenetre_->FermerVue());
    reponse_.oui = true;
    EXPECT_TRUE(fenetre_->FermerVue());
    EXPECT_EQ(fins_, 1);
}
