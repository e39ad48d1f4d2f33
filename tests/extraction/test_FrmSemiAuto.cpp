#include "extraction/FrmSemiAuto.h"

#include <memory>
#include <set>

#include <QAccessible>

#include "commun/Formes.h"
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
        // The drives of the machine, of which these and no others can be taken out.
        const auto machine = [amovibles = amovibles_] {
            std::vector<LecteurVu> lecteurs = RegarderLecteurs();
            for (LecteurVu& lecteur : lecteurs)
                lecteur.type = amovibles.find(lecteur.lettre) != std::string::npos ? LecteurAmovible : LecteurFixe;
            return lecteurs;
        };
        fenetre_ = std::make_unique<FrmSemiAuto>(questions_, travailleur_, FabriqueCourseCD(), machine);
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

    std::string amovibles_;
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
void LireResultat(
    QTimer& minuterie, std::vector<std::string>& lignes, const std::function<void()>& avant = [] {})
{
    QObject::connect(&minuterie, &QTimer::timeout, [&, avant] {
        auto* resultat = dynamic_cast<FrmResultat*>(QApplication::activeModalWidget());
        if (!resultat)
            return;
        avant();
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
        ASSERT_GE(menu_->Nombre(), 2);
        menu_->Onglet(0)->click();
        Consulter();
        for (const bool choisi : {true, false}) {
            const auto [clair, sombre, papier] = extremes(menu_->Onglet(choisi ? 0 : 1));
            EXPECT_GT(clair, 200) << choisi;
            EXPECT_LT(sombre, 110) << choisi;
            EXPECT_EQ(papier > 200, choisi);
            EXPECT_EQ(menu_->Onglet(choisi ? 0 : 1)->font().bold(), choisi);
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

// With no disc to be taken out the others stand in the first row.
TEST_F(Assistant, RemembersTheTab)
{
    const auto actualiser = [this](const std::string& valeur) {
        SaveSetting(SectionSettings, "Drive", valeur);
        Enfant<QPushButton>(*fenetre_, "Actualiser")->click();
        Consulter();
    };
    DonnerLettre('y', travail_.string());
    for (const char* amovibles : {"y", ""}) {
        SCOPED_TRACE(amovibles);
        amovibles_ = amovibles;
        Ouvrir();
        RangeeOnglets* rangee = *amovibles ? menuA_ : menu_;
        const std::string lettre = *amovibles ? "A" : "";
        ASSERT_GE(rangee->Nombre(), 2);
        EXPECT_EQ(menu_->Position('y'), *amovibles ? 0 : menu_->Nombre() - 1);
        EXPECT_EQ(menuA_->isVisible(), *amovibles != 0);
        EXPECT_EQ(rangee->Onglet(0)->toolTip(), "/");
        const int dernier = rangee->Nombre() - 1;
        rangee->Onglet(dernier)->click();
        EXPECT_EQ(Reglage("Drive"), lettre + std::to_string(dernier));
        rangee->Onglet(dernier)->click();
        EXPECT_TRUE(rangee->Onglet(dernier)->isChecked()) << "a second press releases nothing";

        rangee->Onglet(0)->click();
        actualiser(lettre + std::to_string(dernier));
        EXPECT_EQ(rangee->Choisi(), dernier);
        // No tab, one that has gone, and nonsense all fall to the default.
        for (const char* valeur : {"A99", "57", "-3", "x"}) {
            actualiser(valeur);
            EXPECT_EQ(menu_->Choisi(), 0) << valeur;
        }
    }
    actualiser("A1");
    EXPECT_EQ(menu_->Choisi(), 1) << "remembered while there was a second row";
}

TEST_F(Assistant, HidingTheDetailsGivesUpADriveNoLongerSeen)
{
    DonnerLettre('y', travail_.string());
    for (const char* amovibles : {"y", ""}) {
        SCOPED_TRACE(amovibles);
        amovibles_ = amovibles;
        Ouvrir();
        ChoisirDisque();
        auto* etapes = Enfant<QPushButton>(*fenetre_, "Etapes");
        EXPECT_EQ(etapes->text().remove('&'), " Cacher Détails ");
        etapes->click();
        Consulter();
        EXPECT_EQ(menuA_->Choisi(), RangeeOnglets::Aucun);
        EXPECT_EQ(menu_->Choisi(), *amovibles ? 0 : menu_->Position(lettre_));
        EXPECT_TRUE(ok_->isEnabled());
        EXPECT_EQ(Reglage("Methode"), " Montrer Détails ");

        Ouvrir();
        EXPECT_TRUE(Enfant<QWidget>(*fenetre_, "Details")->isHidden());
        EXPECT_TRUE(ok_->isEnabled());
        Enfant<QPushButton>(*fenetre_, "Etapes")->click();
        Consulter();
        EXPECT_EQ(Reglage("Methode"), " Cacher Détails ");
    }
}

// Every control has its name and its turn, every letter one control; Escape and Enter do what they do everywhere.
TEST_F(Assistant, KeyboardAlone)
{
    amovibles_ = lettre_;
    Ouvrir();
    auto* identifiant = Enfant<QLineEdit>(*fenetre_, "Identifiant");
    std::string tour;
    for (QWidget* suivant = identifiant->nextInFocusChain(); suivant != identifiant;
         suivant = suivant->nextInFocusChain()) {
        if (!(suivant->focusPolicy() & Qt::TabFocus) || !suivant->isVisible())
            continue;
        auto* onglet = qobject_cast<QToolButton*>(suivant);
        tour += (onglet ? menu_->isAncestorOf(onglet) ? "1" : "2" : suivant->objectName().toStdString()) + " ";
        QAccessibleInterface* voix = QAccessible::queryAccessibleInterface(suivant);
        EXPECT_FALSE(voix->text(QAccessible::Name).isEmpty()) << tour;
    }
    const std::string seconde = [this] {
        std::string onglets;
        for (int i = 0; i < menuA_->Nombre(); ++i)
            onglets += "2 ";
        return onglets;
    }();
    EXPECT_EQ(tour, "Label OK " + seconde +
                        "Compression0 Compression1 Compression2 Compression3 ListeExtensions Liste Etapes Bouton 1 "
                        "Actualiser Dossier ");

    std::string lettres;
    for (const QWidget* controle : fenetre_->findChildren<QWidget*>())
        if (const QString texte = controle->property("text").toString(); texte.contains('&'))
            lettres += texte[texte.indexOf('&') + 1].toUpper().toLatin1();
    EXPECT_EQ(std::set<char>(lettres.begin(), lettres.end()).size(), lettres.size()) << lettres;

    QKeyEvent entree(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier),
        repetee(entree.type(), Qt::Key_Return, {}, {}, true);
    QApplication::sendEvent(menuA_->Onglet(0), &entree);
    Consulter();
    EXPECT_EQ(menuA_->Choisi(), 0);

    Remplir(2000);
    Saisir("CD 1", "Vacances");
    const auto presser = [this](const QKeySequence& touche) {
        for (auto* raccourci : fenetre_->findChildren<QShortcut*>())
            if (raccourci->key() == touche)
                emit raccourci->activated();
    };
    const auto echapper = [&] { presser(Qt::Key_Escape); };
    QApplication::sendEvent(ok_, &entree);
    EXPECT_TRUE(fenetre_->EnCours());
    QApplication::sendEvent(ok_, &repetee);
    EXPECT_TRUE(questions_.dites.empty()) << "held down";
    questions_.oui = false;
    presser(QKeySequence("Ctrl+Q"));
    EXPECT_EQ(questions_.pertes, 1U);
    EXPECT_TRUE(fenetre_->EnCours());
    questions_.oui = true;
    echapper();
    EXPECT_EQ(questions_.pertes, 2U);
    ASSERT_TRUE(Attendre([&] { return !fenetre_->EnCours(); }));
    EXPECT_EQ(fermetures_, 0);
    EXPECT_EQ(Compter(Medias), 0);
    echapper();
    EXPECT_EQ(fermetures_, 1);
}

TEST_F(Assistant, FitsASmallScreenAndScrollsWithLargeLetters)
{
    const QFont avant = QApplication::font();
    amovibles_ = lettre_;
    for (const int points : {avant.pointSize(), 24}) {
        QFont police = avant;
        police.setPointSize(points);
        QApplication::setFont(police);
        Ouvrir();
        EXPECT_LE(fenetre_->height(), fenetre_->screen()->availableSize().height());
        fenetre_->resize(800, 560);
        QCoreApplication::processEvents();
        EXPECT_EQ(fenetre_->size(), QSize(800, 560)) << points;
        auto* zone = qobject_cast<QScrollArea*>(
            Enfant<QWidget>(*fenetre_, "Details")->parentWidget()->parentWidget()->parentWidget());
        ASSERT_TRUE(zone);
        if (points == 24) {
            EXPECT_GT(zone->verticalScrollBar()->maximum(), 0);
            continue;
        }
        EXPECT_EQ(zone->verticalScrollBar()->maximum(), 0);
        EXPECT_EQ(zone->horizontalScrollBar()->maximum(), 0);
    }
    QApplication::setFont(avant);
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
    std::vector<std::string> lignes, lues;
    auto* barre = fenetre_->findChild<QProgressBar*>();
    LireResultat(minuterie, lignes, [&] {
        auto* liste = Enfant<QListWidget>(*fenetre_, "Liste");
        for (int rang = 0; rang < liste->count(); ++rang)
            lues.push_back(liste->item(rang)->text().toStdString());
        EXPECT_GT(barre->maximum(), 0);
        EXPECT_EQ(barre->value(), barre->maximum());
    });
    Presser("Label", Qt::Key_Return);
    EXPECT_EQ(TexteOK(), "Abandon");
    EXPECT_EQ(barre->maximum(), 0) << "nobody knows what a folder holds";
    EXPECT_EQ(Enfant<QLabel>(*fenetre_, "Pourcentage")->text(), "");
    ASSERT_TRUE(Attendre([&] { return !fenetre_->EnCours(); }));

    EXPECT_EQ(lignes, (std::vector<std::string>{"1", "2", "0", "0"}));
    EXPECT_EQ(lues, (std::vector<std::string>{"lettre.txt", "photos\\", "été.jpg"}));
    EXPECT_EQ(Lignes("select * from Catalogue where Flag = true order by Num", {"Identifiant", "Label"}),
              std::vector<std::string>{"CD 1|Vacances"});
    EXPECT_EQ(TexteOK(), "Recherche");
    EXPECT_TRUE(Enfant<QLineEdit>(*fenetre_, "Identifiant")->text().isEmpty());
    EXPECT_TRUE(ArbreARecharger());

    // The same again, refused: nothing changes, no run.
    questions_.oui = false;
    Saisir("CD 1", "Autre");
    ok_->click();
    EXPECT_EQ(questions_.pertes, 1U);
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

    // Destroyed during a run, it leaves no thread behind, and the media whole or not at all: it may have been read.
    Ouvrir();
    Saisir("CD 1", "Vacances");
    ok_->click();
    fenetre_.reset();
    EXPECT_EQ(Compter("select * from Liste") >= 500, Compter(Medias) == 1);
    EXPECT_EQ(Compter("select * from Liste") == 0, Compter(Medias) == 0);
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

// The drive chooser, asked for what only the test's own folder holds.
TEST_F(Assistant, DriveChooserTakesOnlyADriveThatHoldsIt)
{
    Inscrire("CD 1", "Vacances");
    const auto contient = [voulue = lettre_](char lettre) { return lettre == voulue; };
    // A stranger's base names what is decoded: pictures of icon files only.
    const std::string dessin = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    FrmGetDrive choix({"Vacances", "CD 1", dessin, " L'unité actuelle : D:", contient});
    for (const QLabel* texte : choix.findChildren<QLabel*>())
        EXPECT_TRUE(texte->pixmap().isNull());
    choix.show();
    auto* liste = choix.findChild<QTreeWidget*>();
    auto* avis = Enfant<QLabel>(choix, "Avis");
    auto* valider = choix.findChild<QPushButton*>();
    const auto ligne = [&](char lettre) {
        const auto trouvees = liste->findItems(QString(QChar(LettreCapitale(lettre))) + " [", Qt::MatchStartsWith);
        return trouvees.isEmpty() ? nullptr : trouvees.first();
    };
    ASSERT_TRUE(Attendre([&] { return ligne(lettre_); }));
    EXPECT_TRUE(liste->selectedItems().isEmpty()) << "the user chooses";
    EXPECT_FALSE(valider->isEnabled());

    liste->setCurrentItem(ligne('c'));
    valider->click();
    ASSERT_TRUE(Attendre([&] { return avis->text() == "Le lecteur C: ne contient pas l'élément demandé !"; }));
    EXPECT_TRUE(choix.isVisible());
    EXPECT_EQ(choix.Lettre(), 0);
    EXPECT_EQ(Lignes(Medias, {"Disque"}), std::vector<std::string>{""}) << "no letter is kept";

    // A medium that comes is seen, and what was chosen stays so.
    DonnerLettre('y', travail_.string());
    ASSERT_TRUE(Attendre([&] { return ligne('y'); }));
    EXPECT_EQ(liste->selectedItems(), QList<QTreeWidgetItem*>{ligne('c')});

    liste->setCurrentItem(ligne(lettre_));
    EXPECT_EQ(avis->text(), "");
    EXPECT_TRUE(liste->currentItem()->text(0).endsWith(" [" + QString::fromStdString(disque_.filename()) + "]"));
    valider->click();
    ASSERT_TRUE(Attendre([&] { return !choix.isVisible(); }));
    EXPECT_EQ(choix.Lettre(), LettreCapitale(lettre_));
    EXPECT_EQ(Lignes(Medias, {"Disque"}), std::vector<std::string>{std::string(1, choix.Lettre())});
}
