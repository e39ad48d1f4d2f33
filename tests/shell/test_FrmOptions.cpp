#include "shell/FrmOptions.h"

#include <memory>

#include <QTest>

#include "outils/Environnement.h"
#include "outils/Fenetres.h"
#include "outils/Reponses.h"
#include "platform/Lecteurs.h"
#include "shell/Options.h"

namespace {

class Preferences : public Environnement {
protected:
    Preferences() { Ouvrir(); }
    void Ouvrir()
    {
        OublierReglages();
        fenetre_ = std::make_unique<FrmOptions>(dialogues_);
        fenetre_->show();
        QCoreApplication::processEvents();
    }
    // What lies on the disk; "-" for a key that was never written.
    static std::string Ecrit(std::string_view section, std::string_view cle)
    {
        OublierReglages();
        return GetSetting(section, cle, "-");
    }
    QTabWidget* Onglets() { return Enfant<QTabWidget>(*fenetre_, "Onglets"); }
    QListWidget* Liste() { return Enfant<QListWidget>(*fenetre_, "ListeDescriptions"); }
    QCheckBox* Case(const char* nom) { return Enfant<QCheckBox>(*fenetre_, nom); }
    QTreeWidget* Lecteurs() { return Enfant<QTreeWidget>(*fenetre_, "ListeLecteurs"); }
    QPushButton* Bouton(const char* nom) { return Enfant<QPushButton>(*fenetre_, nom); }

    void CliquerCase(int rang)
    {
        Liste()->scrollToItem(Liste()->item(rang));
        QStyleOptionViewItem option;
        option.initFrom(Liste());
        option.rect = Liste()->visualItemRect(Liste()->item(rang));
        option.features = QStyleOptionViewItem::HasCheckIndicator;
        const QRect boite = Liste()->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, Liste());
        QTest::mouseClick(Liste()->viewport(), Qt::LeftButton, {}, boite.center());
    }
    QTreeWidgetItem* Lecteur(const QString& nom) { return Lecteurs()->findItems(nom, Qt::MatchExactly).value(0); }

    Reponses dialogues_;
    std::unique_ptr<FrmOptions> fenetre_;
};

}  // namespace

TEST_F(Preferences, EachKindHasItsRow)
{
    const std::string_view cles[] = {"CDText", "AudioCD", "BMP", "GIF", "JPG", "PCX", "PNG", "TGA", "DIZ",
                                     "NFO",    "EXE",     "MP3", "HTM", "BBS", "OGG", "LNK", "VBP", "PDF"};
    const std::string_view coches = "BMP GIF JPG PNG DIZ NFO EXE MP3 HTM BBS";  // at first
    ASSERT_EQ(Liste()->count(), static_cast<int>(std::size(cles)));
    EXPECT_EQ(Liste()->item(10)->text(), "Exécutables (Exe, Dll, Ocx, Ax, Tlb)");
    int rang = 0;
    for (const std::string_view cle : cles) {
        const bool coche = coches.find(cle) != std::string::npos;
        EXPECT_EQ(Liste()->item(rang)->checkState() == Qt::Checked, coche) << cle;
        EXPECT_EQ(Ecrit(SectionDescriptions, cle), "-") << "nothing is written before a click";
        CliquerCase(rang);
        EXPECT_EQ(Ecrit(SectionDescriptions, cle), coche ? "0" : "1") << cle;
        EXPECT_EQ(Ecrit(SectionDescriptions, "Index"), rang == 0 ? "-" : std::to_string(rang + 1));
        ++rang;
    }
}

TEST_F(Preferences, KeyboardAloneTogglesAndTheRowIsRemembered)
{
    EXPECT_TRUE(Liste()->hasFocus());
    QTest::keyClick(Liste(), Qt::Key_End);
    QTest::keyClick(Liste(), Qt::Key_Up);
    EXPECT_EQ(Ecrit(SectionDescriptions, "Index"), "17");
    QTest::keyClick(Liste(), Qt::Key_Space);
    EXPECT_EQ(Ecrit(SectionDescriptions, "VBP"), "1");
    QTest::keyClick(Liste(), Qt::Key_Escape);
    EXPECT_FALSE(fenetre_->isVisible());
    Ouvrir();
    EXPECT_EQ(Liste()->currentRow(), 16);
    EXPECT_EQ(Liste()->item(16)->checkState(), Qt::Checked) << "no way out takes anything back";

    for (const auto& [ecrit, rang] : {std::pair{"18", 17}, {"19", 0}, {"0", 0}, {"1e300", 0}}) {
        SaveSetting(SectionDescriptions, "Index", ecrit);
        Ouvrir();
        EXPECT_EQ(Liste()->currentRow(), rang) << ecrit;
    }
}

TEST_F(Preferences, TabIsRemembered)
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Ecrit(SectionOptions, "Onglet"), "1");
    for (const auto& [ecrit, onglet] : {std::pair{"3", 3}, {"4", 0}, {"1e99", 0}}) {
        SaveSetting(SectionOptions, "Onglet", ecrit);
        Ouvrir();
        EXPECT_EQ(Onglets()->currentIndex(), onglet) << ecrit;
    }
}

