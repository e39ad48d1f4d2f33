#include <map>
#include <set>

#include <QSignalSpy>
#include <QTest>
#include <QtWidgets>

#include "browser/BasesRecentes.h"
#include "browser/frmView.h"
#include "catalogue/Cles.h"
#include "fenetres/TravailFenetre.h"
#include "menus/Mnemoniques.h"
#include "menus/StyleMenus.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "platform/Lecteurs.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

class TestMenus : public EnvironnementBase {
protected:
    TestMenus()
    {
        AjouterMediaTest({"Média", "#a; 1-000000001# 1-000000002#sous", "Disque Local", true, " Ma catégorie "});
        AjouterMediaTest({"Zéro", "#a", "Disque Local", true, "Cd Mp3"});
        const auto lignes = AjouterLignes(1, {{"000000000", "000000001", "E:", "D"},
                                              {"000000001", "000000002", "sous", "D", " ", " ", " ", " ", "<b>dessous"},
                                              {"000000001", "0", "a.zip", "a", "7 b"},
                                              {"000000001", "0", "brut.txt", "a", "9 b", " ", " ", " ", "net.txt"},
                                              {"000000002", "0", "fond.txt", "a"}});
        AjouterLignes(1, {{CleArchive(lignes[2], 1), "0", "membre.txt", " "}});
        Ouvrir();
    }
    void Ouvrir()
    {
        vue_ = std::make_unique<frmView>(dialogues_, choix_, travailleur_);
        vue_->show();
        EXPECT_TRUE(vue_->ChargerArbre());
        Calmer(travailleur_);
        ASSERT_TRUE(QTest::qWaitForWindowActive(vue_.get()));
        Arbre()->expandAll();
    }
    QTreeView* Arbre() { return Enfant<QTreeView>(*vue_, "tvTreeView"); }
    QTreeView* Rapport() { return Enfant<QTreeView>(*vue_, "lvRapport"); }
    QLabel* Titre() { return Enfant<QLabel>(*vue_, "titre"); }
    QAction* Action(const char* nom) { return Enfant<QAction>(*vue_, nom); }
    QString Courant(QTreeView* vue) { return vue->currentIndex().siblingAtColumn(0).data().toString(); }
    void Choisir(QTreeView* vue, const QString& texte)
    {
        const QModelIndex debut = vue->model()->index(0, 0);
        const QModelIndex index =
            vue->model()->match(debut, Qt::DisplayRole, texte, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
        ASSERT_TRUE(index.isValid()) << texte.toStdString();
        vue->setFocus();
        vue->setCurrentIndex(index);
        Calmer(travailleur_);
    }
    void Touche(QWidget* widget, Qt::Key touche, Qt::KeyboardModifiers avec = {})
    {
        QTest::keyClick(widget, touche, avec);
        Calmer(travailleur_);
    }
    std::string Copie(QWidget* widget)
    {
        QGuiApplication::clipboard()->clear();
        Touche(widget, Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text().toStdString();
    }
    // The menu behind a command, filled as it is when it opens.
    QMenu* Ouvert(const char* nom)
    {
        QMenu* menu = Action(nom)->menu();
        emit menu->aboutToShow();
        Calmer(travailleur_);
        EXPECT_TRUE(Attendre([&] { return menu->actions().size() != 1 || menu->actions().first()->isEnabled(); }));
        return menu;
    }
    static QStringList Textes(const QMenu& menu)
    {
        QStringList textes;
        for (const QAction* action : menu.actions())
            textes << SansMnemonique(action->text());
        return textes;
    }
    // Asks a view for its menu, hands that to `lire` and closes it.
    void DansLeMenu(QAbstractScrollArea* vue, const std::function<void(const QMenu&)>& lire)
    {
        bool lu = false;
        QTimer guetteur;
        guetteur.callOnTimeout([&] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                lu = true;
                lire(*menu);
                menu->close();
            }
        });
        guetteur.start(1);
        emit vue->customContextMenuRequested(QPoint(5, 5));
        EXPECT_TRUE(lu) << vue->objectName().toStdString();
    }

    class AucunLecteur : public ChoixLecteur {
        char Choisir(const MediaDemande&) override { return 0; }
    } choix_;
    QObject contexte_;
    Travail travailleur_{ReveilFenetre(&contexte_, [this] { travailleur_.Livrer(); })};
    std::unique_ptr<frmView> vue_;
};

