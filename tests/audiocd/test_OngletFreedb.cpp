#include "audiocd/OngletFreedb.h"

#include <future>

#include <QTest>

#include "LecteurFactice.h"
#include "audiocd/FenetreChoix.h"
#include "audiocd/frmFuzzyMatch.h"
#include "outils/Environnement.h"
#include "outils/Fenetres.h"
#include "outils/Reponses.h"
#include "outils/ServeurHttp.h"
#include "store/Reglages.h"

namespace {

class Onglet : public Environnement {
protected:
    Onglet()
    {
        SaveSetting(SectionSettings, "BaseLocale", "0");
        SaveSetting(SectionFreedb, "Serveur", serveur_.Adresse());
        const auto interrupteur = [this](size_t rang) {
            return InterrupteurFreedb{"Utiliser", [this, rang] { return etats_[rang]; },
                                      [this, rang](bool actif) { etats_[rang] = actif; }};
        };
        onglet_ = std::make_unique<OngletFreedb>(std::array{interrupteur(0), interrupteur(1)}, machine_, dialogues_);
        onglet_->show();
        QCoreApplication::processEvents();
    }
    void Cliquer(const char* nom) { QTest::mouseClick(Enfant<QPushButton>(*onglet_, nom), Qt::LeftButton); }
    static std::string Ecrit(std::string_view section, std::string_view cle)
    {
        OublierReglages();
        return GetSetting(section, cle, "-");
    }
    // The list that is open; null while there is none.
    static FenetreChoix* Liste()
    {
        for (QWidget* fenetre : QApplication::topLevelWidgets())
            if (auto* liste = dynamic_cast<FenetreChoix*>(fenetre); liste && liste->isVisible())
                return liste;
        return nullptr;
    }

    Reponse reponse_;
    ServeurHttp serveur_{[this](const std::string&) { return reponse_; }};
    MachineFactice machine_;
    Reponses dialogues_;
    bool etats_[2] = {true, false};
    std::unique_ptr<OngletFreedb> onglet_;
};

}  // namespace

TEST_F(Onglet, ChaqueChangementEstEcrit)
{
    EXPECT_TRUE(Enfant<QCheckBox>(*onglet_, "Freedb0")->isChecked());
    QTest::mouseClick(Enfant<QCheckBox>(*onglet_, "Freedb1"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(etats_[1]);
    QTest::keyClicks(Enfant<QLineEdit>(*onglet_, "UserNameProxy"), "moi");
    QTest::keyClicks(Enfant<QLineEdit>(*onglet_, "PassProxy"), "a b");
    EXPECT_EQ(Ecrit(SectionSettings, "UserNameProxy") + Ecrit(SectionSettings, "PassProxy"), "moia b");

    dialogues_.fichier = "";
    Cliquer("DossierBaseLocale");
    EXPECT_EQ(Ecrit(SectionFreedb, "BaseLocale"), "-");
    dialogues_.fichier = "/cddb";
    Cliquer("DossierBaseLocale");
    EXPECT_EQ(Ecrit(SectionFreedb, "BaseLocale"), "/cddb");
    EXPECT_EQ(Enfant<QLabel>(*onglet_, "BaseLocale")->text(), "/cddb");
}

TEST_F(Onglet, ServeurChoisi)
{
    reponse_ = Http("401 rien\r\n");
    Cliquer("FreeServeur");
    ASSERT_TRUE(Attendre([&] { return !dialogues_.dites.empty(); }));
    EXPECT_EQ(dialogues_.dites, std::vector<std::string>{"Aucun serveur n'est disponible."});

    reponse_ = Http("210 OK\r\nun.org http 80 /x N W <b>Un</b>\r\ndeux.org http 80 /x N W Deux\r\n.\r\n");
    QTimer guetteur;
    QObject::connect(&guetteur, &QTimer::timeout, onglet_.get(), [&] {
        FenetreChoix* liste = Liste();
        if (!liste)
            return;
        guetteur.stop();
        EXPECT_EQ(liste->windowTitle(), "Liste des serveurs");
        QTest::keyClick(Enfant<QTreeView>(*liste, "Liste"), Qt::Key_Down);
        QTest::keyClick(Enfant<QTreeView>(*liste, "Liste"), Qt::Key_Return);
    });
    guetteur.start(20);
    Cliquer("FreeServeur");
    ASSERT_TRUE(Attendre([&] { return Enfant<QLabel>(*onglet_, "Serveur")->text() == "Serveur actuel : deux.org"; }));
    EXPECT_EQ(Ecrit(SectionFreedb, "Serveur"), "deux.org");
}

TEST_F(Onglet, AbandonEtFermeture)
{
    reponse_.muette = true;
    Cliquer("FreeServeur");
    ASSERT_TRUE(Attendre([&] { return !serveur_.Requetes().empty(); }));
    EXPECT_EQ(Enfant<QPushButton>(*onglet_, "FreeServeur")->text(), "&Abandonner");
    Cliquer("FreeServeur");
    ASSERT_TRUE(
        Attendre([&] { return Enfant<QPushButton>(*onglet_, "FreeServeur")->text() == "Choisir un &serveur…"; }));
    EXPECT_TRUE(dialogues_.dites.empty());
    Cliquer("FreeServeur");
    onglet_.reset();  // while it asks
}

TEST_F(Onglet, ListeDemandeeParUnFil)
{
    ChoixFenetres choix(onglet_.get());
    const auto demander = [&](std::stop_token arret) {
        return std::async(std::launch::async, [&choix, arret] {
            return choix.ChoisirDisque({"Un\tdeux", "Trois"}, true, 0, 0, arret);
        });
    };
    const auto finie = [](std::future<int>& reponse) {
        return Attendre([&] { return reponse.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    };
    std::stop_source arret;
    const struct {
        const char* nom;
        std::function<void(FenetreChoix&)> agir;
        int rang;
    } liste[] = {
        {"OK", [](FenetreChoix& f) { QTest::mouseClick(Enfant<QPushButton>(f, "OK"), Qt::LeftButton); }, 1},
        {"double clic",
         [](FenetreChoix& f) {
             auto* rangees = Enfant<QTreeView>(f, "Liste");
             const QPoint place = rangees->visualRect(rangees->model()->index(1, 0)).center();
             QTest::mouseClick(rangees->viewport(), Qt::LeftButton, {}, place);
             QTest::mouseDClick(rangees->viewport(), Qt::LeftButton, {}, place);
         },
         2},
        {"Échap", [](FenetreChoix& f) { QTest::keyClick(&f, Qt::Key_Escape); }, 0},
        {"fermée", [](FenetreChoix& f) { f.close(); }, 0},
        {"arrêt", [&](FenetreChoix&) { arret.request_stop(); }, 0},
    };
    for (const auto& cas : liste) {
        std::future<int> reponse = demander(arret.get_token());
        ASSERT_TRUE(Attendre([] { return Liste() != nullptr; })) << cas.nom;
        EXPECT_EQ(Liste()->windowTitle(), "Liste des disques");
        cas.agir(*Liste());
        ASSERT_TRUE(finie(reponse)) << cas.nom;
        EXPECT_EQ(reponse.get(), cas.rang) << cas.nom;
        EXPECT_TRUE(Attendre([] { return Liste() == nullptr; })) << cas.nom;
    }
    frmFuzzyMatch vide({});
    QTimer::singleShot(0, &vide, [&] { QTest::keyClick(&vide, Qt::Key_Return); });
    EXPECT_EQ(vide.GetSelection(), 0);
}
