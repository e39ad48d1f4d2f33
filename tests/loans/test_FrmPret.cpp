#include "loans/FrmPret.h"

#include <memory>

#include <QTest>

#include "catalogue/Emprunteurs.h"
#include "fenetres/TravailFenetre.h"
#include "outils/Brut.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "store/CycleBase.h"

namespace {

class Prets : public EnvironnementBase {
protected:
    Prets()
    {
        for (const char* label : {"Zèbre", "Été", "Chez moi"})
            AjouterMediaTest({label, ""});
        Sql("insert into Pret (Num, Nom, PreNom, Adresse, Email) values"
            " (7, 'MARTIN ', 'jean ', '3 rue de l''Église ', ' '), (3, 'Dupont', ' ', ' ', ' '), (9, 'Seul', 'anne', "
            "'', '')");
        Sql("update Catalogue set NPret = 7 where Num < 3");
        Ouvrir();
    }
    std::vector<std::string> Sql(const std::string& enonce) { return Brut(BaseCourante(), enonce); }
    std::string Un(const std::string& enonce) { return Sql(enonce).at(0); }
    void Ouvrir()
    {
        fenetre_ = std::make_unique<FrmPret>(dialogues_, travailleur_);
        fenetre_->show();
        Calmer(travailleur_);
    }
    QListWidget* Personnes() { return Enfant<QListWidget>(*fenetre_, "Personne"); }
    QListWidget* Medias() { return Enfant<QListWidget>(*fenetre_, "Pret"); }
    QLineEdit* Saisie(int i) { return Enfant<QLineEdit>(*fenetre_, ("Saisie" + std::to_string(i)).c_str()); }
    QPushButton* Bouton(int i) { return Enfant<QPushButton>(*fenetre_, ("Bouton" + std::to_string(i)).c_str()); }
    void Choisir(const QString& texte)
    {
        const auto lignes = Personnes()->findItems(texte, Qt::MatchExactly);
        ASSERT_EQ(lignes.size(), 1) << texte.toStdString();
        Personnes()->setCurrentItem(lignes.first());
        Calmer(travailleur_);
    }
    void Touche(QWidget* widget, Qt::Key touche)
    {
        QTest::keyClick(widget, touche);
        Calmer(travailleur_);
    }
    static std::vector<std::string> Textes(const QListWidget& liste)
    {
        std::vector<std::string> textes;
        for (int i = 0; i < liste.count(); ++i)
            textes.push_back(liste.item(i)->text().toStdString());
        return textes;
    }
    using Liste = std::vector<std::string>;

    QObject contexte_;
    Travail travailleur_{ReveilFenetre(&contexte_, [this] { travailleur_.Livrer(); })};
    std::unique_ptr<FrmPret> fenetre_;
};

}  // namespace

TEST_F(Prets, ShowsWhoBorrowsAndWhatTheyHold)
{
    EXPECT_EQ(Textes(*Personnes()), (Liste{" , Dupont", "anne, Seul", "jean , MARTIN "}));
    EXPECT_TRUE(Personnes()->hasFocus());
    Touche(Personnes(), Qt::Key_End);
    EXPECT_EQ(Textes(*Medias()), (Liste{"Été", "Zèbre"}));
    const QString attendus[] = {"MARTIN", "jean", "3 rue de l'Église", ""};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Saisie(i)->text(), attendus[i]) << i;
    Touche(Personnes(), Qt::Key_Up);
    EXPECT_EQ(Medias()->count(), 0);
    EXPECT_FALSE(Bouton(1)->isEnabled());
}

TEST_F(Prets, EnterWritesEachTextInTheFormOfItsField)
{
    const std::string long300(300, 'x');
    std::string accents;
    for (int i = 0; i < 5000; ++i)
        accents += "é";
    const std::pair<std::string, std::string> cas[] = {
        {"", " "},
        {"   ", " "},
        {"  12, rue \"A\"  ", "12, rue \"A\" "},
        {"L'Haÿ-les-Roses", "L'Haÿ-les-Roses "},
        {std::string(254, 'x'), std::string(254, 'x') + " "},
        {long300, std::string(255, 'x')},
        {accents, accents.substr(0, 510)},
    };
    Choisir("jean , MARTIN ");
    for (const auto& [tape, attendu] : cas) {
        Saisie(2)->setText(QString::fromStdString(tape));
        Touche(Saisie(2), Qt::Key_Return);
        EXPECT_EQ(Un("select Adresse from Pret where Num = 7"), attendu);
    }
    Saisie(0)->setText("D'Arc");
    Saisie(1)->setText("Jeanne");
    Touche(Saisie(3), Qt::Key_Enter);
    EXPECT_TRUE(fenetre_->isVisible()) << "Enter in a field closes nothing";
    EXPECT_EQ(Personnes()->currentItem()->text(), "Jeanne , D'Arc ");
    EXPECT_EQ(Un("select count(*) from Pret where Nom = 'D''Arc ' and PreNom = 'Jeanne ' and Email = ' '"), "1");
    EXPECT_EQ(Un("select count(*) from Pret where Num <> 7 and Nom in ('Dupont', 'Seul')"), "2");
}

