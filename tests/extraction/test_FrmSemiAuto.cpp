#include "extraction/FrmSemiAuto.h"

#include <memory>

#include "extraction/FiltreFichiers.h"
#include "extraction/FrmGetDrive.h"
#include "extraction/FrmResultat.h"
#include "extraction/RangeeOnglets.h"
#include "fenetres/Etiquette.h"
#include "fenetres/TravailFenetre.h"
#include "outils/ExtractionTest.h"
#include "outils/Fenetres.h"
#include "platform/Lecteurs.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* Medias = "select * from Catalogue order by Num";

std::string Reglage(const char* cle)
{
    return GetSetting(SectionSettings, cle, "absent");
}

// The question about giving up is answered after `avant` has run; all others with yes.
class Questions : public Reponses {
public:
    std::function<bool()> avant;

    bool Demander(const std::string& question, const std::string& titre) override
    {
        Reponses::Demander(question, titre);
        return avant ? avant() : oui;
    }
};

class Assistant : public EnvironnementExtraction {
protected:
    Assistant()
    {
        Ecrire(disque_ / "lettre.txt", "bonjour");
        Ecrire(disque_ / "photos/été.jpg", "rien");
        Ouvrir();
    }

    void Ouvrir()
    {
        fenetre_ = std::make_unique<FrmSemiAuto>(questions_, travailleur_, FabriqueCourseCD());
        QObject::connect(fenetre_.get(), &FrmSemiAuto::fermetureVoulue, fenetre_.get(), [this] { ++fermetures_; });
        fenetre_->show();
        menu_ = Enfant<RangeeOnglets>(*fenetre_, "Menu");
        menuA_ = Enfant<RangeeOnglets>(*fenetre_, "MenuA");
        ok_ = Enfant<QPushButton>(*fenetre_, "OK");
        Consulter();
    }
    // The drives are asked beside the window.
    void Consulter()
    {
        ASSERT_TRUE(Attendre([&] { return !fenetre_->EnConsultation(); }));
    }

    // Presses the tab of the test's own folder.
    void ChoisirDisque()
    {
        RangeeOnglets* rangee = menu_->Position(lettre_) != RangeeOnglets::Aucun ? menu_ : menuA_;
        ASSERT_NE(rangee->Position(lettre_), RangeeOnglets::Aucun);
        rangee->Onglet(rangee->Position(lettre_))->click();
        Consulter();
    }

    void Saisir(const char* identifiant, const char* nom)
    {
        ChoisirDisque();
        Enfant<QLineEdit>(*fenetre_, "Identifiant")->setText(identifiant);
        Enfant<QLineEdit>(*fenetre_, "Label")->setText(nom);
    }

    void Presser(const char* boite, int touche)
    {
        QKeyEvent evenement(QEvent::KeyPress, touche, Qt::NoModifier);
        QApplication::sendEvent(Enfant<QLineEdit>(*fenetre_, boite), &evenement);
    }

    std::string TexteOK() const { return ok_->text().remove('&').toStdString(); }

    Questions questions_;
    QObject contexte_;
    Travail travailleur_{ReveilFenetre(&contexte_, [this] { travailleur_.Livrer(); })};
    std::unique_ptr<FrmSemiAuto> fenetre_;
    RangeeOnglets* menu_ = nullptr;
    RangeeOnglets* menuA_ = nullptr;
    QPushButton* ok_ = nullptr;
    int fermetures_ = 0;
};

// Closes the result window as the user does and keeps its lines.
void LireResultat(QTimer& minuterie, std::vector<std::string>& lignes)
{
    QObject::connect(&minuterie, &QTimer::timeout, [&] {
        auto* resultat = dynamic_cast<FrmResultat*>(QApplication::activeModalWidget());
        if (!resultat)
            return;
        for (const char* nom : {"Resultat0", "Resultat1", "Resultat2", "Resultat3"})
            lignes.push_back(Enfant<QLabel>(*resultat, nom)->text().toStdString());
        resultat->findChild<QPushButton*>()->click();
    });
    minuterie.start(10);
}

}  // namespace

