#include <cstdlib>
#include <vector>

#include "Environnement.h"
#include "extractors/Aiguillage.h"

using namespace std::string_literals;

namespace {

std::string Petit(uint32_t valeur, size_t octets)
{
    std::string suite;
    for (size_t i = 0; i < octets; ++i)
        suite += static_cast<char>(valeur >> 8 * i);
    return suite;
}

uint32_t Valeur(const std::string& octets, size_t place)
{
    uint32_t valeur = 0;
    for (size_t i = 4; i-- > 0;)
        valeur = valeur << 8 | static_cast<unsigned char>(octets.at(place + i));
    return valeur;
}

void Poser(std::string& octets, size_t place, const std::string& nouveaux)
{
    octets.replace(place, nouveaux.size(), nouveaux);
}

struct RessourceFon {
    uint16_t type, numero;
    std::string donnees;
};

// A 16-bit file without code whose resources lie at multiples of 1 << decalage.
std::string Ne(const std::vector<RessourceFon>& ressources, uint16_t decalage = 0, uint16_t tailleMenteuse = 0)
{
    const size_t unite = size_t{1} << decalage, finTable = 64 + 64 + 2 + ressources.size() * 20 + 2;
    std::string table = Petit(decalage, 2), donnees(((finTable + unite - 1) / unite) * unite - finTable, '\0');
    for (const auto& [type, numero, contenu] : ressources) {
        const size_t unites = (contenu.size() + unite - 1) / unite;
        table += Petit(type, 2) + Petit(1, 2) + Petit(0, 4);
        table += Petit(static_cast<uint32_t>((finTable + donnees.size()) >> decalage), 2) +
                 Petit(tailleMenteuse ? tailleMenteuse : static_cast<uint32_t>(unites), 2) + Petit(0x0C50, 2) +
                 Petit(numero, 2) + Petit(0, 4);
        donnees += contenu + std::string(unites * unite - contenu.size(), '\0');
    }
    const std::string ne = "NE" + std::string(0x22, '\0') + Petit(64, 2) +
                           Petit(static_cast<uint32_t>(64 + table.size() + 2), 2) + std::string(24, '\0');
    return "MZ" + std::string(0x3A, '\0') + Petit(64, 4) + ne + table + Petit(0, 2) + donnees;
}

std::string NeSimple(const std::string& bloc)
{
    return Ne({{0x8010, 0x8001, bloc}});
}

// An ANSI entry of a 16-bit block.
std::string Entree(const std::string& cle, const std::string& valeur)
{
    std::string texte = cle + '\0';
    texte.resize((texte.size() + 3) / 4 * 4);
    texte += valeur + '\0';
    const std::string longueurs =
        Petit(static_cast<uint32_t>(4 + texte.size()), 2) + Petit(static_cast<uint32_t>(valeur.size() + 1), 2);
    texte.resize((texte.size() + 3) / 4 * 4);
    return longueurs + texte;
}

class VersionTest : public Environnement {
protected:
    // The description of a file with such content; empty when there is none.
    std::string Decrire(const std::string& contenu, const char* extension = "exe") const
    {
        Ecrire(travail_ / "entree", contenu);
        const Fichier fichier((travail_ / "entree").string());
        std::string resultat = "intact";
        const bool decrit = ChoisirBranche(extension).extraire({fichier, "D:\\entree", extension}, resultat);
        EXPECT_EQ(decrit, resultat != "intact");
        return decrit ? resultat : "";
    }

    // A library without code, made by the tools of the machine ("i686", "x86_64").
    std::string Construire(const std::string& machine, const std::string& source) const
    {
        Ecrire(travail_ / "a.rc", source);
        const std::string outil = machine + "-w64-mingw32-";
        const std::string commande = "cd " + travail_.string() + " && " + outil +
                                     "windres --preprocessor=cpp a.rc a.o >/dev/null 2>&1 && " + outil +
                                     "ld -shared -s a.o -o a.dll >/dev/null 2>&1";
        EXPECT_EQ(std::system(commande.c_str()), 0) << commande;
        return Contenu(travail_ / "a.dll");
    }
};

std::string Source(const std::string& blocs)
{
    return "1 VERSIONINFO FILEVERSION 1,2,3,4 BEGIN BLOCK \"StringFileInfo\" BEGIN " + blocs +
           " END BLOCK \"VarFileInfo\" BEGIN VALUE \"Translation\", 0x40C, 1200 END END";
}

const std::string SourceSimple = Source("BLOCK \"040C04B0\" BEGIN VALUE \"FileVersion\", \"1.2\" END");
const std::string LigneSimple = "Version Fichier : 1.2\r\n";

}  // namespace

