#include "search/frmRecherche.h"

#include <set>
#include <utility>

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QEnterEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include "browser/frmView.h"
#include "fenetres/TextesQt.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "search/Infobulle.h"
#include "shell/Fenetres.h"
#include "shell/FrmMain.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

class FenetreRecherche : public EnvironnementBase {
protected:
    FenetreRecherche()
    {
        AjouterMediaTest({"Disque", ""});
        AjouterLignes(1, {{"000000000", "000000001", "D:", "D"},
                          {"000000001", "000000002", "un", "D"},
                          {"000000002", "000000003", "deux", "D"},
                          {"000000003", "000000004", "trois", "D"},
                          Fichier("z.txt", "000000004", "1 b"),
                          Fichier("fond.txt", "000000004", "2 b"),
                          Fichier("haut.doc", "000000001", "3 b"),
                          Fichier("plein.zip", "000000003", "5 b"),
                          {"A 8 1", "A 8 2", "plis", "Z"},
                          {"A 8 2", "A 8 3", "creux", "Z"},
                          {"A 8 1", "0", "membre.c", " ", "6 b"},
                          {"A 8 3", "0", "coeur.c", " ", "7 b"},
                          {"000000003", "0", "nu", "a", "8 b", ""}});
        AjouterMediaTest({"Autre", ""});
        AjouterLignes(2, {{"000000000", "000000001", "E:", "D"}, Fichier("fond.txt", "000000001", "4 b")});
        Ouvrir();
    }

    static LigneTest Fichier(const char* nom, const char* repertoire, const char* taille)
    {
        return {repertoire, "0",        nom,        "a", taille,
                "Fichier",  "20030615", "10:00:00", {},  "description de " + std::string(nom)};
    }
    void Ouvrir()
    {
        fenetres_.reset();
        fenetres_ = std::make_unique<Fenetres>(dialogues_);
        fenetres_->Demarrer();
        Enfant<QToolButton>(*Fenetre<FrmMain>(), "Visualiser")->click();
        Calme();
        vue_ = Fenetre<frmView>();
        Chercher();
        fenetre_ = Fenetre<frmRecherche>();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(fenetre_));
        resultats_ = Enfant<QTreeView>(*fenetre_, "lvListView");
        ok_ = Enfant<QPushButton>(*fenetre_, "OK0");
    }
    void Calme() { Calmer(fenetres_->Ouvrage()); }
    // The command of the browser that leads here.
    void Chercher()
    {
        emit vue_->rechercheVoulue();
        Calme();
    }
    QLineEdit* Saisie(int onglet) { return Enfant<QLineEdit>(*fenetre_, ("Saisie" + std::to_string(onglet)).c_str()); }
    QCheckBox* Rec(int option) { return Enfant<QCheckBox>(*fenetre_, ("Rec" + std::to_string(option)).c_str()); }
    QPushButton* InfoDate(int i) { return Enfant<QPushButton>(*fenetre_, ("InfoDate" + std::to_string(i)).c_str()); }
    QToolButton* Btn(int i) { return Enfant<QToolButton>(*fenetre_, ("Btn" + std::to_string(i)).c_str()); }
    QWidget* Infobulle() { return Enfant<QFrame>(*fenetre_, "ToolTip"); }
    std::string Statut() { return Enfant<QLabel>(*fenetre_, "Commentaire")->text().toStdString(); }
    std::string Titre() { return Enfant<QLabel>(*fenetre_, "titre")->text().toStdString(); }
    std::string Cellule(int rang) { return resultats_->model()->index(rang, 0).data().toString().toStdString(); }
    int Nombre() { return resultats_->model()->rowCount(); }

    void Chercher(const char* mot)
    {
        Saisie(0)->setText(mot);
        QTest::mouseClick(ok_, Qt::LeftButton);
        Calme();
    }
    QPoint Place(int rang) { return resultats_->visualRect(resultats_->model()->index(rang, 0)).center(); }
    void Cliquer(int rang)
    {
        QTest::mouseClick(resultats_->viewport(), Qt::LeftButton, {}, Place(rang));
        Calme();
    }
    void DoubleCliquer(int rang)
    {
        Cliquer(rang);
        QTest::mouseDClick(resultats_->viewport(), Qt::LeftButton, {}, Place(rang));
        Calme();
    }
    void CliquerEnTete(int colonne)
    {
        QHeaderView* tete = resultats_->header();
        QTest::mouseClick(tete->viewport(), Qt::LeftButton, {},
                          QPoint(tete->sectionViewportPosition(colonne) + 20, tete->height() / 2));
        Calme();
    }
    std::unique_ptr<Fenetres> fenetres_;
    frmView* vue_ = nullptr;
    frmRecherche* fenetre_ = nullptr;
    QTreeView* resultats_ = nullptr;
    QPushButton* ok_ = nullptr;
};

}  // namespace