// What is painted: dark ink on light for the chosen tab, white on dark for the others, in light and dark desktops.
TEST_F(Assistant, TabsAreReadableInAllColours)
{
    const auto extremes = [](QToolButton* onglet) {
        const QImage image = onglet->grab().toImage();
        int clair = 0, sombre = 255;
        for (int y = 3; y < image.height() - 3; ++y)
            for (int x = 3; x < image.width() - 3; ++x) {
                clair = std::max(clair, qGray(image.pixel(x, y)));
                sombre = std::min(sombre, qGray(image.pixel(x, y)));
            }
        return std::tuple(clair, sombre, qGray(image.pixel(image.width() / 2, 4)));
    };
    const QPalette avant = QApplication::palette();
    for (const QColor fond : {QColor(Qt::white), QColor(32, 32, 32)}) {
        QApplication::setPalette(QPalette(fond));
        Ouvrir();
        ASSERT_GE(menuA_->Nombre(), 2);
        menuA_->Onglet(0)->click();
        Consulter();
        for (const bool choisi : {true, false}) {
            const auto [clair, sombre, papier] = extremes(menuA_->Onglet(choisi ? 0 : 1));
            EXPECT_GT(clair, 200) << choisi;
            EXPECT_LT(sombre, 110) << choisi;
            EXPECT_EQ(papier > 200, choisi);
            EXPECT_EQ(menuA_->Onglet(choisi ? 0 : 1)->font().bold(), choisi);
        }
    }
    QApplication::setPalette(avant);
}

TEST_F(Assistant, TheButtonsTextFollowsThePointer)
{
    const QColor repos = ok_->palette().color(QPalette::ButtonText);
    const QPointF la(5, 5);
    QEnterEvent entree(la, la, la);
    QApplication::sendEvent(ok_, &entree);
    EXPECT_NE(ok_->palette().color(QPalette::ButtonText), repos);
    QEvent sortie(QEvent::Leave);
    QApplication::sendEvent(ok_, &sortie);
    EXPECT_EQ(ok_->palette().color(QPalette::ButtonText), repos);
}

TEST_F(Assistant, SaysThatTheBaseCanNotBeOpened)
{
    const auto ligne = [this] { return Enfant<Etiquette>(*fenetre_, "Ligne")->text().toStdString(); };
    Saisir("CD1", "Disque un");
    Ecrire(BaseCourante(), "pas une base");
    ok_->click();
    EXPECT_EQ(ligne(), "La base n'a pas pu être ouverte : le média n'a pas été ajouté au catalogue.");
    EXPECT_FALSE(fenetre_->EnCours());
    EXPECT_TRUE(questions_.dites.empty());
}

TEST_F(Assistant, TellsWhereADefaultBaseWithMediaHasGone)
{
    Inscrire("CD0", "Disque zéro");
    FixerBaseCourante((travail_ / "debranchee.vlr").string());
    Ouvrir();
    EXPECT_NE(Enfant<Etiquette>(*fenetre_, "Ligne")->text().indexOf("/defaut 2"), -1);
    EXPECT_EQ(Compter(Medias), 0);
}

