#include "outils/DecrireContenu.h"
#include "outils/Octets.h"

using namespace std::string_literals;

using TextesTest = TestDescription;

static const std::string Loin(300'000, '.');  // lies in another block

TEST_F(TextesTest, ToutOctetDevientSonCaractere)
{
    std::string octets;
    for (int octet = 0; octet < 0x100; ++octet)
        octets += static_cast<char>(octet);
    const std::string caracteres = AnsiEnTexte(octets);
    for (const char* extension : {"nfo", "diz", "bbs"}) {
        EXPECT_EQ(DecrireContenu(travail_, extension, octets), caracteres) << extension;
        EXPECT_TRUE(DecrireContenu(travail_, extension, '#' + Fois(1000, octets)) == '#' + Fois(1000, caracteres));
    }
}

TEST_F(TextesTest, RienOuTrop)
{
    for (const char* extension : {"nfo", "htm", "vbp"}) {
        EXPECT_EQ(DecrireContenu(travail_, extension, ""), SansDescription) << extension;
        EXPECT_EQ(DecrireFichier(Fichier(), extension), SansDescription) << extension;
    }
    EXPECT_EQ(DecrireFichier(Fichier(), "pdf"), SansDescription);
    const std::filesystem::path chemin = travail_ / "trop";  // for a row of the base
    Ecrire(chemin, "<title>Title=\"a\"\r\n");
    std::filesystem::resize_file(chemin, 1'000'000'001);
    for (const char* extension : {"nfo", "vbp"})
        EXPECT_EQ(DecrireFichier(Fichier(chemin.string()), extension), SansDescription) << extension;
}

TEST_F(TextesTest, TitreHtml)
{
    const std::initializer_list<Cas> cas = {
        {"casse", "<HTML><TITLE>Mon Site</tItLe>", "Titre: Mon Site"},
        {"fin avant", "</title><title>a", SansDescription},
        {"attribut", "<title lang=fr>a</title><title >b</title>", SansDescription},
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
                 {"un vide ne remplace rien", "Title=\"a\"\nTitle=\" \"\nTitle=\n", "Titre: a\r\n"},
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
                 {"tout",
                  "%PDF-1.4\n1 0 obj\n<</Producer (Essai 1)\n/Author <FEFF00E90074>/CreationDate "
                  "(D:20031225143000+01'00')\n/Title <FEFF004D006F006E>>>\nendobj",
                  texte("Mon", "25/12/2003 14:30:00", "ét", " (Essai 1)\n/Author <FEFF00E90074")},
                 {"titre littéral", "/Title (Mon titre)/Author(moi)/Producer(x)>>", texte("", " ", "", "(x)")},
                 {"autres écritures", "/Title<FEFF0041>/Author <feff0041>/producer (x)/CreationDate(D:2003)>",
                  texte("", " ", "", "")},
                 {"dernier chiffre seul", "/Title <FEFF00419>/Author <FEFF0>", texte("A\t", " ", "\0"s, "")},
                 {"paires qui n'en sont pas", "/Author <FEFF0041\r\n0042 0 g0043+1-1>", texte("", " ", "ABC", "")},
                 {"titre sans fin", "/Title <FEFF0041", SansDescription},
                 {"auteur sans fin", "/Author <FEFF0041", SansDescription},
                 {"producteur sans fin", "/Producer (x)", SansDescription},
                 {"date par places", "/CreationDate (D:abcdefghijklmnop", texte("", "gh/ef/abcd ij:kl:mn", "", "")},
                 {"loin", Loin + "/Title <FEFF" + chiffresLoin + ">" + Loin + "/Producer" + Loin + ">",
                  texte(std::string(chiffresLoin.size() / 2, 'D'), " ", "", Loin)},
             });
}