TEST_F(VersionTest, VraiesBibliotheques)
{
    const std::string deuxLangues = Source(
        "BLOCK \"040C04B0\" BEGIN VALUE \"Comments\", \"abc\" VALUE \"CompanyName\", \"Soci\\351t\\351\" "
        "VALUE \"FileDescription\", \"Une\\r\\nDeux\" VALUE \"FileVersion\", \"1.2.3.4\" VALUE \"InternalName\", \"I\" "
        "VALUE \"LegalCopyright\", \"\\251 2003\" VALUE \"OriginalFilename\", \"a.dll\" VALUE \"ProductName\", \"\" "
        "VALUE \"ProductVersion\", \"1.2\" END BLOCK \"040904B0\" BEGIN VALUE \"CompanyName\", \"Company\" END");
    for (const char* machine : {"i686", "x86_64"}) {
        EXPECT_EQ(Decrire(Construire(machine, deuxLangues)),
                  "Nom Compagnie   : Société\r\n"
                  "Description     : Une-Deux\r\n"
                  "Version Fichier : 1.2.3.4\r\n"
                  "Nom Interne     : I\r\n"
                  "Copyright légal : © 2003\r\n"
                  "Nom Original    : a.dll\r\n"
                  "Nom Produit     : \r\n"
                  "Version Produit : 1.2\r\n"
                  "Commentaire     : abc\r\n")
            << machine;
        EXPECT_EQ(Decrire(Construire(machine, SourceSimple)), LigneSimple) << machine;
        EXPECT_EQ(Decrire(Construire(machine, "1 RCDATA BEGIN \"FileVersion\" END")), "") << machine;
        // The later of the languages in the directory does not count, though it stands first in the source.
        const std::string autre = Source("BLOCK \"040904B0\" BEGIN VALUE \"FileVersion\", \"2\" END");
        EXPECT_EQ(Decrire(Construire(machine, "LANGUAGE 12, 1\n" + autre + "\nLANGUAGE 9, 1\n" + SourceSimple)),
                  LigneSimple)
            << machine;
    }
}

// The tree of resources: directory at 0, its entry at 0x10, types at 0x18, languages at 0x30, data entry at 0x48.
TEST_F(VersionTest, ArbreDeRessourcesDouteux)
{
    const std::string intact = Construire("x86_64", SourceSimple);
    const size_t section = intact.find(".rsrc");
    ASSERT_NE(section, std::string::npos);
    const size_t racine = Valeur(intact, section + 20);
    struct Cas {
        const char* nom;
        size_t place;
        std::string octets;
        bool decrit;
    };
    for (const Cas& cas : {Cas{"other section name", section, "UPX2\0"s, true},
                           {"size of the data lies", racine + 0x4C, Petit(0xFFFFFFFF, 4), true},
                           {"other number", racine + 0x28, Petit(7, 4), true},
                           {"too many entries", racine + 0x0C, Petit(0xFFFFFFFF, 4), true},
                           {"other type", racine + 0x10, Petit(3, 4), false},
                           {"data outside of the sections", racine + 0x48, Petit(0x70000000, 4), false},
                           {"data without size", racine + 0x4C, Petit(0, 4), false},
                           {"type leads to the root", racine + 0x14, Petit(0x80000000, 4), false},
                           {"language leads to the root", racine + 0x44, Petit(0x80000000, 4), false},
                           {"type leads to data", racine + 0x14, Petit(0x18, 4), false},
                           {"no entry", racine + 0x0C, Petit(0, 4), false}}) {
        std::string octets = intact;
        Poser(octets, cas.place, cas.octets);
        EXPECT_EQ(Decrire(octets), cas.decrit ? LigneSimple : "") << cas.nom;
    }

    // The data lie in another section than the tree.
    std::string ailleurs = intact;
    const size_t code = ailleurs.find(".text"), donnees = racine + 0x48;
    const size_t taille = Valeur(ailleurs, donnees + 4);
    const size_t bloc = racine + Valeur(ailleurs, donnees) - Valeur(ailleurs, section + 12);
    Poser(ailleurs, Valeur(ailleurs, code + 20), ailleurs.substr(bloc, taille));
    Poser(ailleurs, bloc, std::string(taille, '\xFF'));
    Poser(ailleurs, donnees, Petit(Valeur(ailleurs, code + 12), 4));
    EXPECT_EQ(Decrire(ailleurs), LigneSimple);
    EXPECT_EQ(Decrire(ailleurs.substr(0, racine + 0x40)), "");
}