TEST_F(FenetreRecherche, OuvreUnFichierAuFondDeDossiersFermes)
{
    EXPECT_FALSE(vue_->isVisible());
    QTest::keyClicks(Saisie(0), "FOND*");
    QTest::keyClick(Saisie(0), Qt::Key_Return);
    Calme();
    ASSERT_EQ(Nombre(), 2);
    EXPECT_EQ(Statut(), " 2 Objets");
    resultats_->setFocus();
    QTest::keyClick(resultats_, Qt::Key_Home);
    Calme();
    EXPECT_EQ(Titre(), " Disque\\un\\deux\\trois");
    DoubleCliquer(0);

    EXPECT_TRUE(vue_->isVisible());
    EXPECT_FALSE(fenetre_->isVisible());
    auto* arbre = Enfant<QTreeView>(*vue_, "tvTreeView");
    auto* rapport = Enfant<QTreeView>(*vue_, "lvRapport");
    EXPECT_EQ(arbre->currentIndex().data(), "trois");
    EXPECT_EQ(arbre->currentIndex().parent().data(), "deux");
    EXPECT_TRUE(arbre->isExpanded(arbre->currentIndex().parent()));
    EXPECT_EQ(rapport->currentIndex().siblingAtColumn(0).data(), "fond.txt");
    EXPECT_EQ(vue_->focusWidget(), rapport);
    EXPECT_EQ(Enfant<QPlainTextEdit>(*vue_, "description")->toPlainText(), "description de fond.txt");

    Chercher();
    EXPECT_EQ(Nombre(), 2) << "the results are still there";
    DoubleCliquer(1);
    EXPECT_EQ(arbre->currentIndex().data(), "Autre");
    EXPECT_EQ(rapport->currentIndex().siblingAtColumn(ColTaille).data(), "4 b");
}

TEST_F(FenetreRecherche, OuvreCeQuEstDansUneArchive)
{
    const struct {
        const char *mot, *noeud, *pere;
        int voisins;
        bool neuf = false;  // nothing of the tree is known yet
    } cas[] = {{"coeur.c", "creux", "plis", 1, true},
               {"creux", "plis", "plein.zip", 1},
               {"nu", "deux", "un", 3},
               {"membre.c", "plein.zip", "deux", 2},
               {"plis", "plein.zip", "deux", 2, true}};
    for (const auto& [mot, noeud, pere, voisins, neuf] : cas) {
        if (neuf)
            Ouvrir();
        const auto* arbre = Enfant<QTreeView>(*vue_, "tvTreeView");
        auto* rapport = Enfant<QTreeView>(*vue_, "lvRapport");
        Chercher(mot);
        ASSERT_EQ(Nombre(), 1) << mot;
        DoubleCliquer(0);
        EXPECT_TRUE(vue_->isVisible());
        EXPECT_EQ(arbre->currentIndex().data(), noeud) << mot;
        EXPECT_EQ(arbre->currentIndex().parent().data(), pere) << mot;
        EXPECT_EQ(rapport->currentIndex().siblingAtColumn(0).data(), mot);
        EXPECT_EQ(rapport->model()->rowCount(), voisins) << mot;
        EXPECT_EQ(vue_->focusWidget(), rapport) << mot;
        Chercher();
    }

    auto* sansType = Enfant<QCheckBox>(*fenetre_, "SansType");
    EXPECT_TRUE(sansType->isChecked());
    sansType->click();
    Chercher("*c*");
    EXPECT_EQ(Nombre(), 1) << "haut.doc";
    Ouvrir();
    EXPECT_FALSE(Enfant<QCheckBox>(*fenetre_, "SansType")->isChecked());
}

