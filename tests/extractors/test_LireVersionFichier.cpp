#include "outils/DecrireContenu.h"
#include "outils/Octets.h"

using namespace std::string_literals;

namespace {

uint32_t Valeur(const std::string& octets, size_t place)
{
    uint32_t valeur = 0;
    octets.copy(reinterpret_cast<char*>(&valeur), sizeof valeur, place);
    return valeur;
}

struct RessourceFon {
    uint16_t type, numero;
    std::string donnees;
};

// A 16-bit file without code whose resources lie at multiples of 1 << decalage.
std::string Ne(const std::vector<RessourceFon>& ressources, uint16_t decalage = 0)
{
    const size_t unite = size_t{1} << decalage, finTable = 64 + 64 + 2 + ressources.size() * 20 + 2;
    std::string table = Petit(decalage), donnees(((finTable + unite - 1) / unite) * unite - finTable, '\0');
    for (const auto& [type, numero, contenu] : ressources) {
        const size_t unites = (contenu.size() + unite - 1) / unite;
        table += Petit(type) + Petit(1) + Petit(0, 4) + Petit((finTable + donnees.size()) >> decalage) + Petit(unites) +
                 Petit(0x0C50) + Petit(numero) + Petit(0, 4);
        donnees += contenu + std::string(unites * unite - contenu.size(), '\0');
    }
    const std::string ne = "NE" + Petit(0, 0x22) + Petit(64) + Petit(64 + table.size() + 2) + Petit(0, 24);
    return "MZ" + Petit(0, 0x3A) + Petit(64, 4) + ne + table + Petit(0) + donnees;
}

std::string NeSimple(const std::string& bloc)
{
    return Ne({{0x8010, 0x8001, bloc}});
}

// An ANSI entry of a 16-bit block.
std::string Entree(const std::string& cle, const std::string& valeur)
{
    const std::string nom = cle + std::string(4 - cle.size() % 4, '\0');
    return Petit(4 + nom.size() + valeur.size() + 1) + Petit(valeur.size() + 1) + nom + valeur +
           std::string(4 - valeur.size() % 4, '\0');
}

class VersionTest : public TestDescription {
protected:
    // The description of a file with such content; empty when there is none.
    std::string Decrire(const std::string& contenu) const
    {
        const std::string description = DecrireContenu(travail_, "exe", contenu);
        return description == SansDescription ? "" : description;
    }