TEST_F(Prets, ABorrowerGoesAndTheLoansStay)
{
    Choisir("jean , MARTIN ");
    dialogues_.oui = false;
    Bouton(0)->click();
    EXPECT_EQ(Un("select count(*) from Pret"), "3");
    dialogues_.oui = true;
    Bouton(0)->click();
    Calmer(travailleur_);
    EXPECT_EQ(dialogues_.dites, Liste(2, "Voulez-vous réellement supprimer cette personne de la liste ?"));
    EXPECT_EQ(dialogues_.pertes, 2U);
    EXPECT_EQ(Textes(*Personnes()), (Liste{" , Dupont", "anne, Seul"}));
    EXPECT_EQ(Saisie(0)->text(), "Seul") << "the fields follow to the next row";
    EXPECT_EQ(Sql("select NPret from Catalogue order by Num"), (Liste{"7", "7", "(null)"}));
    EXPECT_FALSE(RechercherUnePersonne("7"));

    for (int i = 0; i < 2; ++i) {
        Bouton(0)->click();
        Calmer(travailleur_);
    }
    EXPECT_EQ(Personnes()->count(), 0);
    EXPECT_EQ(Saisie(0)->text(), "");
    dialogues_.dites.clear();
    Bouton(0)->click();
    Bouton(1)->click();
    EXPECT_TRUE(dialogues_.dites.empty()) << "nothing to ask about";
}

TEST_F(Prets, ALoanEnds)
{
    Choisir("jean , MARTIN ");
    Medias()->setFocus();
    Bouton(1)->click();
    Calmer(travailleur_);
    EXPECT_EQ(dialogues_.dites, Liste{"Voulez-vous réellement retirer ce prêt de la liste ?"});
    EXPECT_EQ(dialogues_.pertes, 1U);
    EXPECT_EQ(Textes(*Medias()), Liste{"Zèbre"});
    EXPECT_EQ(Sql("select NPret from Catalogue order by Num"), (Liste{"7", "0", "(null)"}));
}

TEST_F(Prets, ABaseThatCanNoLongerBeWrittenLosesNothing)
{
    Choisir("jean , MARTIN ");
    const std::string avant = Contenu(BaseCourante());
    const std::string aCote = BaseCourante() + ".ailleurs";
    std::filesystem::rename(BaseCourante(), aCote);
    Ecrire(BaseCourante(), "no base any more");
    Saisie(2)->setText("ailleurs");
    Touche(Saisie(2), Qt::Key_Return);
    for (int i : {0, 1}) {
        Medias()->setCurrentRow(0);
        Bouton(i)->click();
        Calmer(travailleur_);
    }
    EXPECT_EQ(Personnes()->count(), 3);
    EXPECT_EQ(Medias()->count(), 2);
    EXPECT_EQ(Saisie(2)->text(), "ailleurs");
    EXPECT_EQ(Contenu(BaseCourante()), "no base any more");
    std::filesystem::rename(aCote, BaseCourante());
    EXPECT_EQ(Contenu(BaseCourante()), avant);
}

// What is asked for while the store is busy happens in its turn, and closing waits for it.
TEST_F(Prets, AWriteWaitsForTheWorkThatRuns)
{
    Choisir("jean , MARTIN ");
    std::atomic<bool> fini = false;
    travailleur_.Demander(
        Place::Arbre,
        [&fini](const std::stop_token&) {
            while (!fini)
                std::this_thread::yield();
        },
        [] {});
    Saisie(2)->setText("plus tard");
    Saisie(2)->setFocus();
    QTest::keyClick(Saisie(2), Qt::Key_Return);
    EXPECT_FALSE(fenetre_->isEnabled());
    fenetre_->reject();
    EXPECT_TRUE(fenetre_->isVisible());
    fini = true;
    Calmer(travailleur_);
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_EQ(Un("select Adresse from Pret where Num = 7"), "plus tard ");
}

TEST_F(Prets, ANewNumberIsAboveAllThatAreInUse)
{
    const auto nouveau = [] {
        Base base = OpenDatabase(BaseCourante());
        return NouveauNumeroEmprunteur(base);
    };
    EXPECT_EQ(nouveau(), 10);
    Sql("update Catalogue set NPret = 41 where Num = 1");
    EXPECT_EQ(nouveau(), 42) << "lent to somebody who is gone";
    Sql("update Catalogue set NPret = 9223372036854775807 where Num = 2; insert into Pret (Num) values ('x'), (null)");
    EXPECT_EQ(nouveau(), 42) << "no numbers of this program";
    Sql("delete from Pret; update Catalogue set NPret = null");
    EXPECT_EQ(nouveau(), 1);
}