TEST_F(VersionTest, SeizeBits)
{
    const std::string bloc = Entree("CompanyName", "Soci\xE9t\xE9 Exemple, fonderie") +
                             Entree("FileDescription", "Police de 10 points") + Entree("FileVersion", "3.1.0") +
                             Entree("ProductName", "Polices");
    const std::string texte =
        "Nom Compagnie   : Société Exemple, fonderie\r\n"
        "Description     : Police de 10 points\r\n"
        "Version Fichier : 3.1.0\r\n"
        "Nom Produit     : Polices\r\n";
    const std::string police(700, 'p');
    struct Cas {
        const char* nom;
        std::string fichier;
        const char* extension;
        std::string attendu;
    };
    for (const Cas& cas :
         {Cas{"program", NeSimple(bloc), "exe", texte},
          {"font, resources on multiples of 16",
           Ne({{0x8007, 0x8001, police}, {0x8008, 0x8001, police}, {0x8010, 0x8001, bloc}}, 4), "fon", texte},
          {"driver, type with a name before", Ne({{0x20, 0x8001, police}, {0x8010, 0x8001, bloc}}, 9), "sys", texte},
          {"block longer than the file", Ne({{0x8010, 0x8001, bloc}}, 4, 0xFFFF), "exe", texte},
          {"other number", Ne({{0x8010, 0x8002, bloc}}), "exe", texte},
          {"type that is a name", Ne({{0x10, 0x8001, bloc}}), "exe", ""},
          {"no version", Ne({{0x8007, 0x8001, bloc}}), "fon", ""}})
        EXPECT_EQ(Decrire(cas.fichier, cas.extension), cas.attendu) << cas.nom;
}

TEST_F(VersionTest, PasDeProgramme)
{
    const std::string valeur = Entree("FileVersion", "1.2");
    const auto autreEntete = [&](const std::string& signature) {
        std::string octets = NeSimple(valeur);
        Poser(octets, 64, signature);
        return octets;
    };
    const std::string ne = NeSimple(valeur);
    std::string sansMz = ne, loin = ne, sansTable = ne;
    Poser(sansMz, 0, "ZM");
    Poser(loin, 0x3C, Petit(0xFFFFFFFE, 4));
    Poser(sansTable, 64 + 0x26, Petit(64, 2));
    ASSERT_EQ(Decrire(ne), LigneSimple);
    for (const std::string& octets : {""s, "M"s, "MZ"s, "FileVersion\0\0\0\0001.2\0\0"s, sansMz, loin, sansTable,
                                      autreEntete("LE"), autreEntete("LX"), autreEntete("PE"), autreEntete("PE\0\0"s),
                                      ne.substr(0, 62), ne.substr(0, 100), ne.substr(0, 135), "\x7F" + ("ELF" + ne)})
        EXPECT_EQ(Decrire(octets, "txt"), "") << octets.size();
}