TEST_F(Preferences, SwitchesOfDiversShowAsOnWhileNothingReadsThemSo)
{
    Onglets()->setCurrentIndex(2);
    for (const std::string rang : {"0", "1", "2", "3"}) {
        QCheckBox* boite = Case(("Divers" + rang).c_str());
        EXPECT_TRUE(boite->isChecked()) << rang;
        for (const char* etat : {"0", "1"}) {
            boite->setFocus();
            QTest::keyClick(boite, Qt::Key_Space);
            EXPECT_EQ(Ecrit(SectionSettings, "OptionsDivers " + rang), etat) << rang;
        }
    }
}

TEST_F(Preferences, CaptionsOfDiversStandAsTheyAreGiven)
{
    EXPECT_EQ(Case("Divers0")->text().toStdString(), "      Afficher la grille");
    EXPECT_EQ(Case("Divers2")->text().toStdString(), "      Afficher les noms des fichiers lors de l'extraction");
    EXPECT_EQ(Case("Freedb1")->text().toStdString(), "Utiliser le proxy");
}

TEST_F(Preferences, SwitchesOfFreedbCarryThoseOfDiversAlong)
{
    for (const auto& [rang, cle] : {std::pair<std::string, const char*>{"0", "BaseLocale"}, {"1", "Proxy"}}) {
        QCheckBox *freedb = Case(("Freedb" + rang).c_str()), *divers = Case(("Divers" + rang).c_str());
        EXPECT_FALSE(freedb->isChecked());
        for (const char* etat : {"1", "0"}) {
            Onglets()->setCurrentIndex(1);
            freedb->click();
            EXPECT_EQ(Ecrit(SectionSettings, cle), etat);
            EXPECT_EQ(Ecrit(SectionSettings, "OptionsDivers " + rang), etat);
            Onglets()->setCurrentIndex(2);
            EXPECT_EQ(divers->isChecked(), *etat == '1');
        }
        divers->click();
        EXPECT_EQ(Ecrit(SectionSettings, cle), "0") << "the other way round nothing follows";
    }
    EXPECT_EQ(Ecrit(SectionSettings, "OptionsDivers 2"), "-");
}

TEST_F(Preferences, GivesALetterToAFolderAndTakesItBack)
{
    Onglets()->setCurrentIndex(3);
    ASSERT_TRUE(Attendre([this] { return Lecteur("C:"); }));
    EXPECT_EQ(Lecteur("C:")->text(1), "/");
    Lecteurs()->setCurrentItem(Lecteur("C:"));
    EXPECT_FALSE(Bouton("Retirer")->isEnabled());

    auto* libres = Enfant<QComboBox>(*fenetre_, "Libres");
    const int nombre = libres->count(), place = libres->findText("T:");
    ASSERT_GE(place, 0);
    libres->setCurrentIndex(place);
    dialogues_.fichier = travail_.string();
    Bouton("Donner")->click();
    ASSERT_TRUE(Attendre([this] { return Lecteur("T:"); }));
    EXPECT_EQ(Lecteur("T:")->text(1).toStdString(), travail_);
    EXPECT_EQ(Lecteurs()->currentItem(), Lecteur("T:"));
    EXPECT_EQ(RacineDuLecteur('t'), travail_);

    // A folder that is gone keeps its letter until it is taken away.
    std::filesystem::remove(travail_);
    Ouvrir();
    ASSERT_TRUE(Attendre([this] { return Lecteur("T:"); }));
    EXPECT_TRUE(Lecteur("T:")->text(1).endsWith(" (absent)"));
    DonnerLettre('s', "/usr");
    DonnerLettre('u', "/usr");
    Onglets()->setCurrentIndex(0);
    Onglets()->setCurrentIndex(3);
    ASSERT_TRUE(Attendre([this] { return Lecteur("U:"); }));
    Lecteurs()->setCurrentItem(Lecteur("T:"));
    dialogues_.oui = false;
    Bouton("Retirer")->click();
    EXPECT_EQ(dialogues_.dites.back(), "Voulez-vous réellement retirer la lettre T: de : " + travail_.string() + " ?");
    EXPECT_EQ(dialogues_.pertes, 1U);
    dialogues_.oui = true;
    for (const auto& [partie, reste] : {std::pair{"T:", "U:"}, {"U:", "S:"}, {"S:", ""}}) {
        ASSERT_EQ(Lecteurs()->currentItem(), Lecteur(partie)) << "the place in the list stays";
        Bouton("Retirer")->click();
        EXPECT_TRUE(Attendre([this, partie = partie] { return !Lecteur(partie); }));
        EXPECT_TRUE(!*reste || Lecteurs()->currentItem() == Lecteur(reste)) << partie;
    }
    EXPECT_EQ(Enfant<QComboBox>(*fenetre_, "Libres")->count(), nombre);
}
