#include "loans/FrmPropriete.h"

#include <memory>

#include <QColorDialog>
#include <QTest>

#include "browser/frmView.h"
#include "catalogue/Cles.h"
#include "loans/ChoixCouleur.h"
#include "outils/Brut.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "shell/Fenetres.h"
#include "shell/FrmMain.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

class Proprietes : public EnvironnementBase {
protected:
    Proprietes()
    {
        SaveSetting(SectionTypes, "Cd Mp3", "16711680");
        AjouterMediaTest({"Le média", "#D:", "Disque Local", true, "Cd Mp3", "", "D", "", "12AB-34CD", "1,50 Go"});
        AjouterMediaTest({"Second", "#D:", "Disque Local", true, "Cd Mp3"});
        AjouterMediaTest({"Troisième", "#D:", "Disque Local", true, "Cd Data"});
        AjouterLignes(1, {{"000000000", "000000001", "D:", "D"},
                          {"000000001", "000000002", "l'été", "D", " ", " ", "20030615", "10:11:12", "alias",
                           "<photo>/p.png</photo>un\r\ndossier"},
                          {"000000001", "0", "a'b.txt", "r....a....", "9 b", "t", "2003", "1:02:03", {}, "un fichier"},
                          {"000000001", "0", "c.zip", "a", "1 b"},
                          {"A 4 1", "A 4 2", "dedans", "Z"}});
        for (int media : {2, 3})
            AjouterLignes(media, {{"000000000", "000000001", "E:", "D"}});
        Brut(BaseCourante(), "insert into Pret (Num, Nom, PreNom) values (7, 'MARTIN', 'jean'), (3, 'Dupont', ' ')");
        fenetres_.Demarrer();
        Enfant<QToolButton>(*Fenetre<FrmMain>(), "Visualiser")->click();
        Calme();
        vue_ = Fenetre<frmView>();
    }
    static std::string Un(const std::string& enonce) { return Brut(BaseCourante(), enonce).at(0); }
    static std::string NPret(int media)
    {
        return Un("select NPret from Catalogue where Num = " + std::to_string(media));
    }
    void Calme() { Calmer(fenetres_.Ouvrage()); }

    void Ouvrir(const std::string& cle = CleMedia(1), bool fichier = false)
    {
        fenetre_ = std::make_unique<FrmPropriete>(dialogues_, fenetres_.Ouvrage(), SujetDeCle(cle, fichier));
        QObject::connect(fenetre_.get(), &FrmPropriete::couleursChangees, vue_, &frmView::ChangerCouleurs);
        fenetre_->show();
        Calme();
    }
    QTabWidget* Onglets() { return Enfant<QTabWidget>(*fenetre_, "Onglet"); }
    QComboBox* Pret() { return Enfant<QComboBox>(*fenetre_, "Pret"); }
    QLineEdit* Categorie() { return Enfant<QLineEdit>(*fenetre_, "Categorie"); }
    QListWidget* Types() { return Enfant<QListWidget>(*fenetre_, "TreeStyle"); }
    QPushButton* Bouton(const char* nom) { return Enfant<QPushButton>(*fenetre_, nom); }
    std::string Valeur(const std::string& nom)
    {
        return Enfant<QLineEdit>(*fenetre_, nom.c_str())->text().toStdString();
    }
    void Cliquer(const char* nom)
    {
        Bouton(nom)->click();
        Calme();
    }
    void Taper(const QString& texte)
    {
        Pret()->lineEdit()->selectAll();
        texte.isEmpty() ? QTest::keyClick(Pret()->lineEdit(), Qt::Key_Delete)
                        : QTest::keyClicks(Pret()->lineEdit(), texte);
    }
    void Choisir(int rang)
    {
        Pret()->setCurrentIndex(rang);
        emit Pret()->activated(rang);
    }
    // Names the colour of a node of the tree, "" for the palette's.
    std::string Couleur(int rang)
    {
        auto* modele = Enfant<QTreeView>(*vue_, "tvTreeView")->model();
        const QVariant couleur = modele->index(rang, 0, modele->index(0, 0)).data(Qt::ForegroundRole);
        return couleur.isValid() ? couleur.value<QColor>().name().toStdString() : "";
    }