// "\0\0" stands for the end of a text.
TEST_F(VersionTest, RechercheDuTexte)
{
    struct Cas {
        std::string bloc, attendu;
    };
    const std::string compagnie = "Nom Compagnie   : ", description = "Description     : ",
                      version = "Version Fichier : ", interne = "Nom Interne     : ", droits = "Copyright légal : ",
                      produit = "Nom Produit     : ", versionProduit = "Version Produit : ",
                      commentaire = "Commentaire     : ", fin = "\r\n";
    for (const Cas& cas : {
             // UTF-16, whose NULs are counted from the first of a run, in pairs
             Cas{"N\0a\0m\0e\0\0\0C\0o\0m\0p\0a\0n\0y\0N\0a\0m\0e\0\0\0\0\0A\0B\0\0\0z"s, compagnie + "AB" + fin},
             // two ends behind this key are passed, one is the value's own
             {"CompanyName\0\0\0\0AB\0\0z"s, compagnie + "AB" + fin},
             {"CompanyName\0\0AB\0\0z"s, compagnie + fin},
             // behind the others up to two
             {"FileVersion\0\0\0\0AB\0\0z"s, version + "AB" + fin},
             {"FileVersion\0\0A\0\0z"s, version + "A" + fin},
             {"FileVersion\0\0\0\0\0\0z"s, version + fin},
             {"Comments\0\0abc\0\0z"s, commentaire + "abc" + fin},
             // no end: the rest, which is not cut
             {"CompanyNameA\035\026B"s, compagnie + "A\035\026B" + fin},
             {"FileVersion"s, version + fin},
             {"Comments"s, ""},
             // cut characters, each in its lines only
             {"CompanyNameA\026B\035C\0\0"s, compagnie + "A" + fin},
             {"FileVersionAB\026C\035D\0\0"s, version + "AB\026C" + fin},
             {"LegalCopyrightAB\035C\036D\0\0"s, droits + "AB\035C" + fin},
             {"ProductVersionAB\033C\035\0\0"s, versionProduit + "AB" + fin},
             {"FileDescriptionA\006B\026C\013\0\0"s, description + "ABC\013" + fin},
             {"ProductVersionA\006B\013C\0\0"s, versionProduit + "A\006BC" + fin},
             // a value that runs into the next key gives back the length words, or none
             {"FileVersionAB\032\011InternalNameX\0\0"s, version + "AB" + fin + interne + "X" + fin},
             {"FileDescriptionABFileVersionCD\0\0"s, description + "AB" + fin + version + "CD" + fin},
             {"FileDescriptionFileVersionCD\0\0"s, description + fin + version + "CD" + fin},
             {"FileVersionABCDProductNameXY\0\0"s, version + "ABCDProductNameXY" + fin + produit + "XY" + fin},
             // no room to give back: it ends there, with the lines made so far
             {"CompanyNameAB\0\0FileVersionCInternalNameXY\0\0ProductNameZZ\0\0"s, compagnie + "AB" + fin},
             {"CompanyNameFileDescriptionAB\0\0"s, ""},
             // line breaks, comments
             {"FileVersion\r\n1\n2\r3\r\r\n4\0\0"s, version + "-1\n2\r3\r-4" + fin},
             {"Comments\0\0ab\0\0"s, ""},
             {"Comments\0\0  ab  \0\0"s, ""},
             {"Comments\0\0 abc \0\0"s, commentaire + " abc " + fin},
             // case, first occurrence, bytes above 127
             {"fileversion\0\0\0\0AB\0\0FILEVERSION"s, ""},
             {"FileVersionAB\0\0FileVersionCD\0\0"s, version + "AB" + fin},
             {"FileVersion\x80\xE9\0\0"s, version + "€é" + fin},
         })
        EXPECT_EQ(Decrire(NeSimple(cas.bloc)), cas.attendu) << testing::PrintToString(cas.bloc);
}

// A Unicode block whose last text lacks its terminator ends all the same.
TEST_F(VersionTest, DerniereValeurSansFin)
{
    std::string octets = Construire("i686", SourceSimple);
    const size_t racine = Valeur(octets, octets.find(".rsrc") + 20);
    const size_t valeur = octets.find("1\0.\0002\0\0"s, racine);
    ASSERT_NE(valeur, std::string::npos);
    const size_t bloc = octets.find("V\0S\0_\0V"s, racine) - 6;
    Poser(octets, valeur + 6, "Z");
    Poser(octets, valeur + 2, "\x1D");
    Poser(octets, racine + 0x4C, Petit(static_cast<uint32_t>(valeur + 6 - bloc), 4));
    EXPECT_EQ(Decrire(octets), "Version Fichier : 1\r\n");
}
