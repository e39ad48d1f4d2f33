#include <gtest/gtest.h>

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "platform/FormesLocales.h"
#include "platform/Locale.h"

TEST(Textes, TailleEtCapacite)
{
    for (const auto& [octets, texte] : {std::pair{0.0, "0 b"},
                                        {1023.0, "1\u202f023 b"},
                                        {1536.0, "1,500 Kb"},
                                        {2500000.0, "2,384 Mb"},
                                        {1000.0 * 1024, "0,977 Mb"},
                                        {999.0 * 1024, "999,0 Kb"},
                                        {-5.0, "-5 b"},
                                        {1e30, "Out of bounds"}})
        EXPECT_EQ(FormatTaille(octets), texte) << octets;
    constexpr double go = 1024.0 * 1024 * 1024;
    for (const auto& [octets, texte] :
         {std::pair{0.0, " 0 Bytes"},
          {1000.0, " 1000 Bytes"},
          {1001.0, ",98 Ko"},
          {1474560.0, "1,41 Mo"},
          {1000 * go, "1000,00 Go"},
          {2000 * go, "1,95 Go"}})  // a value over 1000 Go is divided once more, its unit stays
        EXPECT_EQ(FormatCapacite(octets), texte) << octets;
}

TEST(Textes, PetitesFormes)
{
    EXPECT_EQ(Str(12), " 12");
    EXPECT_EQ(Str(0), " 0");
    EXPECT_EQ(Str(-3), "-3");
    EXPECT_EQ(CodeRepertoire(10), "000000010");
    EXPECT_EQ(CodeRepertoire(1234567890), "1234567890");

    EXPECT_EQ(ExtensionFichier("PHOTO.JPG"), "jpg");
    EXPECT_EQ(ExtensionFichier(".Profile"), "profile");
    EXPECT_EQ(ExtensionFichier("fin."), "");
    EXPECT_EQ(ExtensionFichier("README"), "");
    EXPECT_EQ(ExtensionFichier("a.ÉTÉ"), "été");
}

TEST(Textes, AttributsSurQuinzeLettres)
{
    EXPECT_EQ(GetAttrString(0x21), "r....a.........");
    EXPECT_EQ(GetAttrString(0xFFFFFFFF), "rhsvdalnt?lco?e");
}

TEST(Textes, EstNumerique)
{
    for (const char* oui : {"2001", " 12 ", "-3", "1.5", "1,5", "+7"})
        EXPECT_TRUE(EstNumerique(oui)) << oui;
    for (const char* non : {"", "-", "_007", "12a", "1 2", "1.2.3", "A99", ","})
        EXPECT_FALSE(EstNumerique(non)) << non;
}

TEST(Textes, DateEtHeureLocales)
{
    // 2004-07-14 22:30:05 UTC, in Paris already the 15th.
    constexpr int64_t temps = (1089844205LL + 11644473600LL) * 10000000LL;
    EXPECT_EQ(DateFichier(temps), "20040715");
    EXPECT_EQ(HeureFichier(temps), "00:30:05");
    EXPECT_EQ(DateFichier(0), "19800101");
    EXPECT_EQ(TempsDepuis1601(-11'644'473'600, 100), 1);
    for (const auto& [loin, date] : {std::pair{INT64_MAX, "99991231"},
                                     {INT64_MIN, "00010101"},
                                     {TempsDepuis1601(INT64_MAX, 999'999'999), "99991231"},
                                     {TempsDepuis1601(INT64_MIN, 0), "00010101"},
                                     {TempsDepuis1601(500'000'000'000, 0), "99991231"}})
        EXPECT_EQ(DateFichier(loin), date);
}