TEST_F(FenetreRecherche, MontreOuSontLesResultats)
{
    const auto cellule = [this](int rang, int colonne) {
        return resultats_->model()->index(rang, colonne).data().toString().toStdString();
    };
    const auto basculer = [this](int rang) {
        QTimer::singleShot(0, [rang] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            menu->actions().at(rang)->trigger();
            menu->close();
        });
        emit resultats_->header()->customContextMenuRequested({});
        Calme();
    };
    Chercher("fond.txt");
    EXPECT_TRUE(resultats_->isColumnHidden(ColMedia) && resultats_->isColumnHidden(ColDossier));
    QHelpEvent survol(QEvent::ToolTip, Place(0), resultats_->viewport()->mapToGlobal(Place(0)));
    QApplication::sendEvent(resultats_->viewport(), &survol);
    EXPECT_EQ(QToolTip::text(), "fond.txt\nDisque\\un\\deux\\trois");
    EXPECT_EQ(EnBulle(QString("<b>a</b>")), "<p style=\"white-space:pre\">&lt;b&gt;a&lt;/b&gt;</p>");

    const auto largeur = [this] { return resultats_->header()->length(); };
    EXPECT_EQ(largeur(), resultats_->viewport()->width()) << "no width is lost";
    basculer(1);
    EXPECT_TRUE(resultats_->isColumnHidden(ColMedia));
    EXPECT_EQ(cellule(0, ColDossier), "\\un\\deux\\trois") << "of results that are there already";
    basculer(0);
    EXPECT_EQ(cellule(1, ColMedia), "Autre");
    fenetre_->resize(1300, 700);
    Calme();
    EXPECT_NEAR(largeur(), resultats_->viewport()->width(), 1);
    CliquerEnTete(ColMedia);
    EXPECT_EQ(cellule(0, ColMedia), "Disque");
    CliquerEnTete(ColMedia);
    EXPECT_EQ(cellule(0, ColMedia), "Autre");
    EXPECT_EQ(cellule(0, ColDossier), "\\");

    resultats_->header()->resizeSection(ColNom, 150);
    fenetre_->close();
    Ouvrir();
    EXPECT_EQ(resultats_->header()->sectionSize(ColNom), 150);
    EXPECT_FALSE(resultats_->isColumnHidden(ColMedia) || resultats_->isColumnHidden(ColDossier));
    Chercher("fond.txt");
    EXPECT_EQ(cellule(0, ColMedia), "Disque") << "the order before the last click";
    basculer(0);
    basculer(1);
    EXPECT_TRUE(resultats_->isColumnHidden(ColMedia) && resultats_->isColumnHidden(ColDossier));
    EXPECT_EQ(resultats_->header()->sectionSize(ColNom), 150);
}

TEST_F(FenetreRecherche, OuvreUnDossierAuClavier)
{
    Chercher("deux");
    resultats_->setFocus();
    QTest::keyClick(resultats_, Qt::Key_Home);
    QTest::keyClick(resultats_, Qt::Key_Return);
    Calme();
    auto* arbre = Enfant<QTreeView>(*vue_, "tvTreeView");
    EXPECT_EQ(arbre->currentIndex().data(), "deux");
    EXPECT_EQ(vue_->focusWidget(), arbre);
    EXPECT_EQ(Enfant<QTreeView>(*vue_, "lvRapport")->model()->rowCount(), 3);
}

TEST_F(FenetreRecherche, SAnnuleATousMoments)
{
    Base base = OpenDatabase(BaseCourante());
    base.CommencerTransaction();
    AjouterLignes(1, std::vector<LigneTest>(20000, Fichier("n", "000000001", "1 b")));
    base.Valider();
    base.Close();
    const auto lancer = [this](const char* mot) {
        Saisie(0)->setText(mot);
        QTest::mouseClick(ok_, Qt::LeftButton);
        EXPECT_EQ(ok_->toolTip(), " Annuler la recherche ");
        EXPECT_TRUE(ok_->isChecked());
        EXPECT_EQ(Nombre(), 0);
    };
    for (const char* mot : {"n", "fond.txt", "aucun"}) {
        lancer(mot);
        QTest::mouseClick(ok_, Qt::LeftButton);
        EXPECT_EQ(Statut(), " 0 Objets") << mot;
        EXPECT_FALSE(ok_->isChecked());
        Calme();
        EXPECT_EQ(Nombre(), 0) << mot;
        EXPECT_EQ(ok_->toolTip(), " Lancer la recherche ");
    }
    lancer("n");
    QTest::keyClick(fenetre_, Qt::Key_Escape);
    Calme();
    EXPECT_EQ(Nombre(), 0);
    EXPECT_TRUE(fenetre_->isVisible());
    lancer("n");
    QTest::mouseClick(ok_, Qt::LeftButton);
    Chercher("n");
    EXPECT_EQ(Nombre(), 20000) << "the next one runs to its end";
    emit resultats_->header()->sectionClicked(ColTaille);  // still sorting when the next one begins
    lancer("n");
    QTest::keyClick(fenetre_, Qt::Key_Escape);
    EXPECT_EQ(Statut(), " 0 Objets");
    Calme();
    EXPECT_EQ(Nombre(), 0);
}

