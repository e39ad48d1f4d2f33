#include <gtest/gtest.h>

#include "commun/Texte.h"
#include "platform/Locale.h"

TEST(Texte, OrdreFrancais)
{
    // Each text comes before the next one.
    const std::vector<std::string> ordre = {"",       "-",      "_z",    "1",     "10",  "2",     "a",
                                            "A",      "à",      "ab",    "Æ",     "aet", "cote",  "Cote",
                                            "coté",   "côte",   "côté",  "coter", "œuf", "oeuil", "Œuvre",
                                            "straße", "strate", "zèbre", "zébré", "Ω",   "日",    "𝒜"};
    for (size_t gauche = 0; gauche < ordre.size(); ++gauche) {
        for (size_t droite = 0; droite < ordre.size(); ++droite) {
            const int signe = ComparerFrancais(ordre[gauche], ordre[droite]);
            EXPECT_EQ(signe <=> 0, gauche <=> droite) << ordre[gauche] << " " << ordre[droite];
            const DebutFrancais debutGauche = PeserDebut(ordre[gauche]), debutDroit = PeserDebut(ordre[droite]);
            EXPECT_TRUE(gauche > droite ? debutGauche >= debutDroit : debutGauche <= debutDroit)
                << ordre[gauche] << " " << ordre[droite];
        }
    }
    EXPECT_LT(ComparerFrancais("cafe\u0301", "cafétéria"), 0);  // accent written apart
    EXPECT_GT(ComparerFrancais("cafe\u0301", "cafe"), 0);
    EXPECT_NE(ComparerFrancais("\xFF\xE9", "\xFF"), 0);
    EXPECT_LT(PeserDebut("1022 b"), PeserDebut("1023 b"));  // tells texts apart by itself
    EXPECT_LT(PeserDebut("b\xC3\xA9ta1"), PeserDebut("beta2"));
    EXPECT_EQ(ComparerFrancais(std::string_view("a\0b", 3), std::string_view("a\0b", 3)), 0);
}

TEST(Texte, AnsiAllerRetour)
{
    std::string tous;
    for (int octet = 0; octet < 256; ++octet)
        tous += static_cast<char>(octet);
    std::string retour;
    EXPECT_TRUE(Utf8Valide(AnsiEnTexte(tous)));
    EXPECT_EQ(NombreCaracteres(AnsiEnTexte(tous)), 256U);
    ASSERT_TRUE(TexteEnAnsi(AnsiEnTexte(tous), retour));
    EXPECT_EQ(retour, tous);
    EXPECT_EQ(AnsiEnTexte("\x80\x9C\xE9"), "€œé");
    EXPECT_FALSE(TexteEnAnsi("日", retour));
    EXPECT_EQ(retour, tous);
}

TEST(Texte, Utf8Valide)
{
    for (const char* valide : {"", "été", "日本", "\U0010FFFF", "\xC2\x80", "longueur quelconque é"})
        EXPECT_TRUE(Utf8Valide(valide)) << valide;
    for (const char* invalide : {"\x80", "\xC0\x80", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                                 "\xF0\x80\x80\x80", "\xFF", "huit car\xE9"}) {
        EXPECT_FALSE(Utf8Valide(invalide)) << invalide;
        EXPECT_TRUE(Utf8Valide(NomEnTexte(invalide)));
        EXPECT_TRUE(Utf8Valide(Minuscules(invalide)));
    }
}

TEST(Texte, Casse)
{
    EXPECT_EQ(Majuscules("déjà œuvre ÿ µ ß"), "DÉJÀ ŒUVRE Ÿ µ ß");
    EXPECT_EQ(Minuscules("DÉJÀ ŒUVRE Ÿ"), "déjà œuvre ÿ");
    EXPECT_EQ(SansCasse(U'É'), SansCasse(U'é'));
    EXPECT_NE(SansCasse(U'e'), SansCasse(U'é'));
}

TEST(Locale, Nombres)
{
    EXPECT_EQ(SeparateurDecimal(), ",");
    EXPECT_EQ(FormatNombre(999.9996, 3, false), "1000,000");
    EXPECT_EQ(FormatNombre(1.005, 2, false), "1,01");
    EXPECT_EQ(FormatNombre(-2.345, 2, false), "-2,35");
    EXPECT_EQ(FormatNombre(-0.001, 2, false), "0,00");
    EXPECT_EQ(FormatNombre(9007199254740993.0, 1, false), "9007199254740992,0");
}

TEST(Locale, DatesEtHeures)
{
    const DateHeure ete = EnDateLocale((1'057'752'000 + 11'644'473'600) * 10'000'000);  // noon UTC, 9 July 2003
    EXPECT_EQ(DateCourteEntiere(ete), "09/07/2003");
    DateHeure lue;
    ASSERT_TRUE(LireDateCourte("09/07/2003", lue));
    EXPECT_EQ(std::tuple(lue.annee, lue.mois, lue.jour), std::tuple(2003, 7, 9));
    EXPECT_FALSE(LireDateCourte("31/02/2003", lue));
    EXPECT_EQ(HeureLongue(ete.heure, ete.minute, ete.seconde), "14:00:00");
    EXPECT_EQ(HeureLongue(24, 0, 0), "");
    EXPECT_EQ(EnDateLocale(11'644'473'600 * 10'000'000 - 1).seconde, 59);  // rounded down before 1970 too
    EXPECT_EQ(EnDateLocale(-1).annee, 1601);                               // local time of Paris is ahead
}