    Fenetres fenetres_{dialogues_};
    frmView* vue_ = nullptr;
    std::unique_ptr<FrmPropriete> fenetre_;
};

}  // namespace

TEST_F(Proprietes, EachKindOfEntryHasItsTab)
{
    struct Cas {
        std::string cle;
        bool fichier;
        int onglet;
        std::vector<std::string> valeurs;  // name, time, date, size, attributes
        const char* description;
    };
    const Cas tous[] = {
        {CleMedia(1), false, 0, {}, ""},
        {CleRepertoire(1, "000000002"), false, 1, {"alias", "10:11:12", "15/06/2003", " ", "D"}, "un\ndossier"},
        {CleRepertoire(1, "A 4 2"), false, 1, {"dedans", " ", "", " ", "Z"}, ""},
        {CleFichier(1, 3), true, 2, {"a'b.txt", "1:02:03", "", "9 b", "r....a...."}, "un fichier"},
        {CleArchive(4, 1), false, 2, {"c.zip", " ", "", "1 b", "a"}, ""},
        {CleFichier(1, 99), true, 2, {"", "", "", "", ""}, ""},
        {CleRepertoire(88, "000000002"), false, 1, {"", "", "", "", ""}, ""},
    };
    SaveSetting(SectionPropriete, "Onglet", "2");
    for (const Cas& cas : tous) {
        SCOPED_TRACE(cas.cle);
        Ouvrir(cas.cle, cas.fichier);
        EXPECT_EQ(Onglets()->currentIndex(), cas.onglet);
        EXPECT_EQ(GetSetting(SectionPropriete, "Onglet", "-"), "2") << "what was not chosen is not kept";
        for (int i = 1; i < 3; ++i)
            EXPECT_EQ(Onglets()->isTabEnabled(i), i == cas.onglet) << i;
        EXPECT_EQ(Valeur("Media0"), cas.cle.find("88") == std::string::npos ? "Le média" : "");
        if (cas.valeurs.empty())
            continue;
        const std::string page = cas.onglet == 1 ? "Rep" : "Fic";
        EXPECT_EQ(Valeur(page + "Nom"), cas.valeurs[0]);
        for (size_t i = 1; i < cas.valeurs.size(); ++i)
            EXPECT_EQ(Valeur(page + std::to_string(i - 1)), cas.valeurs[i]) << i;
        EXPECT_EQ(Enfant<QPlainTextEdit>(*fenetre_, (page + "Description").c_str())->toPlainText(), cas.description);
    }
    Onglets()->setCurrentIndex(0);
    EXPECT_EQ(GetSetting(SectionPropriete, "Onglet", "-"), "0");
    Ouvrir(CleFichier(1, 3), true);
    EXPECT_EQ(Onglets()->currentIndex(), 0) << "the tab last used comes back";
    EXPECT_EQ(Valeur("Media1"), "12AB-34CD");
    EXPECT_EQ(Valeur("Media3"), "1,50 Go");
}

// The browser's menu gives categories without this window.
TEST_F(Proprietes, TheMenuOfTheBrowserGivesCategories)
{
    ASSERT_EQ(Couleur(1), "#0000ff");
    const std::tuple<const char*, const char*, const char*> cas[] = {
        {"Cd Data", "Cd Data", ""}, {"Cd Mp3", "Cd Mp3", "#0000ff"}, {"", " ", ""}};
    for (const auto& [voulue, stockee, couleur] : cas) {
        emit vue_->categorieVoulue("2", voulue);
        Calme();
        EXPECT_EQ(Un("select Categorie from Catalogue where Num = 2"), stockee);
        EXPECT_EQ(Couleur(1), couleur) << voulue;
    }
    EXPECT_EQ(Un("select Categorie from Catalogue where Num = 1"), "Cd Mp3");
}

