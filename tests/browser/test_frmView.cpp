#include <QTest>
#include <QtWidgets>

#include "browser/DelegueIcones.h"
#include "browser/frmView.h"
#include "fenetres/TravailFenetre.h"
#include "outils/Brut.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

class TestVue : public EnvironnementBase {
protected:
    TestVue()
    {
        AjouterMediaTest({"Média", "#a; 1-000000001# 1-000000002#sous"});
        AjouterLignes(1, {{"000000001", "000000002", "sous", "D", " ", " ", " ", " ", {}, "un dossier"},
                          {"000000001", "0", "b.txt", "a", "9 b", " ", " ", " ", {}, "ligne 1\r\nligne 2"},
                          {"000000001", "0", "a.txt", "a", "10 b"},
                          {"000000002", "000000003", "fond", "D"},
                          {"000000002", "0", "c.txt", "a"}});
        Ouvrir();
    }
    void Ouvrir()
    {
        vue_.reset();
        vue_ = std::make_unique<frmView>(dialogues_, choix_, travailleur_);
        vue_->show();
        EXPECT_TRUE(vue_->ChargerArbre());
        Calmer(travailleur_);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(vue_.get()));
    }
    template <typename T>
    T* Trouver(const char* nom)
    {
        return vue_->findChild<T*>(nom);
    }
    QTreeView* Arbre() { return Trouver<QTreeView>("tvTreeView"); }
    QTreeView* Rapport() { return Trouver<QTreeView>("lvRapport"); }
    QString Titre() { return Trouver<QLabel>("titre")->text(); }
    QString Statut() { return Trouver<QLabel>("Commentaire")->text(); }
    QString Description() { return Trouver<QPlainTextEdit>("description")->toPlainText(); }
    QString Cellule(int rang) { return Rapport()->model()->index(rang, 0).data().toString(); }
    QAction* Action(const QString& texte)
    {
        for (QAction* action : vue_->findChildren<QAction*>())
            if (action->text().remove('&') == texte)
                return action;
        return nullptr;
    }
    void Cliquer(QAbstractItemView* vue, const QModelIndex& index)
    {
        vue->scrollTo(index);
        QTest::mouseClick(vue->viewport(), Qt::LeftButton, {}, vue->visualRect(index).center());
        Calmer(travailleur_);
    }
    void Touche(QWidget* vue, Qt::Key touche)
    {
        QTest::keyClick(vue, touche);
        Calmer(travailleur_);
    }
    void Recharger()
    {
        FixerArbreARecharger(true);
        EXPECT_TRUE(vue_->ChargerArbre());
        Calmer(travailleur_);
    }
    void VenirDevant()
    {
        QEvent devant(QEvent::ActivationChange);
        QCoreApplication::sendEvent(vue_.get(), &devant);
        Calmer(travailleur_);
    }
    QModelIndex Noeud(const QString& texte)
    {
        const QModelIndex racine = Arbre()->model()->index(0, 0);
        return Arbre()
            ->model()
            ->match(racine, Qt::DisplayRole, texte, 1, Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }
    void Declencher(const QString& texte)
    {
        Action(texte)->trigger();
        Calmer(travailleur_);
    }

    class AucunLecteur : public ChoixLecteur {
        char Choisir(const MediaDemande&) override { return 0; }
    } choix_;
    QObject contexte_;
    Travail travailleur_{ReveilFenetre(&contexte_, [this] { travailleur_.Livrer(); })};
    std::unique_ptr<frmView> vue_;
};

