#include "outils/DecrireContenu.h"
#include "outils/Octets.h"

using namespace std::string_literals;

namespace {

// A shell link as the published format lays it down: header, ID list, link information.
struct Lien {
    bool listeID = true;
    std::string local, partage, suite;  // either a local path or a share, and what remains behind it

    std::string Entete() const
    {
        const std::string classe = Petit(0x00021401, 8) + Petit(0x46000000000000C0, 8);
        return Petit(0x4C, 4) + classe + Petit(listeID ? 3 : 2, 4) + Petit(0x20, 4) + Petit(0, 24) + Petit(4096, 8) +
               Petit(1, 16);
    }

    std::string ListeID() const
    {
        const std::string liste = Petit(0x14, 2) + "\x1F\x50" + std::string(16, '\x22') + Petit(0, 2);
        return Petit(liste.size(), 2) + liste;
    }

    std::string Emplacement() const
    {
        constexpr uint32_t entete = 0x1C;
        const std::string volume = Petit(0x15, 4) + Petit(3, 4) + Petit(0x1234ABCD, 4) + Petit(0x10, 4) + "DATA\0"s;
        const std::string reseau =
            Petit(0x14 + partage.size() + 1, 8) + Petit(0x14, 8) + Petit(0x20000, 4) + partage + '\0';
        const bool enLocal = partage.empty();
        const std::string milieu = enLocal ? volume + local + '\0' : reseau;
        const uint64_t finMilieu = entete + milieu.size();
        return Petit(finMilieu + suite.size() + 1, 4) + Petit(entete, 4) + Petit(enLocal ? 1 : 2, 4) +
               Petit(enLocal ? entete : 0, 4) + Petit(enLocal ? entete + volume.size() : 0, 4) +
               Petit(enLocal ? 0 : entete, 4) + Petit(finMilieu, 4) + milieu + suite + '\0';
    }

    std::string Octets() const { return Entete() + (listeID ? ListeID() : "") + Emplacement(); }
};

constexpr const char* Erreur = "Raccourci: Error occured in function 'ResolveWindowsShortcut' for \"D:\\essai.lnk\".";

// The header without flags, then a location block of nothing but these two places and what follows: size, header size,
// flags and volume count for nothing.
std::string SansListe(uint32_t local, uint32_t suite, const std::string& textes)
{
    return Avec(Lien().Entete(), 20, Petit(0, 1)) + Petit(0, 16) + Petit(local, 4) + Petit(0, 4) + Petit(suite, 4) +
           textes;
}

}  // namespace

class RaccourciTest : public Environnement {
protected:
    std::string Decrire(std::string_view octets) { return DecrireContenu(travail_, "lnk", octets); }
};

TEST_F(RaccourciTest, Cibles)
{
    Lien lien;
    lien.local = "C:\\Programmes\\\xC9t\xE9 2003\\essai.exe";
    EXPECT_EQ(Decrire(lien.Octets()), "Raccourci: C:\\Programmes\\Été 2003\\essai.exe");
    lien.suite = "sous\\essai.exe";  // a shared local folder: both parts, the remaining one first
    lien.local = "C:\\Partage\\";
    EXPECT_EQ(Decrire(lien.Octets()), "Raccourci: sous\\essai.exeC:\\Partage\\");
    lien.partage = "\\\\SERVEUR\\Public";
    EXPECT_EQ(Decrire(lien.Octets()), "Raccourci: sous\\essai.exe");
    lien.suite = std::string(200'000, 'x');
    EXPECT_EQ(Decrire(lien.Octets()), "Raccourci: " + lien.suite);

    // Other flags without an ID list: the size of the block is taken for the size of a list.
    lien.listeID = false;
    EXPECT_EQ(Decrire(lien.Octets()), Erreur);
    EXPECT_EQ(Decrire(SansListe(28, 0, "C:\\a\0"s)), "Raccourci: C:\\a");
    EXPECT_EQ(Decrire(SansListe(0, 0, "")), "Raccourci: ");
}

TEST_F(RaccourciTest, CeQuiNEnEstPasUn)
{
    EXPECT_EQ(Decrire("[InternetShortcut]"), "Raccourci: Not a link file");
    EXPECT_EQ(DecrireFichier(Fichier(), "lnk"), Erreur);
    for (const std::string& octets :
         {""s, "MZ"s, "Lettre"s, std::string(100, 'L'), SansListe(28, 0, "sans fin"), SansListe(28, 0, ""),
          SansListe(0x80000000, 0, "a\0"s), SansListe(0, 0xFFFFFFFF, "a\0"s), SansListe(28, 500, "a\0"s)})
        EXPECT_EQ(Decrire(octets), Erreur) << octets.size();
}

TEST_F(RaccourciTest, CoupePartout)
{
    Lien lien;
    lien.local = "C:\\a.exe";
    const std::string octets = lien.Octets();
    const size_t finCible = octets.find(lien.local) + lien.local.size() + 1;
    for (size_t taille = 0; taille < octets.size(); ++taille) {
        const std::string attendu = taille > finCible ? "Raccourci: C:\\a.exe" : Erreur;
        EXPECT_EQ(Decrire(octets.substr(0, taille)), attendu) << taille;
    }
}