TEST_F(Proprietes, ALoanGoesToTheOneTypedOrChosen)
{
    struct Cas {
        const char* tape;
        std::string pret;      // afterwards
        const char* personne;  // "first name|name" of the borrower
        int nombre;            // of borrowers
    };
    const Cas tous[] = {
        {"JEAN, martin ", "7", "jean|MARTIN", 2},
        {"Dupont", "8", " |Dupont", 3},  // the row reads " , Dupont"
        {", dupont", "3", " |Dupont", 3},
        {"anne marie,  O'Neil, fille", "9", "anne marie|O'Neil, fille", 4},
        {",", "10", " | ", 5},
        {"12", "11", " |12", 6},
        {"  ", "0", nullptr, 6},
        {"", "0", nullptr, 6},
    };
    Ouvrir();
    for (const Cas& cas : tous) {
        SCOPED_TRACE(cas.tape);
        Taper(cas.tape);
        QTest::keyClick(Pret()->lineEdit(), Qt::Key_Return);
        Calme();
        EXPECT_TRUE(fenetre_->isVisible());
        EXPECT_EQ(NPret(1), cas.pret);
        EXPECT_EQ(Un("select count(*) from Pret"), std::to_string(cas.nombre));
        if (cas.personne) {
            EXPECT_EQ(Un("select PreNom || '|' || Nom from Pret where Num = " + cas.pret), cas.personne);
        }
        EXPECT_EQ(Pret()->currentText().isEmpty(), cas.pret == "0");
    }
    EXPECT_EQ(dialogues_.dites, std::vector<std::string>(std::size(tous), "Le prêt est validé !"));
    EXPECT_EQ(Un("select count(*) from Pret where adresse = ' ' and email = ' '"), "4");
    EXPECT_EQ(NPret(2), "(null)");
}

TEST_F(Proprietes, AChosenBorrowerStaysUntilTheFieldIsEmptied)
{
    Brut(BaseCourante(), "insert into Pret (Num, Nom, PreNom) values (20, 'MARTIN', 'jean')");
    Ouvrir();
    ASSERT_EQ(Pret()->count(), 3);
    Choisir(2);
    Cliquer("Btn_pret");
    EXPECT_EQ(NPret(1), "20") << "the second of two of the same name";
    Cliquer("Btn_pret");
    EXPECT_EQ(NPret(1), "20") << "nothing was changed";
    Taper("Paul, NEUF");
    Cliquer("Btn_pret");
    EXPECT_EQ(NPret(1), "21") << "typed over what the base had";
    Choisir(0);
    Taper("autre");
    Cliquer("Btn_pret");
    EXPECT_EQ(NPret(1), "3") << "typed over what was chosen";
    EXPECT_EQ(Pret()->currentText(), " , Dupont") << "and the field says so";
    Choisir(0);
    Taper("");
    Taper("autre");
    Cliquer("Btn_pret");
    EXPECT_EQ(NPret(1), "22");
}

TEST_F(Proprietes, ALongNameIsCutAndAMediaThatIsGoneChangesNothing)
{
    Ouvrir();
    QApplication::clipboard()->setText(QString(5000, 'n'));
    Pret()->lineEdit()->selectAll();
    Pret()->lineEdit()->paste();
    Cliquer("Btn_pret");
    EXPECT_EQ(Un("select length(Nom) from Pret where Num = 8"), "255");

    Brut(BaseCourante(), "delete from Catalogue where Num = 1");
    Taper("Neuf");
    dialogues_.dites.clear();
    Cliquer("Btn_pret");
    Cliquer("DeleteCat");
    EXPECT_EQ(Un("select count(*) from Pret"), "3") << "no borrower without a loan";
    EXPECT_TRUE(dialogues_.dites.empty());
    EXPECT_EQ(Pret()->currentText(), "Neuf");
}

