#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

#include <gtest/gtest.h>

#include "commun/Consultation.h"
#include "commun/Travail.h"

namespace {

// A door that work waits behind until the test opens it, or until the work is asked to stop.
class Porte {
public:
    void Ouvrir()
    {
        const std::lock_guard garde(verrou_);
        ouverte_ = true;
        change_.notify_all();
    }
    void Passer(const std::stop_token& arret)
    {
        std::unique_lock garde(verrou_);
        entree_ = true;
        change_.notify_all();
        change_.wait(garde, arret, [this] { return ouverte_; });
    }
    // Until somebody waits behind it.
    void AttendreEntree()
    {
        std::unique_lock garde(verrou_);
        change_.wait(garde, [this] { return entree_; });
    }

private:
    std::mutex verrou_;
    std::condition_variable_any change_;
    bool ouverte_ = false, entree_ = false;
};

class TestTravail : public ::testing::Test {
protected:
    void Demander(Place place, const std::string& nom, Porte* porte = nullptr)
    {
        travail_.Demander(
            place,
            [this, nom, porte](const std::stop_token& arret) {
                if (porte)
                    porte->Passer(arret);
                Noter(arret.stop_requested() ? nom + "-" : nom);
            },
            [this, nom] { Noter(nom + "!"); });
    }
    void Noter(const std::string& nom)
    {
        const std::lock_guard garde(verrou_);
        journal_ += nom + " ";
    }
    std::string Journal()
    {
        travail_.Attendre();
        const std::lock_guard garde(verrou_);
        return journal_;
    }

    std::mutex verrou_;
    std::string journal_;
    Travail travail_{{}};
};

}  // namespace

TEST_F(TestTravail, UneTacheALaFoisEtSaSuiteAvantLaProchaine)
{
    Porte porte;
    Demander(Place::Arbre, "a", &porte);
    Demander(Place::Recherche, "b");
    travail_.Executer(Place::Commande, [this] { Noter("c!"); });
    EXPECT_TRUE(travail_.EnCours(Place::Commande));
    porte.Ouvrir();
    EXPECT_EQ(Journal(), "a a! b b! c! ");
    travail_.Executer(Place::Commande, [this] { Noter("d!"); });
    EXPECT_EQ(journal_, "a a! b b! c! d! ") << "at once when nothing runs";
    EXPECT_FALSE(travail_.EnCours());
}

TEST_F(TestTravail, LaPlusRecenteRemplaceCellesDeSaPlace)
{
    Porte fermee;
    Demander(Place::Liste, "a", &fermee);
    fermee.AttendreEntree();
    Demander(Place::Liste, "b");
    Demander(Place::Tri, "x");
    Demander(Place::Liste, "c");
    EXPECT_EQ(Journal(), "a- x x! c c! ") << "the one that runs is stopped, the one that waits never begins";
}

TEST_F(TestTravail, ArreterNeLivreRien)
{
    Porte fermee;
    Demander(Place::Recherche, "a", &fermee);
    EXPECT_TRUE(travail_.EnCours(Place::Recherche));
    travail_.Arreter(Place::Recherche);
    EXPECT_FALSE(travail_.EnCours(Place::Recherche));
    EXPECT_TRUE(Journal().find('!') == std::string::npos);
}

TEST_F(TestTravail, UneSuitePeutDemanderEtLaisserPasserDesEvenements)
{
    travail_.Demander(
        Place::Arbre, [](const std::stop_token&) {},
        [this] {
            Demander(Place::Liste, "b");
            travail_.Executer(Place::Commande, [this] { Noter("c!"); });
            travail_.Livrer();  // as an event loop inside the sequel does
            Noter("a!");
        });
    EXPECT_EQ(Journal(), "a! b b! c! ");
}

TEST_F(TestTravail, LaFinNAttendQueCeQuiTourne)
{
    Porte fermee;
    std::atomic<int> faites = 0;
    {
        Travail court({});
        for (int i = 0; i < 3; ++i)
            court.Demander(
                static_cast<Place>(i),
                [&](const std::stop_token& arret) {
                    fermee.Passer(arret);
                    ++faites;
                },
                [&] { faites += 100; });
    }
    EXPECT_LE(faites, 1);
}

TEST(Consultation, SeuleLaDerniereReponseCompte)
{
    const auto fermee = std::make_shared<Porte>();  // outlives the question that hangs
    std::string journal;
    {
        Consultation consultation({});
        consultation.Demander([fermee](const std::stop_token&) { fermee->Passer({}); }, [&] { journal += "a"; });
        EXPECT_TRUE(consultation.EnCours());
        consultation.Demander([](const std::stop_token&) {}, [&] { journal += "b"; });
        consultation.Attendre();
        EXPECT_EQ(journal, "b");
        EXPECT_FALSE(consultation.EnCours());
        consultation.Demander([fermee](const std::stop_token&) { fermee->Passer({}); }, [&] { journal += "c"; });
        consultation.Arreter();
        consultation.Attendre();
        consultation.Demander([fermee](const std::stop_token&) { fermee->Passer({}); }, [&] { journal += "d"; });
    }
    EXPECT_FALSE(AttendreConsultations(std::chrono::milliseconds(1))) << "three hang, though nobody waits for them";
    fermee->Ouvrir();
    EXPECT_EQ(journal, "b");
    EXPECT_TRUE(AttendreConsultations(std::chrono::seconds(10)));
}