TEST_F(FenetreRecherche, RienNeSeMeleAUneRecherche)
{
    Saisie(0)->setText("*.txt");
    QTest::mouseClick(ok_, Qt::LeftButton);
    QTest::keyClick(Saisie(0), Qt::Key_Return);
    Btn(2)->click();
    Rec(OptionDates)->click();
    vue_->tvTreeView_Click();
    fenetre_->lvListView_DblClick();
    CliquerEnTete(ColTaille);
    EXPECT_EQ(Nombre(), 3);
    EXPECT_EQ(resultats_->model()->index(0, ColTaille).data(), "4 b") << "the order asked for meanwhile";

    Saisie(0)->setText("*");
    QTest::mouseClick(ok_, Qt::LeftButton);
    fenetre_->close();
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_TRUE(vue_->isVisible());
    Calme();
    Chercher();
    EXPECT_EQ(Nombre(), 0);
    EXPECT_EQ(Saisie(0)->text(), "");
}

TEST_F(FenetreRecherche, UnSeulMotDansLesTroisBoites)
{
    for (int onglet : {1, 2, 0}) {
        Btn(onglet)->click();
        EXPECT_TRUE(Saisie(onglet)->isVisible());
        Saisie(onglet)->clear();
        QTest::keyClicks(Saisie(onglet), ("mot" + std::to_string(onglet)).c_str());
        for (int autre = 0; autre < 3; ++autre)
            EXPECT_EQ(Saisie(autre)->text().toStdString(), "mot" + std::to_string(onglet));
    }
    Chercher("fond*");
    Chercher("fond*");
    const auto* explication = Enfant<QLabel>(*fenetre_, "Explication");
    EXPECT_TRUE(explication->text().isEmpty());
    Chercher("l'eau");
    EXPECT_EQ(Nombre(), 0);
    EXPECT_EQ(Statut(), " 0 Objets");
    EXPECT_TRUE(explication->text().contains("apostrophe"));
    EXPECT_EQ(GetSetting(SectionSettings, "CptSaisie", ""), "2");
    auto* completion = Saisie(1)->completer();
    completion->setCompletionPrefix("ON");
    EXPECT_EQ(completion->completionCount(), 1);
    EXPECT_EQ(completion->currentCompletion(), "fond*");
    Enfant<QToolButton>(*fenetre_, "Anciens0")->click();
    EXPECT_TRUE(Saisie(0)->completer()->popup()->isVisible());
    EXPECT_EQ(Saisie(0)->completer()->completionCount(), 2) << "all of them, whatever the box holds";
    Saisie(0)->completer()->popup()->hide();
    Chercher("fond*");
    EXPECT_TRUE(explication->text().isEmpty());
}

TEST_F(FenetreRecherche, ChercheDansUnMedia)
{
    Btn(RechercheLabelMedia)->click();
    auto* labels = Enfant<QComboBox>(*fenetre_, "LLables");
    ASSERT_EQ(labels->count(), 3);
    labels->setCurrentIndex(1);
    emit labels->activated(1);
    Chercher("fond*");
    ASSERT_EQ(Nombre(), 1);
    EXPECT_EQ(resultats_->model()->index(0, ColTaille).data(), "4 b");
    EXPECT_EQ(GetSetting(SectionSettings, "LLabel", ""), "1");
    Btn(RechercheAvancee)->click();
    Chercher("fond*");
    EXPECT_EQ(Nombre(), 2);
}

