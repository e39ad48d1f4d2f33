#include <random>

#include "outils/Environnement.h"
#include "platform/LecteurOctets.h"

namespace {
class LecteurOctetsTest : public Environnement {
protected:
    Fichier Poser(const std::string& contenu) const
    {
        Ecrire(travail_ / "octets", contenu);
        return Fichier((travail_ / "octets").string());
    }
};

// Without the letters of the patterns.
std::string Hasard(size_t taille)
{
    std::mt19937 hasard(7);
    std::string octets(taille, '\0');
    for (char& octet : octets)
        octet = static_cast<char>(hasard() % 64);
    return octets;
}

uint64_t Place(const std::string& octets, std::string_view motif, uint64_t debut, uint64_t fin)
{
    const size_t place = octets.substr(0, fin).find(motif, debut);
    return place == std::string::npos ? Introuvable : place;
}
}  // namespace

// Wherever a pattern lies, across the ends of blocks too, it is found as in memory.
TEST_F(LecteurOctetsTest, Recherches)
{
    const std::string fond = Hasard(30000);
    for (const size_t place : {0U, 9U, 10U, 4093U, 4094U, 4096U, 20478U, 20480U, 29996U}) {
        std::string octets = fond;
        octets.replace(place, 4, "MOTI");
        const Fichier fichier = Poser(octets);
        for (const uint64_t debut : {0U, 10U, 4090U, 4096U, 5000U})
            for (const uint64_t fin : {4097U, 4098U, 25000U, 30000U, 40000U}) {
                const std::string cas = testing::PrintToString(std::vector<uint64_t>{place, debut, fin});
                EXPECT_EQ(Chercher(fichier, "MOTI", debut, fin), Place(octets, "MOTI", debut, fin)) << cas;
                EXPECT_EQ(Chercher(fichier, "mOti", debut, fin, Casse::Ignoree), Place(octets, "MOTI", debut, fin));
                const uint64_t ot = Place(octets, "OT", debut, fin), mo = Place(octets, "MO", debut, fin);
                EXPECT_EQ(ChercherUnDe(fichier, {"OT", "MO"}, debut, fin), std::min(mo, ot)) << cas;
                const std::vector<uint64_t> chacun = {mo, ot, Introuvable};
                EXPECT_EQ(ChercherChacun(fichier, {"MO", "OT", "absent"}, debut, fin), chacun) << cas;
            }
    }
}

// The kept first block and the reader's own give what the file holds, in any order and size of reads.
TEST_F(LecteurOctetsTest, LecturesEnTousSens)
{
    for (const size_t taille : {0U, 100U, 4096U, 4097U, 30000U}) {
        const std::string octets = Hasard(taille);
        const Fichier fichier = Poser(octets);
        LecteurOctets lecteur(fichier);
        for (const uint64_t place : {29990U, 0U, 4095U, 4096U, 99U, 4000U, 12287U, 3U})
            for (const size_t nombre : {1U, 200U, 4096U, 5000U}) {
                const std::string attendu = place < taille ? octets.substr(place, nombre) : "";
                std::string lu(nombre, '\0');
                lu.resize(fichier.Lire(place, lu.data(), nombre));
                EXPECT_EQ(lu, attendu) << taille << ' ' << place << ' ' << nombre;
                lecteur.Aller(place);
                EXPECT_EQ(lecteur.Octets(nombre), attendu) << taille << ' ' << place << ' ' << nombre;
                lecteur.Aller(place);
                lu.assign(nombre, '\0');
                EXPECT_EQ(lecteur.Lire(lu.data(), nombre), attendu.size() == nombre);
                EXPECT_EQ(lecteur.Position(), attendu.size() == nombre ? place + nombre : place);
                EXPECT_TRUE(attendu.size() < nombre || lu == attendu);
            }
    }
}

TEST_F(LecteurOctetsTest, NombresEtDebordements)
{
    const Fichier fichier = Poser("\x01\x02\x03\x04\x05");
    LecteurOctets lecteur(fichier);
    uint16_t mot = 0;
    EXPECT_TRUE(lecteur.PetitBoutiste(mot));
    EXPECT_EQ(mot, 0x0201);
    EXPECT_TRUE(lecteur.GrosBoutiste(mot));
    EXPECT_EQ(mot, 0x0304);
    EXPECT_FALSE(lecteur.PetitBoutiste(mot));
    EXPECT_EQ(mot, 0x0304) << "all or nothing";
    EXPECT_EQ(lecteur.Octets(UINT64_MAX), "\x05");
    lecteur.Sauter(UINT64_MAX);
    EXPECT_EQ(lecteur.Reste(), 0U);
}
