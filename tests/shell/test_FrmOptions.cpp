#include "shell/FrmOptions.h"

#include <memory>

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QStyleOptionViewItem>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "Environnement.h"
#include "Fenetres.h"
#include "platform/Lecteurs.h"
#include "shell/Options.h"

namespace {

class Muet : public Dialogues {
public:
    void Informer(const std::string& texte) override { dits.push_back(texte); }
    bool Demander(const std::string&, const std::string&) override { return false; }
    std::vector<std::string> dits;
};

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
    QTreeWidgetItem* Lecteur(const QString& nom)
    {
        const auto trouves = Lecteurs()->findItems(nom, Qt::MatchExactly);
        return trouves.isEmpty() ? nullptr : trouves.first();
    }

    Muet dialogues_;
    std::unique_ptr<FrmOptions> fenetre_;
};

}  // namespace

TEST_F(Preferences, EachKindHasItsRow)
{
    const struct {
        const char *texte, *cle;
        bool coche;
    } rangees[] = {
        {"Information CD-Text Audio", "CDText", false},
        {"Information des CD Audio via freedb", "AudioCD", false},
        {"Windows OS/2 Bitmap Files (BMP)", "BMP", true},
        {"Compuserve Bitmap Files (GIF)", "GIF", true},
        {"JPEG Bitmap Files (JPG, JPEG)", "JPG", true},
        {"ZSoft Painbrush Files (PCX)", "PCX", false},
        {"PNG Bitmap Files (PNG)", "PNG", true},
        {"TGA Bitmap Files (TGA)", "TGA", false},
        {"Fichier File_id.diz", "DIZ", true},
        {"Fichiers Infos (NFO)", "NFO", true},
        {"Exécutables (Exe, Dll, Ocx, Ax, Tlb)", "EXE", true},
        {"Fichiers Audio MP3 (MP3)", "MP3", true},
        {"Fichiers Html (HTM, HTML)", "HTM", true},
        {"Fichiers Infos bbs (BBS)", "BBS", true},
        {"Fichiers Audio Ogg Vorbis (OGG)", "OGG", false},
        {"Fichiers raccourcis (LNK)", "LNK", false},
        {"Fichiers projet Visual basic (VBP)", "VBP", false},
        {"Fichiers Acrobat Reader (PDF)", "PDF", false},
    };
    ASSERT_EQ(Liste()->count(), static_cast<int>(std::size(rangees)));
    int rang = 0;
    for (const auto& [texte, cle, coche] : rangees) {
        EXPECT_EQ(Liste()->item(rang)->text(), texte);
        EXPECT_EQ(Liste()->item(rang)->checkState() == Qt::Checked, coche) << cle;
        EXPECT_EQ(Ecrit(SectionDescriptions, cle), "-") << "nothing is written before a click";
        CliquerCase(rang);
        EXPECT_EQ(Ecrit(SectionDescriptions, cle), coche ? "0" : "1") << cle;
        EXPECT_EQ(Ecrit(SectionDescriptions, "Index"), rang == 0 ? "-" : std::to_string(rang + 1));
        CliquerCase(rang);
        EXPECT_EQ(Ecrit(SectionDescriptions, cle), coche ? "1" : "0") << cle;
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
    Ouvrir();
    EXPECT_EQ(Liste()->currentRow(), 16);
    EXPECT_EQ(Liste()->item(16)->checkState(), Qt::Checked);
    QTest::keyClick(Liste(), Qt::Key_Space);
    EXPECT_EQ(Ecrit(SectionDescriptions, "VBP"), "0");

    for (const auto& [ecrit, rang] : {std::pair{"18", 17}, {"19", 0}, {"0", 0}, {"-3", 0}, {"1e300", 0}, {"x", 0}}) {
        SaveSetting(SectionDescriptions, "Index", ecrit);
        Ouvrir();
        EXPECT_EQ(Liste()->currentRow(), rang) << ecrit;
    }
}

TEST_F(Preferences, TabIsRemembered)
{
    EXPECT_EQ(Onglets()->currentIndex(), 0);
    EXPECT_EQ(Ecrit(SectionOptions, "Onglet"), "-");
    for (const char* suivant : {"1", "2", "3"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Ecrit(SectionOptions, "Onglet"), suivant);
    }
    Ouvrir();
    EXPECT_EQ(Onglets()->currentIndex(), 3);
    for (const auto& [ecrit, onglet] : {std::pair{"2", 2}, {"4", 0}, {"-1", 0}, {"1e99", 0}}) {
        SaveSetting(SectionOptions, "Onglet", ecrit);
        Ouvrir();
        EXPECT_EQ(Onglets()->currentIndex(), onglet) << ecrit;
    }
}

TEST_F(Preferences, SwitchesOfDiversShowAsOnWhileNothingReadsThemSo)
{
    const char* textes[] = {"Afficher la grille", "Utiliser le dégradé des menus",
                            "Afficher les noms des fichiers lors de l'extraction",
                            "Afficher les info-bulles dans les recherches"};
    Onglets()->setCurrentIndex(2);
    EXPECT_FALSE(GrilleVoulue());
    for (size_t rang = 0; rang < std::size(textes); ++rang) {
        QCheckBox* boite = Case(("Divers" + std::to_string(rang)).c_str());
        EXPECT_EQ(boite->text(), textes[rang]);
        EXPECT_TRUE(boite->isChecked()) << rang;
        const std::string cle = "OptionsDivers " + std::to_string(rang);
        for (const char* etat : {"0", "1"}) {
            boite->setFocus();
            QTest::keyClick(boite, Qt::Key_Space);
            EXPECT_EQ(Ecrit(SectionSettings, cle), etat) << rang;
            EXPECT_EQ(GrilleVoulue(), rang > 0 || *etat == '1');
        }
    }
}

TEST_F(Preferences, SwitchesOfFreedbCarryThoseOfDiversAlong)
{
    const struct {
        const char *freedb, *cle, *divers, *cleDivers;
    } paires[] = {{"Freedb0", "BaseLocale", "Divers0", "OptionsDivers 0"},
                  {"Freedb1", "Proxy", "Divers1", "OptionsDivers 1"}};
    for (const auto& [freedb, cle, divers, cleDivers] : paires) {
        EXPECT_FALSE(Case(freedb)->isChecked());
        for (const bool etat : {true, false}) {
            Onglets()->setCurrentIndex(1);
            Case(freedb)->click();
            EXPECT_EQ(Ecrit(SectionSettings, cle), etat ? "1" : "0");
            EXPECT_EQ(Ecrit(SectionSettings, cleDivers), etat ? "1" : "0");
            Onglets()->setCurrentIndex(2);
            EXPECT_EQ(Case(divers)->isChecked(), etat);
        }
        Case(divers)->click();
        EXPECT_EQ(Ecrit(SectionSettings, cle), "0") << "the other way round nothing follows";
    }
    EXPECT_EQ(Ecrit(SectionSettings, "OptionsDivers 2"), "-");
    EXPECT_EQ(Ecrit(SectionSettings, "OptionsDivers0"), "-");
}

TEST_F(Preferences, NoWayOutTakesAnythingBack)
{
    const std::function<void()> sorties[] = {[&] { QTest::keyClick(fenetre_.get(), Qt::Key_Escape); },
                                             [&] { QTest::keyClick(Liste(), Qt::Key_Return); },
                                             [&] { fenetre_->close(); }};
    bool coche = true;
    for (const auto& sortir : sorties) {
        CliquerCase(2);
        coche = !coche;
        sortir();
        EXPECT_FALSE(fenetre_->isVisible());
        Ouvrir();
        EXPECT_EQ(Liste()->item(2)->checkState() == Qt::Checked, coche);
    }
}

TEST_F(Preferences, GivesALetterToAFolderAndTakesItBack)
{
    Onglets()->setCurrentIndex(3);
    ASSERT_TRUE(Lecteur("C:"));
    EXPECT_EQ(Lecteur("C:")->text(1), "/");
    Lecteurs()->setCurrentItem(Lecteur("C:"));
    EXPECT_FALSE(Bouton("Retirer")->isEnabled());

    auto* libres = Enfant<QComboBox>(*fenetre_, "Libres");
    const int nombre = libres->count(), place = libres->findText("T:");
    ASSERT_GE(place, 0);
    EXPECT_EQ(libres->findText("C:"), -1);
    libres->setCurrentIndex(place);
    fenetre_->choisirDossier = [] { return std::string(); };
    Bouton("Donner")->click();
    EXPECT_FALSE(Lecteur("T:"));
    fenetre_->choisirDossier = [&] { return travail_.string(); };
    Bouton("Donner")->click();
    ASSERT_TRUE(Lecteur("T:"));
    EXPECT_EQ(Lecteur("T:")->text(1).toStdString(), travail_);
    EXPECT_EQ(Lecteurs()->currentItem(), Lecteur("T:"));
    EXPECT_EQ(RacineDuLecteur('t'), travail_);
    EXPECT_EQ(libres->count(), nombre - 1);

    // A folder that is gone keeps its letter until it is taken away.
    std::filesystem::remove(travail_);
    Ouvrir();
    EXPECT_EQ(Onglets()->currentIndex(), 3);
    ASSERT_TRUE(Lecteur("T:"));
    EXPECT_TRUE(Lecteur("T:")->text(1).endsWith(" (absent)"));
    Lecteurs()->setCurrentItem(Lecteur("T:"));
    Bouton("Retirer")->click();
    EXPECT_FALSE(Lecteur("T:"));
    EXPECT_EQ(Enfant<QComboBox>(*fenetre_, "Libres")->count(), nombre);
    EXPECT_TRUE(dialogues_.dits.empty());
}