TEST_F(TestVue, ParcourtALaSouris)
{
    const QModelIndex media = Arbre()->currentIndex();
    EXPECT_EQ(media.data().toString(), "Média");
    EXPECT_EQ(Rapport()->model()->rowCount(), 0) << "nothing is shown before a click";
    EXPECT_FALSE(Action("Lancer le fichier")->isEnabled());

    Cliquer(Arbre(), media);
    EXPECT_EQ(Titre(), "           Média");
    EXPECT_EQ(Statut(), " 3 Objet(s)");
    EXPECT_EQ(media.data(Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 0));

    Cliquer(Rapport(), Rapport()->model()->index(2, 0));
    EXPECT_EQ(Cellule(2), "b.txt");
    EXPECT_EQ(Description(), "ligne 1\nligne 2");
    EXPECT_EQ(Statut(), "");
    EXPECT_TRUE(Action("Lancer le fichier")->isEnabled());

    const QModelIndex dossier = Rapport()->model()->index(0, 0);
    Cliquer(Rapport(), dossier);
    EXPECT_EQ(Description(), "un dossier");
    EXPECT_FALSE(Action("Lancer le fichier")->isEnabled());
    EXPECT_TRUE(Action("Ouvrir l'explorateur windows")->isEnabled());
    QTest::mouseDClick(Rapport()->viewport(), Qt::LeftButton, {}, Rapport()->visualRect(dossier).center());
    Calmer(travailleur_);
    EXPECT_EQ(Titre(), "           sous");
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "sous");
    EXPECT_EQ(Arbre()->model()->rowCount(Arbre()->currentIndex()), 1) << "the directory found there";

    Cliquer(Arbre(), Arbre()->model()->index(0, 0));
    EXPECT_EQ(Statut(), " 1 catalogue(s) ...");
    EXPECT_EQ(Titre(), "");
    EXPECT_FALSE(Action("Lancer le fichier")->isEnabled());
}

TEST_F(TestVue, ParcourtAuClavier)
{
    Arbre()->setFocus();
    Touche(Arbre(), Qt::Key_Right);
    Touche(Arbre(), Qt::Key_Down);
    EXPECT_EQ(Titre(), "           sous");
    EXPECT_EQ(Statut(), " 2 Objet(s)");
    Touche(Arbre(), Qt::Key_Up);
    EXPECT_EQ(Statut(), " 3 Objet(s)");
    Rapport()->setFocus();
    Touche(Rapport(), Qt::Key_Home);
    EXPECT_EQ(Description(), "un dossier");
    Touche(Rapport(), Qt::Key_Return);
    EXPECT_EQ(Titre(), "           sous");
    for (QWidget* widget : {static_cast<QWidget*>(Arbre()), static_cast<QWidget*>(Rapport())})
        EXPECT_FALSE(widget->accessibleName().isEmpty());
}

TEST_F(TestVue, LOrdreGardeRetardeDUnClic)
{
    Cliquer(Arbre(), Arbre()->currentIndex());
    EXPECT_EQ(Cellule(0), "sous");  // by size, ascending
    Rapport()->setCurrentIndex(Rapport()->model()->index(1, 0));
    const QString choisi = Cellule(1);
    QHeaderView* tete = Rapport()->header();
    QTest::mouseClick(tete->viewport(), Qt::LeftButton, {},
                      QPoint(tete->sectionViewportPosition(ColNom) + 20, tete->height() / 2));
    Calmer(travailleur_);
    EXPECT_EQ(Cellule(0), "sous");  // by name, descending: the first click turns the order round
    EXPECT_EQ(Cellule(2), "a.txt");
    EXPECT_EQ(Rapport()->currentIndex().siblingAtColumn(0).data().toString(), choisi);
    EXPECT_EQ(GetSetting(SectionLvListView, "SortKey", ""), "0");
    EXPECT_EQ(GetSetting(SectionLvListView, "SortOrder", ""), "0");
    vue_->close();
    Ouvrir();
    Cliquer(Arbre(), Arbre()->currentIndex());
    EXPECT_EQ(Cellule(0), "a.txt") << "after a restart the order before the last click";
}

TEST_F(TestVue, ChangeDAffichageEtLeGarde)
{
    Cliquer(Arbre(), Arbre()->currentIndex());
    auto* icones = Trouver<QListView>("lvIcones");
    Action("Mosaique")->trigger();
    EXPECT_TRUE(icones->isVisible());
    EXPECT_EQ(GetSetting(SectionSettings, "View", ""), "0");
    Cliquer(icones, icones->model()->index(2, 0));
    EXPECT_EQ(Description(), "ligne 1\nligne 2");
    Rapport()->header()->resizeSection(ColNom, 222);
    vue_->resize(801, 602);
    vue_->close();
    EXPECT_EQ(GetSetting(SectionSettings, "ViewMode", ""), "0");
    EXPECT_EQ(GetSetting(SectionSettings, "MainState", ""), "0");
    EXPECT_EQ(GetSettingNombre(SectionLvListView, "L1", 0), 222 * 15);
    Ouvrir();
    EXPECT_TRUE(Action("Mosaique")->isChecked());
    EXPECT_EQ(Rapport()->header()->sectionSize(ColNom), 222);
    EXPECT_EQ(vue_->size(), QSize(801, 602));
    EXPECT_FALSE(vue_->close()) << "somebody else hides it";
}