TEST_F(FenetreRecherche, RefuseUneFinAvantLeDebut)
{
    const QLocale avantLocale;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    SaveSetting(SectionSettings, "Date 0", "10/06/2003");
    Ouvrir();
    SaveSetting(SectionSettings, "Date 1", "pas une date");
    EXPECT_FALSE(InfoDate(0)->isEnabled());
    Rec(OptionDates)->click();
    EXPECT_EQ(InfoDate(0)->text(), "10/06/2003");
    EXPECT_EQ(InfoDate(1)->text(), QDate::currentDate().toString("dd/MM/yyyy"));
    QLocale::setDefault(avantLocale);
    auto* calendrier = Enfant<QCalendarWidget>(*fenetre_, "Calendrier");
    EXPECT_EQ(calendrier->locale().language(), QLocale::French);
    EXPECT_EQ(calendrier->firstDayOfWeek(), Qt::Monday);

    const struct {
        int date;
        QDate jour;
        bool refuse;
    } cas[] = {{1, {2003, 6, 9}, true},
               {1, {2003, 6, 10}, false},
               {1, {2003, 6, 15}, false},
               {0, {2003, 6, 15}, false},
               {1, {1999, 12, 31}, true}};
    for (const auto& [date, jour, refuse] : cas) {
        const QString avant = InfoDate(date)->text();
        dialogues_.dites.clear();
        QTest::mouseClick(InfoDate(date), Qt::LeftButton);
        ASSERT_TRUE(calendrier->isVisible());
        emit calendrier->clicked(jour);
        EXPECT_EQ(dialogues_.dites.size(), refuse ? 1U : 0U);
        EXPECT_EQ(InfoDate(date)->text(), refuse ? avant : jour.toString("dd/MM/yyyy"));
        EXPECT_EQ(calendrier->isVisible(), refuse);
        if (refuse)
            QTest::keyClick(fenetre_, Qt::Key_Escape);
        EXPECT_FALSE(calendrier->isVisible());
    }
    EXPECT_EQ(dialogues_.dites, std::vector<std::string>{"Veuillez sélectionner une date >= à la date de début !"});
    EXPECT_EQ(GetSetting(SectionSettings, "Date 1", ""), "15/06/2003");
    Chercher("*");
    EXPECT_EQ(Nombre(), 5) << "the day itself, at both ends, and no directory";
    Rec(OptionDates)->click();
    EXPECT_EQ(InfoDate(0)->text(), "");
    Chercher("*");
    EXPECT_EQ(Nombre(), 15);
}

TEST_F(FenetreRecherche, SeSouvient)
{
    Chercher("*");
    EXPECT_EQ(Cellule(0), "coeur.c") << "a fresh store leaves the order of the search";
    EXPECT_EQ(resultats_->header()->sortIndicatorSection(), -1);
    CliquerEnTete(ColNom);
    EXPECT_EQ(Cellule(0), "z.txt") << "the first click turns the order round";
    Btn(RechercheIdentifiant)->click();
    Rec(OptionNoms)->click();
    Rec(OptionExtensions)->click();
    resultats_->header()->resizeSection(ColTaille, 123);
    fenetre_->setGeometry(40, 50, 901, 602);
    fenetre_->close();
    EXPECT_TRUE(vue_->isVisible());
    EXPECT_EQ(vue_->geometry(), QRect(40, 50, 901, 602));
    const struct {
        std::string_view section;
        const char *cle, *valeur;
    } cas[] = {
        {SectionLvListView, "Onglet", "1"},       {SectionSettings, "Rec 0", "1"},
        {SectionSettings, "Rec 2", "1"},          {SectionRecLvListView, "SortKey", "0"},
        {SectionRecLvListView, "SortOrder", "0"}, {SectionLvListView, "RecL2", "1845"},
        {SectionSettings, "RecViewMode", "3"},    {SectionSettings, "MainWidth", "13515"},
        {SectionSettings, "MainState", "0"},
    };
    for (const auto& [section, cle, valeur] : cas)
        EXPECT_EQ(GetSetting(section, cle, ""), valeur) << cle;

    Ouvrir();
    EXPECT_TRUE(Btn(RechercheIdentifiant)->isChecked());
    EXPECT_TRUE(Saisie(1)->isVisible());
    EXPECT_FALSE(Saisie(0)->isVisible());
    EXPECT_TRUE(Rec(OptionNoms)->isChecked());
    EXPECT_FALSE(Rec(OptionDescriptions)->isChecked());
    EXPECT_EQ(resultats_->header()->sectionSize(ColTaille), 123);
    Chercher("*");
    EXPECT_EQ(Cellule(0), "coeur.c") << "the order before the click";
    EXPECT_EQ(resultats_->header()->sortIndicatorSection(), ColNom);
}

