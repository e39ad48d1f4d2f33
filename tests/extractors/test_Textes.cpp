#include "DecrireContenu.h"

using namespace std::string_literals;

namespace {
struct Cas {
    const char* nom;
    std::string contenu, description;
};

const std::string Loin(300'000, '.');  // lies in another block
}  // namespace

class TextesTest : public Environnement {
protected:
    void Verifier(const char* extension, std::initializer_list<Cas> liste)
    {
        for (const Cas& cas : liste)
            EXPECT_EQ(DecrireContenu(travail_, extension, cas.contenu), cas.description) << cas.nom;
    }
};

TEST_F(TextesTest, ToutOctetDevientSonCaractere)
{
    std::string octets, caracteres;
    for (int octet = 0; octet < 0x80; ++octet)
        caracteres += static_cast<char>(octet);
    caracteres += "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";
    for (char32_t latin = 0xA0; latin <= 0xFF; ++latin)
        AjouterCaractere(caracteres, latin);
    for (int octet = 0; octet < 0x100; ++octet)
        octets += static_cast<char>(octet);

    std::string grandFichier = "#", grandTexte = "#";
    for (int fois = 0; fois < 1000; ++fois) {
        grandFichier += octets;
        grandTexte += caracteres;
    }
    for (const char* extension : {"nfo", "diz", "bbs"}) {
        EXPECT_EQ(DecrireContenu(travail_, extension, octets), caracteres) << extension;
        EXPECT_TRUE(DecrireContenu(travail_, extension, grandFichier) == grandTexte) << extension;
    }
}

TEST_F(TextesTest, SansContenu)
{
    for (const char* extension : {"nfo", "htm", "vbp"}) {
        EXPECT_EQ(DecrireContenu(travail_, extension, ""), SansDescription) << extension;
        EXPECT_EQ(DecrireFichier(Fichier(), extension), SansDescription) << extension;
    }
    EXPECT_EQ(DecrireFichier(Fichier(), "pdf"), SansDescription);
    EXPECT_EQ(DecrireContenu(travail_, "nfo", "\r\n"), "\r\n");
}

TEST_F(TextesTest, PlusLongQuUneLigneDeLaBase)
{
    const std::filesystem::path chemin = travail_ / "vide";
    Ecrire(chemin, "<title>Title=\"a\"\r\n");
    std::filesystem::resize_file(chemin, 1'000'000'001);
    for (const char* extension : {"nfo", "vbp"})
        EXPECT_EQ(DecrireFichier(Fichier(chemin.string()), extension), SansDescription) << extension;
}

TEST_F(TextesTest, TitreHtml)
{
    const std::initializer_list<Cas> cas = {
        {"casse", "<HTML><TITLE>Mon Site</tItLe>", "Titre: Mon Site"},
        {"sans fin", "<title>Sans fin", SansDescription},
        {"fin avant", "</title><title>a", SansDescription},
        {"vide", "<title></title>", "Titre: "},
        {"attribut", "<title lang=fr>a</title><title >b</title>", SansDescription},
        {"attribut d'abord", "<title lang=fr>a</title><title>b</title>", "Titre: b"},
        {"deux titres", "<title>a</title><title>b</title>", "Titre: a"},
        {"imbriqués", "<title>a<title>b</title></title>", "Titre: a<title>b"},
        {"tel quel", "<title>\r\n \xC9t\xE9 &amp; \x80\0\t</title>"s, "Titre: \r\n Été &amp; €\0\t"s},
        {"loin", Loin + "<title>" + Loin + "</title>", "Titre: " + Loin},
    };
    Verifier("htm", cas);
    Verifier("html", cas);
    for (size_t place = 4080; place < 4100; ++place)  // across the end of the first block
        EXPECT_EQ(DecrireContenu(travail_, "htm", std::string(place, ' ') + "<Title>a</Title>"), "Titre: a") << place;
}

TEST_F(TextesTest, ClesDuProjet)
{
    Verifier("vbp",
             {
                 {"ordre des libellés",
                  "Type=Exe\r\nVersionProductName=\"Velours\"\r\nVersionLegalTrademarks=\"TM\"\r\n"
                  "VersionLegalCopyright=\"\xA9 2003\"\r\nVersionFileDescription=\"Essai\"\r\n"
                  "VersionCompanyName=\"Soci\xE9t\xE9\"\r\nVersionComments=\"Rien\"\r\nTitle=\"Mon Projet\"\r\n",
                  "Titre: Mon Projet\r\nCommentaire: Rien\r\nCompagnie: Société\r\nDescription: Essai\r\n"
                  "Copyright: © 2003\r\nVersion légale: TM\r\nProduit: Velours\r\n"},
                 {"sans guillemets", "Title=Mon Projet", "Titre: on Projet\r\n"},
                 {"guillemets seuls", "VersionLegalCopyright=\"\"\r\nTitle=\"  \"\r\nVersionComments=\r\nTitle=x",
                  SansDescription},
                 {"dernière valeur", "Title=\"a\"\nTitle=\"b\"\n", "Titre: b\r\n"},
                 {"un vide ne remplace rien", "Title=\"a\"\nTitle=\" \"\nTitle=\n", "Titre: a\r\n"},
                 {"blancs gardés", "Title=\"  a\"\"b  \"", "Titre:   ab  \r\n"},
                 {"casse", "TITLE=\"a\"\r\ntitle=\"b\"", SansDescription},
                 {"clé au milieu", "SubTitle=\"a\"", "Titre: a\r\n"},
                 {"deux clés en une ligne", "VersionComments=\"Title=\"b\"", "Titre: b\r\nCommentaire: Title=b\r\n"},
                 {"fins de ligne", "Title=\"a\"\rVersionComments=\"b\"\nVersionProductName=\"c\"\r\n",
                  "Titre: a\r\nCommentaire: b\r\nProduit: c\r\n"},
                 {"fin de texte", "Title=\"a\"\r\nTitle=\"b\x1A\"\r\nTitle=\"c\"", "Titre: b\r\n"},
                 {"NUL", "\0Title=\"a\0b\""s, "Titre: a\0b\r\n"s},
                 {"longue ligne", "Title=\"" + Loin + Loin, "Titre: " + Loin + Loin + "\r\n"},
             });
}

TEST_F(TextesTest, ValeursDuPdf)
{
    const auto texte = [](const std::string& titre, const std::string& date, const std::string& auteur,
                          const std::string& producteur) {
        return "Titre : " + titre + "\r\nDate de création : " + date + "\r\nCréateur : " + auteur +
               "\r\nNom : " + producteur;
    };
    const std::string chiffresLoin(200'000, '4');
    Verifier("pdf",
             {
                 {"sans clé", "%PDF-1.4\n%%EOF", texte("", " ", "", "")},
                 {"fichier vide", "", texte("", " ", "", "")},
                 {"tout",
                  "%PDF-1.4\n1 0 obj\n<</Producer (Essai 1)\n/Author <FEFF00E90074>/CreationDate "
                  "(D:20031225143000+01'00')\n/Title <FEFF004D006F006E>>>\nendobj",
                  texte("Mon", "25/12/2003 14:30:00", "ét", " (Essai 1)\n/Author <FEFF00E90074")},
                 {"titre littéral", "/Title (Mon titre)/Author(moi)/Producer(x)>>", texte("", " ", "", "(x)")},
                 {"autres écritures", "/Title<FEFF0041>/Author <feff0041>/producer (x)/CreationDate(D:2003)>",
                  texte("", " ", "", "")},
                 {"première clé", "/Title <FEFF0041>/Title <FEFF0042>", texte("A", " ", "", "")},
                 {"octets hauts gardés", "/Title <FEFF20AC00e9004a>", texte(" ¬éJ", " ", "", "")},
                 {"dernier chiffre seul", "/Title <FEFF00419>/Author <FEFF0>", texte("A\t", " ", "\0"s, "")},
                 {"blanc dans le titre", "/Title <FEFF0041 0042>", SansDescription},
                 {"fin de ligne dans l'auteur", "/Author <FEFF0041\r\n0042>", SansDescription},
                 {"titre sans fin", "/Title <FEFF0041", SansDescription},
                 {"auteur sans fin", "/Author <FEFF0041", SansDescription},
                 {"producteur sans fin", "/Producer (x)", SansDescription},
                 {"date par places", "/CreationDate (D:abcdefghijklmnop", texte("", "gh/ef/abcd ij:kl:mn", "", "")},
                 {"date coupée", "/CreationDate (D:200312251", texte("", "25/12/2003 1::", "", "")},
                 {"loin", Loin + "/Title <FEFF" + chiffresLoin + ">" + Loin + "/Producer" + Loin + ">",
                  texte(std::string(chiffresLoin.size() / 2, 'D'), " ", "", Loin)},
             });
}
