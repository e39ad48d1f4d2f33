#include "Environnement.h"
#include "platform/LecteurOctets.h"

class LecteurOctetsTest : public Environnement {
protected:
    Fichier Avec(const std::string& octets)
    {
        Ecrire(travail_ / "fichier", octets);
        return Fichier((travail_ / "fichier").string());
    }
};

TEST_F(LecteurOctetsTest, ToutOuRien)
{
    const Fichier fichier = Avec(std::string("\x01\x02\x03\x04", 4) + std::string(5000, 'x') + "fin");
    LecteurOctets lecteur(fichier);
    uint16_t mot = 0;
    EXPECT_TRUE(lecteur.PetitBoutiste(mot));
    EXPECT_EQ(mot, 0x0201);
    EXPECT_TRUE(lecteur.GrosBoutiste(mot));
    EXPECT_EQ(mot, 0x0304);

    lecteur.Aller(4094);  // across the end of a block
    EXPECT_EQ(lecteur.Octets(4), "xxxx");
    lecteur.Aller(5004);
    uint32_t tropLong = 7;
    EXPECT_FALSE(lecteur.PetitBoutiste(tropLong));
    EXPECT_EQ(tropLong, 7U);
    EXPECT_EQ(lecteur.Position(), 5004U);
    EXPECT_EQ(lecteur.Octets(UINT64_MAX), "fin");
    lecteur.Sauter(UINT64_MAX);
    EXPECT_EQ(lecteur.Reste(), 0U);
    EXPECT_EQ(lecteur.Octets(1), "");
}

// Patterns across the borders of blocks, at both ends of the range, and just outside it.
TEST_F(LecteurOctetsTest, Recherche)
{
    for (const size_t place : {size_t{0}, size_t{1}, size_t{4093}, size_t{4096}, size_t{20475}, size_t{299994}}) {
        std::string octets(300000, 'M');
        octets.replace(place, 6, "Motif.");
        const Fichier fichier = Avec(octets);
        EXPECT_EQ(Chercher(fichier, "Motif."), place);
        EXPECT_EQ(Chercher(fichier, "mOTIF.", 0, UINT64_MAX, Casse::Ignoree), place);
        EXPECT_EQ(Chercher(fichier, "mOTIF."), Introuvable);
        EXPECT_EQ(Chercher(fichier, "Motif.", place + 1), Introuvable);
        EXPECT_EQ(Chercher(fichier, "Motif.", place, place + 6), place);
        EXPECT_EQ(Chercher(fichier, "Motif.", 0, place + 5), Introuvable);
        EXPECT_EQ(ChercherUnDe(fichier, {"absent", "Motif."}), place);
        EXPECT_EQ(ChercherChacun(fichier, {"absent", "f.", "Motif."}),
                  (std::vector<uint64_t>{Introuvable, place + 4, place}));
    }
    EXPECT_EQ(ChercherUnDe(Avec("..ba..ab"), {"ab", "ba"}), 2U);
    EXPECT_EQ(Chercher(Fichier(), "x"), Introuvable);
    EXPECT_EQ(Chercher(Avec("abc"), "c", UINT64_MAX), Introuvable);
}
