#include "shell/FrmMain.h"

#include <QTest>

#include "browser/frmView.h"
#include "extraction/FrmSemiAuto.h"
#include "fenetres/GardienEcran.h"
#include "fenetres/StyleVisible.h"
#include "listings/frmImpression.h"
#include "outils/Environnement.h"
#include "outils/Fenetres.h"
#include "outils/Reponses.h"
#include "platform/Lecteurs.h"
#include "platform/OperationsFichiers.h"
#include "search/frmRecherche.h"
#include "shell/Fenetres.h"
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
        fenetres_.reset();
        fenetres_ = std::make_unique<Fenetres>(reponse_);
        QObject::connect(fenetres_.get(), &Fenetres::terminee, fenetres_.get(), [this] { ++fins_; });
        fenetres_->Demarrer();
        fenetre_ = Fenetre<FrmMain>();
    }
    void Calme() { Calmer(fenetres_->Ouvrage()); }
    void Presser(const char* nom)
    {
        Bouton(nom)->click();
        Calme();
    }
    void Fermer(QWidget* fenetre)
    {
        fenetre->close();
        Calme();
    }

    QToolButton* Bouton(const char* nom) { return Enfant<QToolButton>(*fenetre_, nom); }
    std::string Commentaire() { return Enfant<QLabel>(*fenetre_, "Commentaire")->text().toStdString(); }

    Reponses reponse_;
    std::unique_ptr<Fenetres> fenetres_;
    FrmMain* fenetre_ = nullptr;
    int fins_ = 0;
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
    Fermer(fenetre_);
    EXPECT_TRUE(fenetre_->isVisible());
    EXPECT_TRUE(FichierExiste(CheminIconeTemporaire()));
    EXPECT_EQ(fins_, 0);
    reponse_.oui = true;
    Fermer(fenetre_);
    EXPECT_EQ(reponse_.dites, std::vector<std::string>(2, "Voulez-vous vraiment quitter Velourne ?"));
    EXPECT_FALSE(FichierExiste(CheminIconeTemporaire()));
    EXPECT_TRUE(FichierExiste(BaseCourante()));
    EXPECT_EQ(fins_, 1);
}

TEST_F(Depart, KeysOfTheStartWindow)
{
    for (const auto& [touche, modificateur] :
         {std::pair{Qt::Key_Escape, Qt::NoModifier}, {Qt::Key_Q, Qt::ControlModifier}}) {
        reponse_.dites.clear();
        QTest::keyClick(fenetre_, touche, modificateur);
        Calme();
        EXPECT_EQ(reponse_.dites, std::vector<std::string>(1, "Voulez-vous vraiment quitter Velourne ?")) << touche;
    }
    Bouton("Visualiser")->setFocus();
    QTest::keyClick(Bouton("Visualiser"), Qt::Key_Return);
    Calme();
    EXPECT_EQ(fenetres_->FormeCourante(), "FrmView");
}

// Whatever window is in front when the user quits, its place is kept; one that fills the screen keeps the places it had.
TEST_F(Depart, EveryWayOutKeepsThePlace)
{
    reponse_.oui = true;
    const auto vue = [this] {
        Presser("Visualiser");
        return Fenetre<frmView>();
    };
    const struct {
        const char* cle;
        std::function<QWidget*()> devant;
    } cas[] = {{"LeftMain", [this] { return fenetre_; }},
               {"LeftExtract",
                [this] {
                    Presser("Extraire");
                    return Fenetre<FrmSemiAuto>();
                }},
               {"MainLeft", vue},
               {"MainLeft",
                [&] {
                    emit vue()->rechercheVoulue();
                    return Fenetre<frmRecherche>();
                }},
               {"MainLeft", [&] {
                    emit vue()->impressionVoulue();
                    return Fenetre<frmImpression>();
                }}};
    int gauche = 20;
    for (const auto& [cle, devant] : cas) {
        for (const bool pleine : {false, true}) {
            Ouvrir();
            QWidget* fenetre = devant();
            ASSERT_TRUE(fenetre && fenetre->isVisible());
            const bool remplir = pleine && cle == std::string("MainLeft");
            fenetre->setWindowState(remplir ? Qt::WindowMaximized : Qt::WindowNoState);
            if (!remplir)
                fenetre->move(++gauche, 30);
            fins_ = 0;
            fenetre->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(fenetre));
            QTest::keyClick(fenetre, Qt::Key_Q, Qt::ControlModifier);
            Calme();
            EXPECT_EQ(fins_, 1);
            EXPECT_EQ(GetSetting(SectionSettings, cle, ""), std::to_string(gauche * 15)) << cle << pleine;
        }
    }
    EXPECT_EQ(GetSetting(SectionSettings, "MainState", ""), "2");
}

// Where a window stands and how large it is, on a screen of 800 x 800.
TEST_F(Depart, WindowsStayWithinTheScreen)
{
    GardienEcran gardien;
    QApplication::instance()->installEventFilter(&gardien);
    const QRect libre = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QRect& place : {QRect(700, 300, 300, 200), QRect(-90, 750, 300, 200), QRect(100, 100, 2000, 300),
                               QRect(0, 0, 3000, 3000), QRect(40, 50, 300, 200)}) {
        QWidget fenetre;
        fenetre.setGeometry(place);
        fenetre.show();
        EXPECT_TRUE(libre.contains(fenetre.geometry())) << place.x() << " " << place.width();
        if (libre.contains(place)) {
            EXPECT_EQ(fenetre.geometry(), place);
        }
    }
}

