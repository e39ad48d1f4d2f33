#include <gtest/gtest.h>

#include "LecteurFactice.h"
#include "audiocd/CDAudio.h"

namespace {

using Journal = std::vector<std::string>;

class Lecteur : public ::testing::Test {
protected:
    // The orders to play, stop and the like that have reached the drive since the last look.
    Journal Ordres()
    {
        Journal ordres;
        for (const std::string& ligne : machine_[0].journal)
            if (!ligne.starts_with("CDROMREADTOC"))
                ordres.push_back(ligne);
        machine_[0].journal.clear();
        return ordres;
    }

    MachineFactice machine_{DisqueFactice("150 20000 40000 60000")};
    CDAudio lecteur_{machine_};
};

}  // namespace

TEST_F(Lecteur, RienSansOuverture)
{
    lecteur_.StartPlay();
    lecteur_.EjectCD();
    EXPECT_EQ(lecteur_.CheckCD(), "");
    EXPECT_EQ(lecteur_.GetNumTracks(), 0);
    EXPECT_TRUE(Ordres().empty());
}

TEST_F(Lecteur, JoueEtRetient)
{
    lecteur_.SetCDPlayerReady("D:");
    EXPECT_FALSE(lecteur_.CheckIfPlaying());
    lecteur_.StartPlay();
    EXPECT_TRUE(lecteur_.CheckIfPlaying());
    lecteur_.PausePlay();
    EXPECT_EQ(lecteur_.Envoyer("status cd mode"), "paused");
    lecteur_.StartPlay();
    EXPECT_EQ(Ordres(), (Journal{"CDROMPLAYMSF 00:02:00 13:20:00", "CDROMPAUSE", "CDROMRESUME"}));

    lecteur_.SetFormat_tmsf();
    lecteur_.SetTrack(2);  // what plays stops
    EXPECT_EQ(lecteur_.GetCDPosition(), "02:00:00:00");
    lecteur_.StartPlay();
    lecteur_.MoveCD("3:01:02:03");
    EXPECT_EQ(Ordres(),
              (Journal{"CDROMSTOP", "CDROMPLAYMSF 04:26:50 13:20:00", "CDROMSTOP", "CDROMPLAYMSF 09:55:28 13:20:00"}));
    EXPECT_EQ(lecteur_.GetCDPosition(), "03:01:02:03");

    lecteur_.SetFormat_milliseconds();
    lecteur_.FastForward(1000);
    lecteur_.StopPlay();
    lecteur_.ReWind(600'000);  // before the beginning
    EXPECT_EQ(lecteur_.GetCDPosition(), "0");
    EXPECT_EQ(Ordres(), (Journal{"CDROMPLAYMSF 09:56:27 13:20:00", "CDROMSTOP"}));
}

TEST_F(Lecteur, DitCeQueLeDisqueContient)
{
    lecteur_.SetCDPlayerReady("d:");
    EXPECT_EQ(lecteur_.GetNumTracks(), 3);
    EXPECT_EQ(lecteur_.GetCDLength(), "13:18:00");
    EXPECT_EQ(lecteur_.GetTrackLength(3), "04:26:50");
    EXPECT_EQ(lecteur_.GetTrackLength(4), "");
    lecteur_.SetFormat_milliseconds();
    EXPECT_EQ(lecteur_.GetTrackLength(1), "264666");
    EXPECT_EQ(lecteur_.CheckCD(), "true");
    lecteur_.EjectCD();
    EXPECT_EQ(lecteur_.CheckCD(), "false");
    EXPECT_EQ(lecteur_.GetNumTracks(), 0);
    lecteur_.CloseCD();
    EXPECT_EQ(lecteur_.GetNumTracks(), 3);
    lecteur_.UnloadAll();
    EXPECT_EQ(lecteur_.CheckCD(), "");
}

TEST_F(Lecteur, CommandesFausses)
{
    lecteur_.SetCDPlayerReady("D:");
    Ordres();
    for (const char* commande : {"", "play", "play dvd", "seek cd", "seek cd to", "seek cd to -5", "seek cd to x",
                                 "seek cd to 99:99:99:99:99:x", "set cd", "set cd time format", "set cd door",
                                 "status cd", "status cd length track", "open d: type cdaudio alias cd",
                                 "open d: alias x", "set cd time format smpte", "play cd from x"})
        EXPECT_EQ(lecteur_.Envoyer(commande), "") << commande;
    EXPECT_TRUE(Ordres().empty());
}