TEST_F(TestVue, ChangeDeBase)
{
    Cliquer(Arbre(), Arbre()->currentIndex());
    Declencher("Créer un nouveau catalogue");
    EXPECT_EQ(Rapport()->model()->rowCount(), 3) << "a dialog left changes nothing";
    const std::string nouveau = (travail_ / "nouveau.vlr").string(), ancien = BaseCourante();
    dialogues_.fichier = nouveau;
    Declencher("Créer un nouveau catalogue");
    EXPECT_EQ(vue_->windowTitle().toStdString(), "Velourne (" + nouveau + ")");
    EXPECT_EQ(Rapport()->model()->rowCount(), 0);
    EXPECT_EQ(Arbre()->model()->rowCount(Arbre()->model()->index(0, 0)), 0);
    dialogues_.fichier = ancien;
    Declencher("Ouvrir un catalogue");
    EXPECT_EQ(Arbre()->model()->rowCount(Arbre()->model()->index(0, 0)), 1);
    Cliquer(Arbre(), Arbre()->currentIndex());
    EXPECT_EQ(Rapport()->model()->rowCount(), 3) << "the same key as before the change";
    EXPECT_FALSE(vue_->ChargerArbre()) << "loaded again without being asked";
}

// Clicks and commands that come while others are at work leave what the last ones ask for, and nothing half done.
TEST_F(TestVue, RienNeSeMele)
{
    std::vector<LigneTest> lignes;
    for (int i = 0; i < 20'000; ++i)
        lignes.push_back({"000000002", "0", "f" + std::to_string(i) + ".x" + std::to_string(i % 50), "a"});
    Base base = OpenDatabase(BaseCourante());
    base.CommencerTransaction();
    AjouterLignes(1, lignes);
    base.Valider();
    base.Close();
    Arbre()->expandAll();
    const QModelIndex media = Arbre()->currentIndex(), sous = Arbre()->model()->index(0, 0, media);
    const auto viser = [&](const QModelIndex& index) {
        Arbre()->setCurrentIndex(index);
        QCoreApplication::processEvents();  // the reading begins and is not waited for
    };
    for (int i = 0; i < 5; ++i) {
        viser(sous);
        viser(media);
    }
    Calmer(travailleur_);
    EXPECT_EQ(Rapport()->model()->rowCount(), 3) << "the node clicked last, read or not";
    viser(media);
    viser(sous);
    Calmer(travailleur_);
    EXPECT_EQ(Rapport()->model()->rowCount(), 20'002);
    EXPECT_EQ(Statut(), " 20002 Objet(s)");

    const std::string ancien = BaseCourante(), autre = (travail_ / "autre.vlr").string();
    dialogues_.fichier = autre;
    viser(media);
    viser(sous);
    emit Rapport()->header()->sectionClicked(ColNom);
    Action("Créer un nouveau catalogue")->trigger();
    vue_->tvTreeView_Click();
    vue_->lvListView_Click();
    Calmer(travailleur_);
    EXPECT_EQ(BaseCourante(), autre);
    EXPECT_EQ(Rapport()->model()->rowCount(), 0);
    EXPECT_EQ(ListeExtensions(), "");

    dialogues_.fichier = ancien;
    Action("Ouvrir un catalogue")->trigger();
    EXPECT_FALSE(Action("Supprimer le catalogue en cours")->isEnabled()) << "while the tree is loaded";
    EXPECT_FALSE(vue_->ChargerArbre());
    vue_->tvTreeView_Click();
    Calmer(travailleur_);
    EXPECT_EQ(Arbre()->model()->rowCount(Arbre()->model()->index(0, 0)), 1);
    EXPECT_EQ(ListeExtensions().substr(0, 4), "|txt");
    EXPECT_TRUE(Action("Supprimer le catalogue en cours")->isEnabled());
}

TEST_F(TestVue, MontreToutesLesDescriptions)
{
    using namespace std::string_literals;
    const std::string dessin = "\u00dc\u00db\u00db\u00dc \u00c9\u00cd\u00bb", longue(100'000, 'l');
    const std::pair<std::string, std::string> cas[] = {
        {"avant\0apr\u00e8s\x1a"s, "avant\u2400apr\u00e8s\u241a"},
        {"\x1b[1m\tb\u0085c\u00add", "\u241b[1m\tb c-d"},
        {"mac\rdos\r\nunix\nfin", "mac\ndos\nunix\nfin"},
        {"\r\n" + dessin, "\n" + dessin},
        {longue, longue},  // in lines of a length that can be laid out
    };
    std::vector<LigneTest> lignes;
    for (const auto& [texte, montre] : cas)
        lignes.push_back({"000000001", "0", std::to_string(lignes.size()), "a", " ", " ", " ", " ", {}, texte});
    AjouterLignes(1, lignes);
    Cliquer(Arbre(), Arbre()->currentIndex());
    for (int rang = 0; rang < static_cast<int>(std::size(cas)); ++rang) {
        const QModelIndex debut = Rapport()->model()->index(0, 0);
        const QModelIndex index = debut.model()->match(debut, Qt::DisplayRole, QString::number(rang)).value(0);
        EXPECT_EQ(index.siblingAtColumn(ColDescription).data().toString(), " oui");
        Cliquer(Rapport(), index);
        QString montree = Description();
        if (cas[rang].first == longue)
            montree.remove('\n');
        EXPECT_EQ(montree.toStdString(), cas[rang].second) << rang;
    }
    const QFontMetrics lettres(Trouver<QPlainTextEdit>("description")->font());
    EXPECT_EQ(lettres.horizontalAdvance('i'), lettres.horizontalAdvance('M'));
}

TEST_F(TestVue, UneToucheCliqueLeNoeudQueLeChargementAChoisi)
{
    for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Down, Qt::Key_Right}) {
        Ouvrir();
        EXPECT_EQ(vue_->focusWidget(), Arbre());
        EXPECT_EQ(Rapport()->model()->rowCount(), 0);
        Touche(Arbre(), touche);
        EXPECT_EQ(Titre(), "           Média") << touche;
        EXPECT_EQ(Rapport()->model()->rowCount(), 3) << touche;
    }
    Cliquer(Rapport(), Rapport()->model()->index(0, 0));
    EXPECT_EQ(Description(), "un dossier");
    Touche(Arbre(), Qt::Key_Space);
    EXPECT_EQ(Description(), "") << "of the node again, as after a click";
}

TEST_F(TestVue, OuvrirNEcritRienDansLesReglages)
{
    const auto reglages = [this] { return Contenu(racine_ / "config" / "velourne" / "reglages"); };
    const std::string avant = reglages();
    Ouvrir();
    Cliquer(Arbre(), Arbre()->currentIndex());
    vue_->resize(700, 500);
    Recharger();
    EXPECT_EQ(reglages(), avant);
}

TEST_F(TestVue, GardeCeQuiEstOuvertDUnChargementALAutre)
{
    Arbre()->expand(Arbre()->currentIndex());
    Cliquer(Arbre(), Noeud("sous"));
    Arbre()->expand(Arbre()->currentIndex());
    ASSERT_TRUE(Noeud("fond").isValid()) << "found by the click only";
    Cliquer(Arbre(), Noeud("fond"));
    Cliquer(Arbre(), Noeud("sous"));
    Cliquer(Rapport(), Rapport()->model()->index(1, 0));
    const QString choisi = Rapport()->currentIndex().siblingAtColumn(ColNom).data().toString();
    AjouterMediaTest({"Autre", "#a; 2-000000001# 2-000000002#fermé"});

    for (QWidget* focus : {static_cast<QWidget*>(Arbre()), static_cast<QWidget*>(Rapport()),
                           static_cast<QWidget*>(Trouver<QPlainTextEdit>("description"))}) {
        focus->setFocus();
        Recharger();
        EXPECT_EQ(Arbre()->currentIndex().data().toString(), "sous");
        EXPECT_EQ(Titre(), "           sous");
        EXPECT_TRUE(Arbre()->isExpanded(Noeud("Média")));
        EXPECT_TRUE(Arbre()->isExpanded(Noeud("sous"))) << "with the nodes that no tree text has";
        EXPECT_FALSE(Arbre()->isExpanded(Noeud("Autre")));
        EXPECT_EQ(Rapport()->model()->rowCount(), 2);
        EXPECT_EQ(Rapport()->currentIndex().siblingAtColumn(ColNom).data().toString(), choisi);
        EXPECT_EQ(vue_->focusWidget(), focus);
    }

    Cliquer(Arbre(), Noeud("Média"));
    Recharger();
    EXPECT_TRUE(Arbre()->isExpanded(Noeud("sous")) && Noeud("fond").isValid()) << "though nothing below is selected";
    Cliquer(Arbre(), Noeud("sous"));

    Brut(BaseCourante(), "update Catalogue set Tree = '#a' where Num = 1; delete from Liste where Nom = 'sous'");
    Recharger();
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "Média") << "the nearest one that is left";
    FixerMediaAMontrer(2);
    Recharger();
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "Autre");
    EXPECT_EQ(Rapport()->model()->rowCount(), 0) << "selected, and not clicked";

    // The same keys in another base are other nodes.
    FixerBaseCourante((travail_ / "autre.vlr").string());
    ASSERT_TRUE(CopierModele(BaseCourante()));
    AjouterMediaTest({"A", "#a; 1-000000001# 1-000000002#x"});
    AjouterMediaTest({"B", "#a"});
    AjouterMediaTest({"C", "#a"});
    EXPECT_TRUE(vue_->ChargerArbre()) << "the tree of a base that is current no more";
    Calmer(travailleur_);
    EXPECT_EQ(vue_->windowTitle().toStdString(), "Velourne (" + BaseCourante() + ")");
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "C") << "the last one of a first loading";
}