TEST_F(Assistant, RemembersTheTab)
{
    ASSERT_GE(menuA_->Nombre(), 2);
    const int dernier = menuA_->Nombre() - 1;
    menuA_->Onglet(dernier)->click();
    EXPECT_EQ(Reglage("Drive"), "A" + std::to_string(dernier));
    menuA_->Onglet(dernier)->click();
    EXPECT_TRUE(menuA_->Onglet(dernier)->isChecked()) << "a second press releases nothing";

    menuA_->Onglet(0)->click();
    SaveSetting(SectionSettings, "Drive", "A" + std::to_string(dernier));
    Enfant<QPushButton>(*fenetre_, "Actualiser")->click();
    Consulter();
    EXPECT_EQ(menuA_->Choisi(), dernier);

    // No tab, one that has gone, and nonsense all fall to the default.
    for (const char* valeur : {"A99", "57", "-3", "x"}) {
        SaveSetting(SectionSettings, "Drive", valeur);
        Enfant<QPushButton>(*fenetre_, "Actualiser")->click();
        Consulter();
        EXPECT_EQ((menu_->Nombre() > 0 ? menu_ : menuA_)->Choisi(), 0) << valeur;
    }
}

TEST_F(Assistant, HidingTheDetailsGivesUpADriveNoLongerSeen)
{
    ChoisirDisque();
    auto* etapes = Enfant<QPushButton>(*fenetre_, "Etapes");
    EXPECT_EQ(etapes->text().remove('&'), " Cacher Détails ");
    etapes->click();
    Consulter();
    EXPECT_EQ(menuA_->Choisi(), RangeeOnglets::Aucun);
    EXPECT_EQ(ok_->isEnabled(), menu_->Nombre() > 0);
    EXPECT_EQ(Reglage("Methode"), " Montrer Détails ");

    Ouvrir();
    EXPECT_TRUE(Enfant<QWidget>(*fenetre_, "Details")->isHidden());
    Enfant<QPushButton>(*fenetre_, "Etapes")->click();
    Consulter();
    EXPECT_TRUE(ok_->isEnabled());
    EXPECT_EQ(Reglage("Methode"), " Cacher Détails ");
}

TEST_F(Assistant, CompressionTag)
{
    for (const auto& [avant, apres] : {std::pair{"absent", "1"}, {"0", "1"}, {"1", "0"}, {"2", "1"}, {"3", "0"}}) {
        if (avant != std::string("absent"))
            SaveSetting(SectionSettings, "Compression 3", avant);
        Ouvrir();
        auto* choix = Enfant<QCheckBox>(*fenetre_, "Compression3");
        EXPECT_EQ(choix->isChecked(), avant == std::string("1")) << avant;
        choix->click();
        EXPECT_EQ(Reglage("Compression 3"), apres) << avant;
        EXPECT_EQ(choix->isChecked(), apres == std::string("1")) << avant;
    }
}

TEST_F(Assistant, ReadsAMediaAndTellsWhatItFound)
{
    Saisir("CD 1", " ");
    Presser("Identifiant", Qt::Key_Return);
    EXPECT_EQ(questions_.dites, std::vector<std::string>{"Veuillez renseigner le nom du média !"});
    EXPECT_FALSE(fenetre_->EnCours());
    EXPECT_EQ(Compter(Medias), 0);

    Saisir("CD 1", "Vacances");
    QTimer minuterie;
    std::vector<std::string> lignes;
    LireResultat(minuterie, lignes);
    Presser("Label", Qt::Key_Return);
    EXPECT_EQ(TexteOK(), "Abandon");
    ASSERT_TRUE(Attendre([&] { return !fenetre_->EnCours(); }));

    EXPECT_EQ(lignes, (std::vector<std::string>{"1", "2", "0", "0"}));
    EXPECT_EQ(Lignes("select * from Catalogue where Flag = true order by Num", {"Identifiant", "Label"}),
              std::vector<std::string>{"CD 1|Vacances"});
    EXPECT_EQ(TexteOK(), "Recherche");
    EXPECT_TRUE(Enfant<QLineEdit>(*fenetre_, "Identifiant")->text().isEmpty());
    EXPECT_TRUE(ArbreARecharger());

    // The same again, refused: nothing changes, no run.
    questions_.oui = false;
    Saisir("CD 1", "Autre");
    ok_->click();
    EXPECT_FALSE(fenetre_->EnCours());
    EXPECT_EQ(Compter(Medias), 1);
}