    // A library without code, made by the tools of the machine ("i686", "x86_64").
    std::string Construire(const std::string& machine, const std::string& source) const
    {
        Ecrire(travail_ / "a.rc", source);
        const std::string outil = machine + "-w64-mingw32-";
        Executer(outil + "windres --preprocessor=cpp a.rc a.o && " + outil + "ld -shared -s a.o -o a.dll");
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
    // The later of the languages in the directory does not count, though it stands first in the source.
    const std::string autre = Source("BLOCK \"040904B0\" BEGIN VALUE \"FileVersion\", \"2\" END");
    const std::string deuxBlocs = "LANGUAGE 12, 1\n" + autre + "\nLANGUAGE 9, 1\n" + SourceSimple;
    for (const char* machine : {"i686", "x86_64"}) {
        EXPECT_EQ(Decrire(Construire(machine, deuxLangues)),
                  "Nom Compagnie   : Société\r\nDescription     : Une-Deux\r\nVersion Fichier : 1.2.3.4\r\n"
                  "Nom Interne     : I\r\nCopyright légal : © 2003\r\nNom Original    : a.dll\r\n"
                  "Nom Produit     : \r\nVersion Produit : 1.2\r\nCommentaire     : abc\r\n")
            << machine;
        EXPECT_EQ(Decrire(Construire(machine, "1 RCDATA BEGIN \"FileVersion\" END")), "") << machine;
        EXPECT_EQ(Decrire(Construire(machine, "1 RCDATA BEGIN \"x\" END\n" + deuxBlocs)), LigneSimple) << machine;
    }
}

// The tree of resources: directory at 0, its entry at 0x10, types at 0x18, languages at 0x30, data entry at 0x48.
TEST_F(VersionTest, ArbreDeRessourcesDouteux)
{
    const std::string intact = Construire("x86_64", SourceSimple);
    const size_t section = intact.find(".rsrc");
    ASSERT_NE(section, std::string::npos);
    const size_t racine = Valeur(intact, section + 20);
    struct Retouche {
        const char* nom;
        size_t place;
        std::string octets;
        bool decrit;
    };
    for (const Retouche& cas : {Retouche{"other section name", section, "UPX2\0"s, true},
                                {"other number", racine + 0x28, Petit(7, 4), true},
                                {"too many entries", racine + 0x0C, Petit(0xFFFFFFFF, 4), true},
                                {"data outside of the sections", racine + 0x48, Petit(0x70000000, 4), false},
                                {"type leads to the root", racine + 0x14, Petit(0x80000000, 4), false},
                                {"type leads to data", racine + 0x14, Petit(0x18, 4), false},
                                {"no entry", racine + 0x0C, Petit(0, 4), false}})
        EXPECT_EQ(Decrire(Avec(intact, cas.place, cas.octets)), cas.decrit ? LigneSimple : "") << cas.nom;

    // The data lie in another section than the tree.
    const size_t code = intact.find(".text"), donnees = racine + 0x48, taille = Valeur(intact, donnees + 4);
    const size_t bloc = racine + Valeur(intact, donnees) - Valeur(intact, section + 12);
    std::string ailleurs = Avec(intact, Valeur(intact, code + 20), intact.substr(bloc, taille));
    ailleurs = Avec(Avec(ailleurs, bloc, std::string(taille, '\xFF')), donnees, Petit(Valeur(intact, code + 12), 4));
    EXPECT_EQ(Decrire(ailleurs), LigneSimple);
    EXPECT_EQ(Decrire(ailleurs.substr(0, racine + 0x40)), "");

    // A last text without its terminator is not cut.
    const size_t valeur = intact.find("1\0.\0002\0\0"s, racine);
    ASSERT_NE(valeur, std::string::npos);
    const std::string sansFin = Avec(Avec(intact, valeur + 6, "Z"), valeur + 2, "\x1D");
    EXPECT_EQ(Decrire(Avec(sansFin, racine + 0x4C, Petit(valeur + 6 - bloc, 4))),
              "Version Fichier : 1\x1D"
              "2\r\n");
}

TEST_F(VersionTest, SeizeBits)
{
    const std::string bloc = Entree("CompanyName", "Soci\xE9t\xE9 Exemple") + Entree("FileVersion", "3.1.0");
    const std::string texte = "Nom Compagnie   : Société Exemple\r\nVersion Fichier : 3.1.0\r\n";
    const RessourceFon version{0x8010, 0x8001, bloc}, police{0x8008, 0x8001, std::string(700, 'p')};
    for (const Cas& cas :
         {Cas{"program", NeSimple(bloc), texte},
          {"font, resources on multiples of 16", Ne({{0x8007, 0x8001, "p"}, police, version}, 4), texte},
          {"block longer than the file", Avec(Ne({version}, 4), 64 + 64 + 2 + 8 + 2, "\xFF\xFF"), texte},
          {"other number", Ne({{0x8010, 0x8002, bloc}}), texte},
          {"type that is a name", Ne({{0x10, 0x8001, bloc}}), ""},
          {"no version", Ne({police}), ""}})
        EXPECT_EQ(Decrire(cas.contenu), cas.description) << cas.nom;
}

TEST_F(VersionTest, PasDeProgramme)
{
    const std::string ne = NeSimple(Entree("FileVersion", "1.2")), loin = Petit(0xFFFFFFFE, 4);
    ASSERT_EQ(Decrire(ne), LigneSimple);
    for (const std::string& octets : {""s, "MZ"s, "FileVersion\0\0\0\0001.2\0\0"s, Avec(ne, 0, "ZM"),
                                      Avec(ne, 0x3C, loin), Avec(ne, 64 + 0x26, Petit(64)), Avec(ne, 64, "LE"),
                                      Avec(ne, 64, "PE\0\0"s), ne.substr(0, 62), ne.substr(0, 100), ne.substr(0, 135)})
        EXPECT_EQ(Decrire(octets), "") << octets.size();
}

// "\0\0" stands for the end of a text.
TEST_F(VersionTest, RechercheDuTexte)
{
    const std::string compagnie = "Nom Compagnie   : ", description = "Description     : ",
                      version = "Version Fichier : ", interne = "Nom Interne     : ", produit = "Nom Produit     : ",
                      commentaire = "Commentaire     : ", copyright = "Copyright légal : ",
                      original = "Nom Original    : ", fin = "\r\n";
    const std::pair<std::string, std::string> table[] = {
        // UTF-16, whose NULs are counted from the first of a run, in pairs
        {"N\0a\0m\0e\0\0\0C\0o\0m\0p\0a\0n\0y\0N\0a\0m\0e\0\0\0\0\0A\0B\0\0\0z"s, compagnie + "AB" + fin},
        // two ends behind this key are passed, one is the value's own
        {"CompanyName\0\0\0\0AB\0\0z"s, compagnie + "AB" + fin},
        // behind the others up to two
        {"FileVersion\0\0\0\0AB\0\0z"s, version + "AB" + fin},
        {"FileVersion\0\0A\0\0z"s, version + "A" + fin},
        // no end: the rest, which is not cut
        {"CompanyNameA\035\026B"s, compagnie + "A\035\026B" + fin},
        {"Comments"s, ""},
        // cut characters, each in its lines only
        {"CompanyNameA\026B\035C\0\0"s, compagnie + "A" + fin},
        {"FileVersionAB\026C\035D\0\0"s, version + "AB\026C" + fin},
        {"FileDescriptionA\006B\026C\013\0\0"s, description + "ABC\013" + fin},
        // a value that runs into the next key gives back the length words, or none
        {"FileVersionAB\032\011InternalNameX\0\0"s, version + "AB" + fin + interne + "X" + fin},
        {"FileDescriptionFileVersionCD\0\0"s, description + fin + version + "CD" + fin},
        {"FileVersionABCDProductNameXY\0\0"s, version + "ABCDProductNameXY" + fin + produit + "XY" + fin},
        // no room to give back: it ends there, with the lines made so far
        {"CompanyNameAB\0\0FileVersionCInternalNameXY\0\0ProductNameZZ\0\0"s, compagnie + "AB" + fin},
        {"LegalCopyrightA\035B\036C\0\0"s, copyright + "A\035B" + fin},
        {"LegalCopyrightABCDOriginalFilenameE\036F\035G\0\0"s, copyright + "AB" + fin + original + "E\036F" + fin},
        {"OriginalFilenameABProductNameCDEFProductVersionG\0\0"s,
         original + "AB" + fin + produit + "CD" + fin + "Version Produit : G" + fin},
        {"ProductVersionA\013B\033C\035D\0\0"s, "Version Produit : AB" + fin},
        {"ProductVersionABCDComments\0\0ef\0\0"s, "Version Produit : AB" + fin},  // and a comment too short
        // line breaks, comments
        {"FileVersion\r\n1\n2\r3\r\r\n4\0\0"s, version + "-1\n2\r3\r-4" + fin},
        {"Comments\0\0 abc \0\0"s, commentaire + " abc " + fin},
        // case, first occurrence, bytes above 127
        {"fileversion\0\0\0\0AB\0\0FILEVERSION"s, ""},
        {"FileVersionAB\0\0FileVersionCD\0\0"s, version + "AB" + fin},
        {"FileVersion\x80\xE9\0\0"s, version + "€é" + fin},
    };
    for (const auto& [bloc, attendu] : table)
        EXPECT_EQ(Decrire(NeSimple(bloc)), attendu) << testing::PrintToString(bloc);
}
