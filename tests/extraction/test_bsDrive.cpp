#include "Environnement.h"
#include "extraction/bsDrive.h"

TEST(bsDrive, TextesDuLecteur)
{
    EXPECT_EQ(TexteSerie(0x1234ABCD), "1234-ABCD");
    EXPECT_EQ(TexteSerie(0xABCDE), "ABCD-BCDE");
    EXPECT_EQ(TexteSerie(0xAB), "AB-AB");
    EXPECT_STREQ(NomTypeLecteur(5), "Lecteur DVD/CD-ROM");
    EXPECT_STREQ(NomTypeLecteur(7), "Unknown");
    bsDrive lecteur;
    EXPECT_THROW(lecteur.GetInfo(""), std::invalid_argument);
    EXPECT_THROW(lecteur.GetInfo("CD"), std::invalid_argument);
}