TEST_F(Assistant, AbandonLeavesNoRow)
{
    Remplir(3000);
    Saisir("CD 1", "Vacances");
    questions_.oui = false;
    ok_->click();
    ok_->click();
    EXPECT_EQ(TexteOK(), "Abandon") << "on no the walk goes on";
    questions_.oui = true;
    ok_->click();
    ASSERT_TRUE(Attendre([&] { return !fenetre_->EnCours(); }));
    EXPECT_EQ(questions_.dites, std::vector<std::string>(2, "Voulez-vous réellement abandonner la recherche ?"));
    EXPECT_EQ(Compter(Medias) + Compter("select * from Liste order by Num"), 0);
    EXPECT_EQ(fermetures_, 0);
}

// The run may end while the user still thinks about the question.
TEST_F(Assistant, AbandonAnsweredAfterTheEnd)
{
    Saisir("CD 1", "Vacances");
    questions_.avant = [] { return Attendre(&ArbreARecharger); };
    ok_->click();
    ok_->click();
    ASSERT_TRUE(Attendre([&] { return !fenetre_->EnCours(); }));
    EXPECT_EQ(Compter(Medias) + Compter("select * from Liste order by Num"), 0);
}

TEST_F(Assistant, ClosingDuringARunAsksAndWaits)
{
    Remplir(500);
    Saisir("CD 1", "Vacances");
    ok_->click();
    questions_.oui = false;
    EXPECT_FALSE(fenetre_->close());
    EXPECT_TRUE(fenetre_->EnCours());
    questions_.oui = true;
    fenetre_->close();
    ASSERT_TRUE(Attendre([&] { return fermetures_ == 1; }));
    EXPECT_EQ(Compter(Medias), 0);
    EXPECT_NE(Reglage("TopExtract"), "absent");

    // Destroyed during a run, it leaves no thread behind.
    Ouvrir();
    Saisir("CD 1", "Vacances");
    ok_->click();
    fenetre_.reset();
    EXPECT_EQ(Compter(Medias), 0);
}

TEST_F(Assistant, FilterNarrowsTheList)
{
    EXPECT_TRUE(CorrespondFiltre("*.*", "LISEZMOI"));
    EXPECT_TRUE(CorrespondFiltre("*.gif;*.jpg", "Été.JPG"));
    EXPECT_FALSE(CorrespondFiltre("*.gif;*.jpg", "jpg"));
    ChoisirDisque();
    auto* liste = Enfant<QListWidget>(*fenetre_, "Liste");
    ASSERT_EQ(liste->count(), 2);
    EXPECT_EQ(liste->item(1)->text(), "photos\\");
}

TEST_F(Assistant, DriveChooserKeepsTheLetter)
{
    Inscrire("CD 1", "Vacances");
    // A stranger's base names what is decoded: pictures of icon files only.
    const std::string dessin = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    FrmGetDrive choix({"Vacances", "CD 1", dessin, " L'unité actuelle : D:"});
    for (const QLabel* texte : choix.findChildren<QLabel*>())
        EXPECT_TRUE(texte->pixmap().isNull());
    auto* liste = choix.findChild<QTreeWidget*>();
    ASSERT_TRUE(Attendre([&] { return liste->topLevelItemCount() > 0; }));
    const auto lettres = LettresMachine();
    const auto rang = std::find(lettres.begin(), lettres.end(), lettre_) - lettres.begin();
    liste->setCurrentItem(liste->topLevelItem(static_cast<int>(rang)));
    EXPECT_TRUE(liste->currentItem()->text(0).endsWith(" [" + QString::fromStdString(disque_.filename()) + "]"));
    choix.findChild<QPushButton*>()->click();
    EXPECT_EQ(choix.Lettre(), lettre_ - 'a' + 'A');
    EXPECT_EQ(Lignes(Medias, {"Disque"}), std::vector<std::string>{std::string(1, choix.Lettre())});
}