TEST_F(TestVue, GardeLaPlaceDansUnLongArbre)
{
    for (int i = 0; i < 200; ++i)
        AjouterMediaTest({"m" + std::to_string(1000 + i), "#a"});
    Recharger();
    Cliquer(Arbre(), Noeud("m1100"));
    Arbre()->verticalScrollBar()->setValue(120);
    const QString haut = Arbre()->indexAt({0, 0}).data().toString();
    AjouterMediaTest({"a, ahead of all others", "#a"});
    Recharger();
    EXPECT_EQ(Arbre()->indexAt({0, 0}).data().toString(), haut);
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "m1100");
}

TEST_F(TestVue, DitPourquoiLaBaseNeSOuvrePas)
{
    const std::string base = BaseCourante(), octets = Contenu(base);
    const auto dite = [&] { return Statut().toStdString().find(base) != std::string::npos; };
    Ecrire(base, "d'un autre programme");
    Cliquer(Arbre(), Arbre()->currentIndex());
    EXPECT_TRUE(dite()) << Statut().toStdString();
    VenirDevant();
    EXPECT_TRUE(dite());
    Ecrire(base, octets);
    VenirDevant();
    EXPECT_FALSE(dite());
    EXPECT_EQ(Rapport()->model()->rowCount(), 3) << "what could not be read is read";

    Arbre()->expand(Arbre()->currentIndex());
    Ecrire(base, "d'un autre programme");
    Recharger();
    EXPECT_TRUE(dite());
    EXPECT_FALSE(Trouver<QWidget>("accueil")->isVisible()) << "nobody knows whether it is empty";
    EXPECT_EQ(Contenu(base), "d'un autre programme");
    Ecrire(base, octets);
    VenirDevant();
    EXPECT_FALSE(dite());
    EXPECT_TRUE(Arbre()->isExpanded(Noeud("Média"))) << "open before it was away";

    std::filesystem::remove(base);
    Recharger();
    EXPECT_NE(BaseCourante(), base);
    EXPECT_EQ(vue_->windowTitle().toStdString(), "Velourne (" + BaseCourante() + ")");
    EXPECT_TRUE(dite());
}