TEST_F(Depart, GoesToTheWizardAndTheBrowserAndBack)
{
    Presser("Extraire");
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_EQ(fenetres_->FormeCourante(), "FrmSemiAuto");
    Fermer(Fenetre<FrmSemiAuto>());
    EXPECT_EQ(fenetres_->FormeCourante(), "FrmMain");
    EXPECT_TRUE(reponse_.dites.empty());

    Presser("Visualiser");
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_EQ(fenetres_->FormeCourante(), "FrmView");
    auto* vue = Fenetre<frmView>();
    ASSERT_TRUE(vue->isVisible());
    emit vue->ajoutVoulu();
    EXPECT_FALSE(vue->isVisible());
    Fermer(Fenetre<FrmSemiAuto>());
    EXPECT_TRUE(vue->isVisible()) << "the wizard goes back to where it came from";

    Ecrire(travail_ / "lu" / "seul.txt", "");
    DonnerLettre('t', (travail_ / "lu").string());
    emit vue->ajoutVoulu('t');
    auto* assistant = Fenetre<FrmSemiAuto>();
    EXPECT_TRUE(Attendre([&] { return !assistant->EnConsultation(); }));
    const auto* contenu = Enfant<QListWidget>(*assistant, "Liste");
    ASSERT_EQ(contenu->count(), 1) << "on the drive that was asked for";
    EXPECT_EQ(contenu->item(0)->text(), "seul.txt");
    Fermer(assistant);
    Fermer(vue);
    EXPECT_TRUE(fenetre_->isVisible());
    EXPECT_FALSE(vue->isVisible());
}

TEST_F(Depart, BrowserOpenedFromTheWizardEndsTheProgram)
{
    Presser("Extraire");
    auto* assistant = Fenetre<FrmSemiAuto>();
    assistant->setGeometry(50, 60, 720, 600);
    Enfant<QAbstractButton>(*assistant, "Bouton")->click();
    Calme();
    auto* vue = Fenetre<frmView>();
    EXPECT_EQ(vue->geometry(), QRect(50, 60, 720, 600));
    EXPECT_FALSE(assistant->isVisible());
    Fermer(vue);
    EXPECT_TRUE(vue->isVisible());
    reponse_.oui = true;
    vue->resize(800, 590);
    emit vue->sortieVoulue();
    Calme();
    EXPECT_EQ(fins_, 1);
    EXPECT_EQ(GetSetting(SectionSettings, "MainWidth", ""), "12000") << "kept by every way out";
}

TEST_F(Depart, WhatIsTypedInTheWizardWaitsForALookAtTheCatalogue)
{
    Presser("Extraire");
    auto* assistant = Fenetre<FrmSemiAuto>();
    const auto identifiant = [] { return Enfant<QLineEdit>(*Fenetre<FrmSemiAuto>(), "Identifiant"); };
    identifiant()->setText("CD 1");
    Enfant<QAbstractButton>(*assistant, "Bouton")->click();
    Calme();
    FixerBaseCourante((travail_ / "autre.vlr").string());
    Ecrire(BaseCourante(), "");
    emit Fenetre<frmView>()->ajoutVoulu();
    EXPECT_TRUE(assistant->isVisible());
    EXPECT_EQ(identifiant()->text(), "CD 1");
    EXPECT_EQ(Enfant<QLabel>(*assistant, "Catalogue")->text().toStdString(), BaseCourante());
    Fermer(assistant);
    emit Fenetre<frmView>()->ajoutVoulu();
    EXPECT_EQ(identifiant()->text(), "") << "closed, it begins anew";
}

// What is not ticked stands out from a dark ground as it does from a light one, which looks as ever.
TEST(StyleVisible, CasesVides)
{
    const auto dessiner = [](const QStyle& style, QStyle::PrimitiveElement element, const QColor& fond, bool active) {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(fond);
        QPainter peintre(&image);
        QStyleOptionButton option;
        option.rect = image.rect();
        option.palette = QPalette(fond);
        option.state = QStyle::State_Off | (active ? QStyle::State_Enabled : QStyle::State_None);
        style.drawPrimitive(element, &option, &peintre, nullptr);
        peintre.end();
        return image;
    };
    const std::unique_ptr<QStyle> simple(QStyleFactory::create("fusion"));
    const StyleVisible visible(QStyleFactory::create("fusion"));
    const QColor clair(239, 239, 239), sombre(42, 46, 50);
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
        EXPECT_EQ(dessiner(visible, element, clair, true), dessiner(*simple, element, clair, true));
        const auto contour = [&](bool active) {
            int plusClair = 0;
            const QImage image = dessiner(visible, element, sombre, active);
            for (int x = 0; x < image.width(); ++x)
                plusClair = std::max(plusClair, qGray(image.pixel(x, image.height() / 2)));
            return plusClair;
        };
        EXPECT_GT(contour(true), qGray(sombre.rgb()) + 80);
        EXPECT_GT(contour(true), contour(false)) << "what can't be ticked is fainter";
    }
    const StyleVisible autre(QStyleFactory::create("windows"));
    const std::unique_ptr<QStyle> windows(QStyleFactory::create("windows"));
    EXPECT_EQ(dessiner(autre, QStyle::PE_IndicatorCheckBox, sombre, true),
              dessiner(*windows, QStyle::PE_IndicatorCheckBox, sombre, true));
}
