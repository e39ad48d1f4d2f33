#include <gtest/gtest.h>

#include "shell/Textes.h"

TEST(Textes, FormatTaille)
{
    struct Cas {
        double octets;
        const char* texte;
    };
    for (const Cas& cas : {Cas{0, "0 b"}, Cas{1023, "1\u202f023 b"}, Cas{1024, "1,000 Kb"}, Cas{1536, "1,500 Kb"},
                           Cas{2500000, "2,384 Mb"}, Cas{1000.0 * 1024, "0,977 Mb"}, Cas{999.0 * 1024, "999,0 Kb"},
                           Cas{-5, "-5 b"}, Cas{1e30, "Out of bounds"}})
        EXPECT_EQ(FormatTaille(cas.octets), cas.texte) << cas.octets;
}

TEST(Textes, FormatCapacite)
{
    struct Cas {
        double octets;
        const char* texte;
    };
    constexpr double go = 1024.0 * 1024 * 1024;
    for (const Cas& cas : {Cas{0, " 0 Bytes"}, Cas{1000, " 1000 Bytes"}, Cas{1001, ",98 Ko"}, Cas{1024, "1,00 Ko"},
                           Cas{1474560, "1,41 Mo"}, Cas{4.7 * go, "4,70 Go"}, Cas{1000 * go, "1000,00 Go"},
                           Cas{2000 * go, "1,95 Go"}})  // a value over 1000 Go is divided once more, its unit stays
        EXPECT_EQ(FormatCapacite(cas.octets), cas.texte) << cas.octets;
}

TEST(Textes, PetitesFormes)
{
    EXPECT_EQ(Str(12), " 12");
    EXPECT_EQ(Str(0), " 0");
    EXPECT_EQ(Str(-3), "-3");
    EXPECT_EQ(CodeRepertoire(10), "000000010");
    EXPECT_EQ(CodeRepertoire(1234567890), "1234567890");

    using std::string_view_literals::operator""sv;
    EXPECT_EQ(StripNull("  a \0b"sv), "  a ");
    EXPECT_EQ(StripNull("\0b"sv), "");
    EXPECT_EQ(StripNull("  a b "), "a b");

    EXPECT_EQ(ExtensionFichier("PHOTO.JPG"), "jpg");
    EXPECT_EQ(ExtensionFichier(".Profile"), "profile");
    EXPECT_EQ(ExtensionFichier("fin."), "");
    EXPECT_EQ(ExtensionFichier("README"), "");
    EXPECT_EQ(ExtensionFichier("a.ÉTÉ"), "été");

    EXPECT_EQ(LastPath("D:\\a\\b"), "b");
    EXPECT_EQ(LastPath("D:\\a\\"), "");
    EXPECT_EQ(LastPath("seul"), "seul");

    EXPECT_EQ(NiceCase("CHANSONS D'ÉTÉ"), "Chansons D'été");
    EXPECT_EQ(NiceCase("éTé"), "éTé");
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
    EXPECT_EQ(FormatDateHeure(temps), "15/07/2004 00:30:05");
    EXPECT_EQ(DateFichier(0), "19800101");
}
