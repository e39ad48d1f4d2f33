#include "listings/frmImpression.h"

#include <thread>

#include <QTest>

#include "browser/frmView.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "platform/OperationsFichiers.h"
#include "shell/Fenetres.h"
#include "shell/FrmMain.h"
#include "store/Reglages.h"

namespace {

class FenetreImpression : public EnvironnementBase {
protected:
    FenetreImpression()
    {
        AjouterMediaTest({"Disque", "# 1-000000001#D:"});
        AjouterLignes(1, {{"000000000", "000000001", "D:", "D"},
                          {"000000001", "0", "<table>.txt", "a", "1 b", "Fichier", "20030615", "10:00:00"}});
        fenetres_ = std::make_unique<Fenetres>(dialogues_);
        fenetres_->Demarrer();
        Enfant<QToolButton>(*Fenetre<FrmMain>(), "Visualiser")->click();
        Calme();
        vue_ = Fenetre<frmView>();
        for (QAction* action : vue_->actions())
            if (action->text() == "&Imprimer un listing")
                action->trigger();
        Calme();
        fenetre_ = Fenetre<frmImpression>();
    }
    void Calme() { Calmer(fenetres_->Ouvrage()); }
    template <typename Classe>
    static Classe* Fenetre()
    {
        for (QWidget* fenetre : QApplication::topLevelWidgets())
            if (auto* trouvee = qobject_cast<Classe*>(fenetre))
                return trouvee;
        qFatal("no window");
    }
    template <typename Classe>
    Classe* Le(const char* nom)
    {
        return Enfant<Classe>(*fenetre_, nom);
    }
    void Presser(const char* nom)
    {
        Le<QAbstractButton>(nom)->click();
        Calme();
    }
    std::string Fic(const char* nom) { return Contenu(programme_ / nom); }

    std::unique_ptr<Fenetres> fenetres_;
    frmView* vue_ = nullptr;
    frmImpression* fenetre_ = nullptr;
};

}  // namespace

TEST_F(FenetreImpression, WritesAndShowsEachFormat)
{
    EXPECT_TRUE(fenetre_->isVisible());
    QStringList touches = TouchesDirectes(*fenetre_);
    EXPECT_EQ(touches.removeDuplicates(), 0) << touches.join(' ').toStdString();
    EXPECT_FALSE(vue_->isVisible());
    EXPECT_EQ(Le<QComboBox>("LMedias")->count(), 2);
    EXPECT_FALSE(Le<QPushButton>("Ouvrir")->isEnabled());
    Presser("OK");  // no format chosen yet
    auto* texte = Le<QPlainTextEdit>("Texte");
    EXPECT_TRUE(texte->toPlainText().contains("     <table>.txt"));
    EXPECT_TRUE(Le<QPushButton>("Ouvrir")->isEnabled());
    EXPECT_NE(Fic("fic.txt"), "");
    Presser("OptFormat2");
    Presser("OK");
    EXPECT_TRUE(texte->toPlainText().contains("<Fichier><table>.txt\n</Fichier>"));
    EXPECT_NE(Fic("fic.xml"), "");
    Presser("OptFormat1");
    Presser("OK");
    auto* page = Le<QTextBrowser>("Page");
    EXPECT_TRUE(page->isVisible());
    EXPECT_FALSE(texte->isVisible());
    EXPECT_TRUE(page->toPlainText().contains("Capacité utilisée"));
    EXPECT_TRUE(page->toPlainText().contains("<table>.txt"));
    EXPECT_NE(Fic("fic.html"), "");
    EXPECT_FALSE(Le<QLabel>("Avis")->isVisible());
    EXPECT_TRUE(dialogues_.dites.empty());
}

TEST_F(FenetreImpression, RefusesWithoutAnyColumnAndTellsTheSystemsError)
{
    for (int i = 0; i < NombreColonnesListing; ++i)
        Presser(("Opt" + std::to_string(i)).c_str());
    Presser("OK");
    EXPECT_FALSE(FichierExiste((programme_ / "fic.txt").string()));
    Presser("Opt0");
    std::filesystem::create_directory(programme_ / "fic.txt");
    Presser("OK");
    EXPECT_EQ(dialogues_.dites, (std::vector<std::string>{"Veuillez sélectionner au moins une information à éditer !",
                                                          strerror(EISDIR)}));
    EXPECT_EQ(Le<QPlainTextEdit>("Texte")->toPlainText(), "");
    EXPECT_FALSE(Le<QPushButton>("Imprimer")->isEnabled());
}

TEST_F(FenetreImpression, GivesUpAndGoesBack)
{
    Ecrire(programme_ / "fic.txt", "le précédent");
    auto* ok = Le<QPushButton>("OK");
    fenetres_->Ouvrage().Demander(
        Place::Course,
        [](const std::stop_token& arret) {
            while (!arret.stop_requested())
                std::this_thread::yield();
        },
        [] {});
    ok->click();
    EXPECT_EQ(ok->text(), "Ann&uler");
    ok->click();
    fenetres_->Ouvrage().Arreter(Place::Course);
    Calme();
    EXPECT_EQ(ok->text(), "&OK");
    EXPECT_EQ(Fic("fic.txt"), "le précédent");

    fenetre_->setGeometry(30, 40, 760, 560);
    ok->click();
    fenetre_->close();
    Calme();
    EXPECT_TRUE(vue_->isVisible());
    EXPECT_FALSE(fenetre_->isVisible());
    EXPECT_EQ(vue_->geometry(), QRect(30, 40, 760, 560));
    EXPECT_EQ(GetSetting(SectionSettings, CleMainWidth, ""), "11400");
    EXPECT_EQ(Le<QPlainTextEdit>("Texte")->toPlainText(), "");
}

TEST_F(FenetreImpression, PrintsToPdf)
{
    const auto chemin = travail_ / "listing.pdf";
    dialogues_.fichier = chemin.string();
    for (const char* format : {"OptFormat0", "OptFormat1"}) {
        std::filesystem::remove(chemin);
        Presser(format);
        Presser("OK");
        Presser("PDF");
        EXPECT_TRUE(Contenu(chemin).starts_with("%PDF-")) << format;
        EXPECT_EQ(Le<QLabel>("Commentaire")->text(), "Listing imprimé");
    }
    dialogues_.fichier = (travail_ / "nulle part" / "listing.pdf").string();
    Presser("PDF");
    EXPECT_EQ(dialogues_.dites, std::vector<std::string>{"Le listing n'a pas pu être imprimé !"});
}
