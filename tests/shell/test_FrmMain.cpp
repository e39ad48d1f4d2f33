#include "shell/FrmMain.h"

#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QScreen>
#include <QToolButton>

#include "Environnement.h"
#include "Fenetres.h"
#include "extraction/FrmSemiAuto.h"
#include "platform/Fichiers.h"
#include "shell/FrmExit.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

class Reponse : public Dialogues {
public:
    bool oui = false;
    std::vector<std::string> dites;
    void Informer(const std::string& texte) override { dites.push_back(texte); }
    bool Demander(const std::string& question, const std::string&) override
    {
        dites.push_back(question);
        return oui;
    }
};

class Depart : public Environnement {
protected:
    Depart() { Ouvrir(); }

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

    Reponse reponse_;
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
    Bouton("Extraire")->setFocus();
    Bouton("Extraire")->clearFocus();
    const auto envoyer = [&](const char* nom, QEvent&& evenement) { QApplication::sendEvent(Bouton(nom), &evenement); };
    const QPointF la(5, 5);
    EXPECT_EQ(Commentaire(), Repos);
    envoyer("Visualiser", QEnterEvent(la, la, la));
    EXPECT_EQ(Commentaire(), Visualiser);
    envoyer("Extraire", QFocusEvent(QEvent::FocusIn));
    EXPECT_EQ(Commentaire(), Visualiser) << "the pointer goes before the keyboard";
    envoyer("Visualiser", QEvent(QEvent::Leave));
    EXPECT_EQ(Commentaire(), Extraire);
    envoyer("Extraire", QFocusEvent(QEvent::FocusOut));
    EXPECT_EQ(Commentaire(), Repos);
}

TEST_F(Depart, PlaceIsKeptUnlessOutsideTheScreens)
{
    const QRect ecran = QGuiApplication::primaryScreen()->geometry();
    const QPoint centre((ecran.width() - fenetre_->width()) / 2, (ecran.height() - fenetre_->height()) / 2);
    EXPECT_EQ(fenetre_->pos(), centre);
    const struct {
        const char *gauche, *haut;
        QPoint place;
    } cas[] = {
        {"150", "300", {10, 20}},
        {"150000", "300", {centre.x(), 20}},
        {"150", "-15", {10, centre.y()}},
        {"1e300", "rien", {centre.x(), 0}},
    };
    for (const auto& [gauche, haut, place] : cas) {
        SaveSetting(SectionSettings, "LeftMain", gauche);
        SaveSetting(SectionSettings, "TopMain", haut);
        Ouvrir();
        EXPECT_EQ(fenetre_->pos().x(), place.x()) << gauche;
        EXPECT_EQ(fenetre_->pos().y(), place.y()) << haut;
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

TEST_F(Depart, GoesToTheWizardAndBack)
{
    Bouton("Extraire")->click();
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_EQ(fenetre_->FormeCourante(), "FrmSemiAuto");
    fenetre_->Assistant()->close();
    EXPECT_TRUE(fenetre_->isVisible());
    EXPECT_EQ(fenetre_->FormeCourante(), "FrmMain");
    EXPECT_TRUE(reponse_.dites.empty());
}

TEST_F(Depart, GoesToTheBrowserAndBack)
{
    Bouton("Visualiser")->click();
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_TRUE(vue_->isVisible());
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