// Each entry has a letter of its own and a picture, but for some words.
void VerifierMenu(const QString& nom, const QMenu& menu, bool images = true)
{
    std::map<QChar, QString> lettres;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator())
            continue;
        const QChar lettre = Mnemonique(action->text());
        EXPECT_FALSE(lettre.isNull()) << nom.toStdString() << ": " << action->text().toStdString();
        EXPECT_TRUE(lettres.emplace(lettre, action->text()).second)
            << nom.toStdString() << ": " << action->text().toStdString() << ", " << lettres[lettre].toStdString();
        if (images && action->text() != "Tout &sélectionner") {
            EXPECT_FALSE(action->icon().pixmap(16).isNull()) << action->text().toStdString();
        }
    }
    EXPECT_GT(lettres.size(), nom == "Aide" || nom == "lecteurs" || nom == "polices" ? 0U : 3U) << nom.toStdString();
}

}  // namespace

TEST_F(TestMenus, ChaqueEntreeASaLettreEtSonImage)
{
    Choisir(Arbre(), "Média");
    std::set<QChar> titres;
    for (const QAction* titre : vue_->menuBar()->actions()) {
        EXPECT_TRUE(titres.insert(Mnemonique(titre->text())).second) << titre->text().toStdString();
        VerifierMenu(SansMnemonique(titre->text()), *titre->menu());
    }
    auto* description = Enfant<QPlainTextEdit>(*vue_, "description");
    const auto verifier = [](const char* nom) {
        return [nom](const QMenu& menu) {
            EXPECT_EQ(menu.objectName(), nom);
            VerifierMenu(nom, menu);
        };
    };
    DansLeMenu(Arbre(), verifier("MnuRepert"));
    DansLeMenu(description, verifier("MnuDescr"));
    Choisir(Rapport(), "net.txt");
    DansLeMenu(Rapport(), verifier("MnuFile"));
    DansLeMenu(description, verifier("MnuDescrLv"));

    // A key is nobody else's, but for those that tree and list give a meaning to.
    std::set<QKeySequence> touches;
    for (const QAction* action : vue_->findChildren<QAction*>())
        if (!action->shortcut().isEmpty() && action->shortcutContext() != Qt::WidgetShortcut) {
            EXPECT_TRUE(touches.insert(action->shortcut()).second) << action->shortcut().toString().toStdString();
        }
}