TEST_F(Proprietes, ABaseThatCanNotBeWrittenKeepsAll)
{
    Ouvrir();
    const std::string avant = Contenu(BaseCourante());
    sqlite3* autre = nullptr;
    sqlite3_open(BaseCourante().c_str(), &autre);
    ASSERT_EQ(sqlite3_exec(autre, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
    Taper("Neuf");
    Cliquer("Btn_pret");
    Cliquer("DeleteCat");
    Cliquer("AjoutCat");
    Types()->setCurrentRow(0);
    Cliquer("AjoutCat");
    EXPECT_TRUE(dialogues_.dites.empty());
    EXPECT_EQ(Categorie()->text(), "Cd Mp3");
    EXPECT_EQ(Pret()->currentText(), "Neuf");
    sqlite3_close(autre);
    EXPECT_EQ(Contenu(BaseCourante()), avant);
    Cliquer("Btn_pret");
    EXPECT_EQ(NPret(1), "8") << "what was typed is still there";
}

TEST_F(Proprietes, TheCategoryIsChosenFromTheListOrTyped)
{
    const auto stockee = [] { return Un("select Categorie from Catalogue where Num = 1"); };
    Ouvrir();
    EXPECT_EQ(Categorie()->text(), "Cd Mp3");
    EXPECT_FALSE(Types()->isVisible());
    Cliquer("AjoutCat");
    EXPECT_TRUE(Types()->isVisible());
    for (const char* nom : {"Pret", "Categorie", "OK"})
        EXPECT_FALSE(Enfant<QWidget>(*fenetre_, nom)->isEnabled()) << nom;
    EXPECT_FALSE(Onglets()->tabBar()->isEnabled());
    EXPECT_EQ(Types()->currentItem()->text(), "Cd Mp3                    ");
    QTest::keyClick(Types(), Qt::Key_Down);
    QTest::keyClick(Types(), Qt::Key_Escape);
    EXPECT_TRUE(fenetre_->isVisible());
    EXPECT_EQ(stockee(), "Cd Mp3") << "given up";
    EXPECT_TRUE(Bouton("OK")->isEnabled());

    Cliquer("AjoutCat");
    QTest::keyClick(Types(), Qt::Key_Down);
    QTest::keyClick(Types(), Qt::Key_Return);
    Calme();
    EXPECT_EQ(stockee(), "Cd Utilitaire");
    EXPECT_FALSE(Types()->isVisible());

    Categorie()->setText("L'été " + QString(60, 'x'));
    QTest::keyClick(Categorie(), Qt::Key_Return);
    QTest::keyClick(Types(), Qt::Key_Return);
    Calme();
    EXPECT_EQ(stockee(), "L'été " + std::string(44, 'x'));
    Cliquer("DeleteCat");
    EXPECT_EQ(stockee(), " ");
    EXPECT_EQ(Categorie()->text(), "");
}

TEST_F(Proprietes, TheTreeTakesNewColoursOver)
{
    ASSERT_EQ(Couleur(0), "#0000ff");
    ASSERT_EQ(Couleur(2), "") << "no colour: black";
    auto* arbre = Enfant<QTreeView>(*vue_, "tvTreeView");
    const auto cliquer = [&](int rang) {
        arbre->setCurrentIndex(arbre->model()->index(rang, 0, arbre->model()->index(0, 0)));
        Calme();
    };
    Ouvrir();
    Cliquer("AjoutCat");
    QTimer::singleShot(0, [] {
        auto* dialogue = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialogue, nullptr);
        EXPECT_EQ(dialogue->currentColor(), QColor(0, 0, 255));
        QString textes;
        for (const QLabel* texte : dialogue->findChildren<QLabel*>())
            textes += texte->text() + '|';
        for (const QAbstractButton* bouton : dialogue->findChildren<QAbstractButton*>())
            if (bouton->isVisible())
                textes += bouton->text() + '|';
        for (const char* anglais : {"color", "Color", "Hu", "Val:", "Red", "Green", "Cancel"})
            EXPECT_FALSE(textes.contains(anglais)) << anglais << " in " << textes.toStdString();
        dialogue->setCurrentColor(QColor(255, 128, 0));
        dialogue->accept();
    });
    Cliquer("Couleur");
    EXPECT_EQ(GetSetting(SectionTypes, "Cd Mp3", "-"), "33023");
    EXPECT_EQ(Couleur(0), "#ff8000");
    EXPECT_EQ(Couleur(1), "#ff8000") << "all media of the category";
    EXPECT_EQ(Couleur(2), "");
    Types()->setCurrentRow(3);  // Cd Data
    Cliquer("AjoutCat");
    EXPECT_EQ(Couleur(0), "");

    cliquer(1);
    EXPECT_EQ(Couleur(1), "#ff0000");
    Ouvrir(CleMedia(2));
    Cliquer("DeleteCat");
    EXPECT_EQ(Couleur(1), "#ff0000") << "the media shown stays red";
    cliquer(2);
    EXPECT_EQ(Couleur(1), "");
}

TEST_F(Proprietes, ColoursAreTextOfARedLowByteAndCanBeRead)
{
    for (const uint32_t couleur : {0U, 255U, 0xFF0000U, 0x123456U, 0xFFFFFFU})
        EXPECT_EQ(LongDeCouleur(CouleurDeLong(couleur)), couleur);
    EXPECT_EQ(CouleurDeLong(255), QColor(255, 0, 0));
    EXPECT_FALSE(CouleurDeTexte(0, Qt::black).isValid());
    EXPECT_EQ(CouleurDeTexte(255, Qt::white), QColor(255, 0, 0));
    EXPECT_GT(CouleurDeTexte(0xFF0000, QColor(35, 38, 41)).lightness(), 150) << "blue on dark";
    EXPECT_LT(CouleurDeTexte(0xFFFFFF, Qt::white).lightness(), 200) << "white on white";
}

TEST_F(Proprietes, CommandsOfTheBrowserLeadHere)
{
    const auto commande = [&](const char* texte, int rang) {
        QList<QAction*> trouvees;
        for (QAction* action : vue_->findChildren<QAction*>())
            if (action->text().remove('&') == texte)
                trouvees.append(action);
        return trouvees.value(rang);
    };
    QString titre, nom;
    const auto declencher = [&](QAction* action) {
        titre = nom = "";
        QTimer::singleShot(0, [&] {
            QWidget* devant = QApplication::activeModalWidget();
            titre = devant->windowTitle();
            if (const auto* champ = devant->findChild<QLineEdit*>("FicNom"))
                nom = champ->text();
            devant->close();
        });
        action->trigger();
        Calme();
    };
    QAction* noeud = commande("Propriétés", 0);
    QAction* item = commande("Propriétés", 1);
    EXPECT_TRUE(noeud->isEnabled());
    EXPECT_FALSE(item->isEnabled());
    declencher(commande("Gestion des prêts", 0));
    EXPECT_EQ(titre, "Gestion des prêts");

    auto* arbre = Enfant<QTreeView>(*vue_, "tvTreeView");
    arbre->setCurrentIndex(arbre->model()->index(0, 0));
    Calme();
    EXPECT_FALSE(noeud->isEnabled()) << "not for the root";
    arbre->setCurrentIndex(arbre->model()->index(0, 0, arbre->model()->index(0, 0)));
    Calme();
    declencher(noeud);
    EXPECT_EQ(titre, "Propriétés");
    auto* liste = Enfant<QTreeView>(*vue_, "lvRapport");
    for (int rang = 0; rang < liste->model()->rowCount(); ++rang)
        if (liste->model()->index(rang, 0).data() == "a'b.txt")
            liste->setCurrentIndex(liste->model()->index(rang, 0));
    Calme();
    declencher(item);
    EXPECT_EQ(nom, "a'b.txt");
}