TEST_F(TestVue, UnCatalogueVideDitCommentCommencer)
{
    QWidget* accueil = Trouver<QWidget>("accueil");
    EXPECT_FALSE(accueil->isVisible());
    dialogues_.fichier = (travail_ / "vide.vlr").string();
    Declencher("Créer un nouveau catalogue");
    EXPECT_TRUE(accueil->isVisible());
    int voulu = 0;
    QObject::connect(vue_.get(), &frmView::ajoutVoulu, [&] { ++voulu; });
    QTest::mouseClick(Trouver<QPushButton>("ajouter"), Qt::LeftButton);
    EXPECT_EQ(voulu, 1);
    AjouterMediaTest({"Premier", "#a"});
    Recharger();
    EXPECT_FALSE(accueil->isVisible());
}

TEST_F(TestVue, LesColonnesVontAuxTextes)
{
    AjouterLignes(1, {{"000000001", "0", "t", "a", "1 Ko", "Image de photographe au long nom"}});
    Cliquer(Arbre(), Arbre()->currentIndex());
    const QFontMetrics lettres = Rapport()->fontMetrics();
    QHeaderView* tete = Rapport()->header();
    EXPECT_GT(tete->sectionSize(ColType), lettres.horizontalAdvance("Image de photographe au long nom"));
    EXPECT_TRUE(Rapport()->model()->index(0, ColTaille).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    tete->resizeSection(ColType, 50);
    Recharger();
    EXPECT_EQ(tete->sectionSize(ColType), 50) << "chosen by hand";
    vue_->close();
    Ouvrir();
    Cliquer(Arbre(), Arbre()->currentIndex());
    EXPECT_EQ(Rapport()->header()->sectionSize(ColType), 50) << "and kept";
}

TEST_F(TestVue, LesIconesMontrentLesNoms)
{
    auto* icones = Trouver<QListView>("lvIcones");
    const QFontMetrics lettres = icones->fontMetrics();
    const int lettre = lettres.averageCharWidth();
    Declencher("Liste");
    Cliquer(Arbre(), Arbre()->currentIndex());
    const int etroite = icones->gridSize().width();
    const std::string moyen = "Rapport de la semaine.odt";
    AjouterLignes(1, {{"000000001", "0", moyen, "a"}});
    Recharger();
    EXPECT_GT(icones->gridSize().width(), etroite);
    EXPECT_GE(icones->visualRect(icones->model()->index(0, 0)).width(),
              lettres.horizontalAdvance(QString::fromStdString(moyen)) + icones->iconSize().width());
    AjouterLignes(1, {{"000000001", "0", std::string(200, 'x') + ".odt", "a"}});
    Recharger();
    EXPECT_LT(icones->gridSize().width(), 40 * lettre + 60);
    Declencher("Mosaique");
    EXPECT_LT(icones->gridSize().width(), 20 * lettre + 60);

    const int largeur = 20 * lettre;
    for (const auto& [nom, lignes] :
         {std::pair("f.z", 1), std::pair("archive.zip", 1), std::pair("", 1),
          std::pair("photo des vacances à la mer.jpg", 2), std::pair("unelonguesuitesansblanc.mp3.gz", 2),
          std::pair("une très longue suite de mots qui ne tient pas en deux lignes.jpg", 2)}) {
        const QStringList montrees = DelegueIcones::Lignes(nom, icones->font(), largeur);
        EXPECT_EQ(montrees.size(), lignes) << nom;
        const QString tout = montrees.join("");
        EXPECT_EQ(tout.contains("…"), std::string(nom).find("deux lignes") != std::string::npos) << nom;
        EXPECT_EQ(tout.right(3), QString(nom).right(3)) << nom;
        for (const QString& ligne : montrees)
            EXPECT_LE(lettres.horizontalAdvance(ligne), largeur) << nom;
    }
}