TEST_F(FenetreRecherche, InfobulleSuitEtSEfface)
{
    Chercher("fond*");
    Cliquer(0);
    ASSERT_TRUE(Infobulle()->isVisible());
    EXPECT_EQ(Enfant<QPlainTextEdit>(*fenetre_, "ToolTipT")->toPlainText(), "description de fond.txt");
    const QPoint avant = Infobulle()->pos();
    QTest::mouseMove(resultats_->viewport(), Place(0) + QPoint(30, 60));
    EXPECT_NE(Infobulle()->pos(), avant);
    for (const QPoint coin : {QPoint(0, 0), resultats_->viewport()->rect().bottomRight()}) {
        QTest::mouseMove(resultats_->viewport(), coin);
        EXPECT_TRUE(fenetre_->rect().contains(Infobulle()->geometry()));
    }

    auto* minuterie = Enfant<QTimer>(*fenetre_, "Timer1");
    QEnterEvent entree({}, {}, {});
    QApplication::sendEvent(Infobulle(), &entree);
    EXPECT_FALSE(minuterie->isActive()) << "stays while the mouse is on it";
    QEvent sortie(QEvent::Leave);
    QApplication::sendEvent(Infobulle(), &sortie);
    EXPECT_TRUE(minuterie->isActive());
    const int duree = minuterie->interval();
    minuterie->start(1);
    EXPECT_TRUE(Attendre([&] { return !Infobulle()->isVisible(); }));
    minuterie->setInterval(duree);

    SaveSetting(SectionSettings, "OptionsDivers 3", "0");
    Cliquer(1);
    EXPECT_EQ(Titre(), " Autre");
    EXPECT_FALSE(Infobulle()->isVisible());
    SaveSetting(SectionSettings, "OptionsDivers 3", "1");
    Cliquer(0);
    EXPECT_TRUE(Infobulle()->isVisible());
    Chercher("trois");
    EXPECT_FALSE(Infobulle()->isVisible());
    Cliquer(0);
    EXPECT_FALSE(Infobulle()->isVisible()) << "nothing to tell of a directory without description";
}

TEST_F(FenetreRecherche, ToutSAtteintAuClavier)
{
    const std::pair<QWidget*, const char*> criteres[] = {{Rec(0), "z.txt"}, {Btn(0), "nu"}};
    for (const auto& [critere, mot] : criteres) {
        Saisie(0)->setText(mot);
        QTest::keyClick(critere, Qt::Key_Return);
        Calme();
        EXPECT_EQ(Nombre(), 1) << mot;
    }
    std::set<QString> atteints;
    Rec(OptionDates)->click();
    Rec(OptionExtensions)->click();
    EXPECT_LE(fenetre_->minimumSizeHint().width(), 800);
    EXPECT_LE(fenetre_->minimumSizeHint().height(), 560);
    for (int onglet : {1, 2, 0}) {
        Btn(onglet)->click();
        QStringList touches = TouchesDirectes(*fenetre_);
        EXPECT_GE(touches.size(), 8);
        EXPECT_EQ(touches.removeDuplicates(), 0) << touches.join("").toStdString();
    }
    Saisie(0)->setFocus();
    for (int i = 0; i < 20; ++i) {
        atteints.insert(fenetre_->focusWidget()->objectName());
        EXPECT_FALSE(fenetre_->focusWidget()->accessibleName().isEmpty() &&
                     !qobject_cast<QPushButton*>(fenetre_->focusWidget()))
            << fenetre_->focusWidget()->objectName().toStdString();
        QTest::keyClick(fenetre_->focusWidget(), Qt::Key_Tab);
    }
    for (const char* nom : {"Btn0", "Btn2", "Saisie0", "Rec0", "Rec1", "Rec2", "Rec3", "LExt", "InfoDate0", "InfoDate1",
                            "SansType", "OK0", "Catalogue", "lvListView"})
        EXPECT_TRUE(atteints.count(nom)) << nom;
    QTest::keyClick(fenetre_, Qt::Key_Escape);
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_TRUE(vue_->isVisible());
}

TEST_F(FenetreRecherche, UneAutreBaseOublieLesResultats)
{
    Chercher("fond*");
    Cliquer(0);
    QTest::keyClick(resultats_, Qt::Key_Return);
    Calme();
    const std::string autre = (travail_ / "autre.vlr").string();
    dialogues_.fichier = autre;
    for (QAction* action : vue_->findChildren<QAction*>())
        if (action->text() == "&Créer un nouveau catalogue")
            action->trigger();
    Calme();
    Chercher();
    EXPECT_EQ(Nombre(), 0);
    EXPECT_EQ(Enfant<QComboBox>(*fenetre_, "LLables")->count(), 1);
}