TEST_F(TestMenus, MonteReculeEtCopie)
{
    EXPECT_FALSE(Action("Reculer")->isEnabled());
    Choisir(Arbre(), "Média");
    EXPECT_EQ(Titre()->toolTip(), "E:");
    Choisir(Arbre(), "sous");
    EXPECT_EQ(Titre()->toolTip(), "E:\\sous");
    EXPECT_EQ(Copie(Arbre()), "E:\\sous");
    Choisir(Rapport(), "fond.txt");
    EXPECT_EQ(Copie(Rapport()), "E:\\sous\\fond.txt");

    // From the list to the entry that was left, from the tree without leaving it.
    Touche(Rapport(), Qt::Key_Backspace);
    EXPECT_EQ(Courant(Arbre()), "Média");
    EXPECT_EQ(Courant(Rapport()), "<b>dessous");
    EXPECT_TRUE(Rapport()->hasFocus());
    EXPECT_EQ(Copie(Rapport()), "E:\\<b>dessous");
    Choisir(Arbre(), "a.zip");
    Choisir(Rapport(), "membre.txt");
    EXPECT_EQ(Copie(Rapport()), "E:\\a.zip\\membre.txt");
    Touche(Rapport(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Courant(Rapport()), "a.zip");
    Arbre()->setFocus();
    Touche(Arbre(), Qt::Key_Backspace);
    EXPECT_EQ(Courant(Arbre()), "Liste des catalogues");
    EXPECT_TRUE(Arbre()->hasFocus());
    EXPECT_EQ(Copie(Arbre()), "") << "the root has no path";
    Touche(Arbre(), Qt::Key_Backspace);
    EXPECT_EQ(Courant(Arbre()), "Liste des catalogues");

    // Back through all that was seen: Média, sous, Média, a.zip, Média; what has gone is passed over.
    for (const char* vu : {"Média", "a.zip", "Média", "sous"}) {
        Touche(Arbre(), Qt::Key_Left, Qt::AltModifier);
        EXPECT_EQ(Courant(Arbre()), vu);
    }
    Choisir(Arbre(), "Zéro");
    Choisir(Arbre(), "sous");
    Choisir(Arbre(), "Zéro");
    Choisir(Arbre(), "sous");
    Touche(Arbre(), Qt::Key_Delete);
    EXPECT_EQ(Courant(Arbre()), "a.zip");
    Touche(Arbre(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Courant(Arbre()), "Zéro");
    EXPECT_EQ(Titre()->toolTip(), "Zéro") << "no row for its top";
    Touche(Arbre(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Courant(Arbre()), "Média");
    EXPECT_FALSE(Action("Reculer")->isEnabled());
}

TEST_F(TestMenus, LesTouchesDesVuesEtLaFrappe)
{
    Choisir(Arbre(), "Média");
    QTest::keyClicks(Arbre(), "z");
    Calmer(travailleur_);
    EXPECT_EQ(Courant(Arbre()), "Zéro");
    Choisir(Arbre(), "Média");
    Rapport()->setFocus();
    QTest::keyClicks(Rapport(), "net");
    Calmer(travailleur_);
    EXPECT_EQ(Courant(Rapport()), "net.txt") << "by the name that is shown";
    EXPECT_EQ(Rapport()->currentIndex().data(Qt::DisplayRole).toString(), "net.txt");

    // F5 reads what others have written meanwhile.
    AjouterMediaTest({"Zut", "#a"});
    Touche(Rapport(), Qt::Key_F5);
    EXPECT_EQ(Arbre()->model()->rowCount(Arbre()->model()->index(0, 0)), 3);

    // F2 renames what is selected: the directory, not its media.
    for (const auto& [noeud, titre] :
         {std::pair{"Média", "Modifier le label du média"}, {"sous", "Modifier le nom du répertoire"}}) {
        Choisir(Arbre(), noeud);
        QString vu;
        QTimer guetteur;
        guetteur.callOnTimeout([&] {
            if (auto* dialogue = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                vu = dialogue->windowTitle();
                dialogue->reject();
            }
        });
        guetteur.start(1);
        Touche(Arbre(), Qt::Key_F2);
        EXPECT_EQ(vu, titre);
    }

    // What is selected elsewhere does not count: the key belongs to the view that has it.
    Choisir(Arbre(), "Média");
    Choisir(Rapport(), "net.txt");
    QSignalSpy proprietes(vue_.get(), &frmView::proprietesVoulues);
    Touche(Rapport(), Qt::Key_Return, Qt::AltModifier);
    Touche(Arbre(), Qt::Key_Return, Qt::AltModifier);
    ASSERT_EQ(proprietes.size(), 2);
    EXPECT_TRUE(proprietes[0][1].toBool() && !proprietes[0][2].toBool()) << "of the file";
    EXPECT_TRUE(proprietes[1][2].toBool()) << "of the media";
    dialogues_.oui = false;
    Touche(Rapport(), Qt::Key_Delete);
    EXPECT_EQ(dialogues_.dites.back(), "Voulez-vous réellement retirer 'net.txt' du catalogue ?");
    Arbre()->setFocus();
    Touche(Arbre(), Qt::Key_Delete);
    EXPECT_EQ(dialogues_.dites.back(), "Voulez-vous réellement supprimer ce média : Média ?");
}

TEST_F(TestMenus, OffreLesLecteursEtLesCategories)
{
    std::filesystem::create_directory(travail_ / "R & D");
    ASSERT_TRUE(DonnerLettre('t', (travail_ / "R & D").string()));
    QSignalSpy ajouts(vue_.get(), &frmView::ajoutVoulu);
    QMenu* lecteurs = Ouvert("AjouterDepuis");
    VerifierMenu("lecteurs", *lecteurs);
    const qsizetype rang = Textes(*lecteurs).indexOf("T [R & D]");
    ASSERT_GE(rang, 0);
    lecteurs->actions().at(rang)->trigger();
    ASSERT_EQ(ajouts.size(), 1);
    EXPECT_EQ(ajouts[0][0].value<char>(), 't');
    QAction* gardee = lecteurs->actions().at(rang);
    EXPECT_EQ(Ouvert("AjouterDepuis")->actions().at(rang), gardee) << "the same entries, not made anew";

    std::vector<std::pair<std::string, std::string>> voulues;
    QObject::connect(vue_.get(), &frmView::categorieVoulue,
                     [&](const std::string& media, const std::string& nom) { voulues.emplace_back(media, nom); });
    SaveSetting(SectionTypes, "Cd Mp3", "255");
    Choisir(Arbre(), "Zéro");
    QMenu* categories = Ouvert("CategorieMedia");
    EXPECT_EQ(Textes(*categories), QStringList({"Cd Audio", "Cd Mp3", "Cd Utilitaire", "Cd Data", "Cd Divx",
                                                "Ma catégorie", "", "Aucune catégorie"}));
    EXPECT_EQ(categories->actions().at(1)->icon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    Choisir(Arbre(), "sous");
    categories = Ouvert("CategorieMedia");
    for (int i = 0; i < categories->actions().size(); ++i)
        EXPECT_EQ(categories->actions().at(i)->isChecked(), i == 5) << i;
    categories->actions().at(0)->trigger();
    categories->actions().last()->trigger();
    EXPECT_EQ(voulues, (std::vector<std::pair<std::string, std::string>>{{"1", "Cd Audio"}, {"1", ""}}));
    Choisir(Arbre(), "Liste des catalogues");
    EXPECT_FALSE(Action("CategorieMedia")->isEnabled());
}

TEST_F(TestMenus, RetientLesBases)
{
    const std::string premiere = BaseCourante();
    for (int i = 0; i < 9; ++i) {
        dialogues_.fichier = (travail_ / ("base " + std::to_string(i) + " & co.vlr")).string();
        Action("Repert 0")->trigger();
        Calmer(travailleur_);
    }
    ASSERT_EQ(BasesRecentes().size(), 8U);
    EXPECT_EQ(BasesRecentes()[0], dialogues_.fichier);
    const std::string partie = BasesRecentes()[3], voulue = BasesRecentes()[2];
    std::filesystem::remove(partie);
    QMenu* bases = Ouvert("BasesRecentes");
    EXPECT_TRUE(Attendre([&] { return !bases->actions().at(3)->isEnabled(); }));
    VerifierMenu("bases", *bases, false);
    EXPECT_TRUE(bases->actions().at(0)->isChecked());
    EXPECT_EQ(bases->actions().at(2)->toolTip().toStdString(), voulue);
    bases->actions().at(2)->trigger();
    Calmer(travailleur_);
    EXPECT_EQ(BaseCourante(), voulue);
    EXPECT_EQ(BasesRecentes()[0], voulue);
    EXPECT_EQ(BasesRecentes().size(), 8U);
    // One that goes between look and choice changes nothing.
    std::filesystem::remove(BasesRecentes()[1]);
    Ouvert("BasesRecentes")->actions().at(1)->trigger();
    Calmer(travailleur_);
    EXPECT_EQ(BaseCourante(), voulue);
    EXPECT_NE(BaseCourante(), premiere);
}

TEST_F(TestMenus, ChangeDePoliceEtDeDegrade)
{
    auto* description = Enfant<QPlainTextEdit>(*vue_, "description");
    const QFont bureau = description->font();
    QMenu* polices = Ouvert("PoliceDescription");
    VerifierMenu("polices", *polices, false);
    EXPECT_TRUE(polices->actions().first()->isChecked());
    const QString autre = Textes(*polices).last();
    polices->actions().last()->trigger();
    EXPECT_EQ(description->font().family(), autre);
    EXPECT_EQ(description->font().pointSizeF(), bureau.pointSizeF());
    EXPECT_TRUE(Ouvert("PoliceDescription")->actions().last()->isChecked());
    Ouvrir();
    description = Enfant<QPlainTextEdit>(*vue_, "description");
    EXPECT_EQ(description->font().family(), autre);
    SaveSetting(SectionSettings, ClePoliceDescription, "Police partie");
    vue_->RelireOptions();
    EXPECT_EQ(description->font().family(), bureau.family());

    QApplication::setStyle(new StyleMenus);
    QMenu menu;
    menu.addAction("Entrée");
    const int simple = menu.sizeHint().width();
    for (const char* valeur : {"1", "0", "1", ""}) {
        SaveSetting(SectionSettings, CleOptionsDivers[1], valeur);
        vue_->RelireOptions();
        EXPECT_EQ(menu.sizeHint().width() > simple, *valeur == '1') << valeur;
    }
}
