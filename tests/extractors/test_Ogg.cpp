#include <cstdlib>
#include <vector>

#include "Environnement.h"
#include "extractors/DecrireOgg.h"

using namespace std::string_literals;

namespace {

class OggTest : public Environnement {
protected:
    // The description, "rien" when there is none.
    std::string Decrire(const std::string& contenu) const
    {
        Ecrire(travail_ / "son.ogg", contenu);
        std::string description = "avant";
        if (DecrireOgg(Fichier((travail_ / "son.ogg").string()), description))
            return description;
        EXPECT_EQ(description, "avant");
        return "rien";
    }

    void Outil(const std::string& commande) const
    {
        ASSERT_EQ(std::system(("cd '" + travail_.string() + "' && " + commande + " >/dev/null 2>&1").c_str()), 0)
            << commande;
    }
};

std::string Longueur(size_t nombre)
{
    return {static_cast<char>(nombre), static_cast<char>(nombre >> 8), '\0', '\0'};
}

std::string Commentaires(const std::vector<std::string>& entrees, size_t vendeur = 29)
{
    std::string texte = "\x03vorbis" + Longueur(vendeur) + std::string(vendeur, 'v') + Longueur(entrees.size());
    for (const std::string& entree : entrees)
        texte += Longueur(entree.size()) + entree;
    return texte;
}

std::string Fichier58(const std::string& commentaires)
{
    return std::string(58, 'p') + commentaires + "\x01\x05vorbis" + std::string(3000, 'r');
}

// The eight lines, all empty but title and artist.
std::string Lignes(const std::string& titre, const std::string& artiste = "")
{
    return "Titre            : " + titre + "\r\nAlbum            : \r\nArtiste          : " + artiste +
           "\r\nGenre            : \r\nNombre de pistes : \r\nDate             : \r\nEncodage         : \r\n"
           "Commentaire      : ";
}

}  // namespace

TEST_F(OggTest, FichierDOggenc)
{
    Ecrire(travail_ / "son.raw", std::string(44100 * 4, '\x11'));
    Outil("oggenc -Q -r -o son.ogg son.raw");
    Outil(
        "vorbiscomment -w son.ogg -t TITLE=Chanson -t ALBUM=Disque -t 'ARTIST=Moi & Toi' -t GENRE=Rock "
        "-t TRACKNUMBER=3 -t DATE=2003 -t ENCODED_USING=oggenc -t 'COMMENT=Fin été'");
    std::string contenu = Contenu(travail_ / "son.ogg");
    EXPECT_EQ(Decrire(contenu), "rien");  // today's encoders name themselves in more than 29 or 32 characters

    const size_t vendeur = contenu.find("\x03vorbis") + 7;
    const auto longueur = static_cast<unsigned char>(contenu[vendeur]);
    contenu.replace(vendeur, 4U + longueur, Longueur(32) + std::string(32, 'v'));
    EXPECT_EQ(Decrire(contenu),
              "Titre            : Chanson\r\nAlbum            : Disque\r\nArtiste          : Moi & Toi\r\n"
              "Genre            : Rock\r\nNombre de pistes : 3\r\nDate             : 2003\r\n"
              "Encodage         : oggenc\r\nCommentaire      : Fin Ã©tÃ©");  // each byte is one character
}

TEST_F(OggTest, Valeurs)
{
    struct Cas {
        const char* nom;
        std::vector<std::string> entrees;
        std::string attendu;
    };
    const std::string long300(300, 'a');
    for (const Cas& cas : {
             Cas{"none", {}, "rien"},
             Cas{"unknown only", {"title=minuscules", "LYRICS=x"}, "rien"},
             Cas{"two", {"TITLE=Chanson", "ARTIST=Moi"}, Lignes("Chanson", "Moi")},
             Cas{"the first of a kind", {"TITLE=Un", "TITLE=Deux"}, Lignes("Un")},
             Cas{"empty", {"TITLE=", "ARTIST="}, Lignes("")},
             Cas{"inside another key", {"SUBTITLE=Sous", "TITLE=Chanson"}, Lignes("Sous")},
             // The second length byte of the entry behind is no NUL: the value runs on to the next small entry.
             Cas{"before a long entry", {"TITLE=Un", "X=" + long300, "Y=2"}, Lignes("Un\x2E\1\0\0"s + "X=" + long300)},
             Cas{"long last entry", {"TITLE=" + long300}, Lignes(long300)},
             Cas{"before an entry of no bytes", {"TITLE=Un", "", "Y=2"}, Lignes("U")},
             Cas{"empty before an entry of no bytes", {"TITLE=", "", "Y=2"}, "rien"},
             Cas{"too long for a block", {"TITLE=Un", "X=" + std::string(2100, 'b')}, "rien"},
         })
        EXPECT_EQ(Decrire(Fichier58(Commentaires(cas.entrees))), cas.attendu) << cas.nom;
}

TEST_F(OggTest, PlaceDeLEntete)
{
    const std::string commentaires = Commentaires({"TITLE=Un"});
    const std::string fin = "\x05vorbis";
    struct Cas {
        const char* nom;
        std::string contenu;
        std::string attendu;
    };
    for (const Cas& cas : {
             Cas{"vendor of 32", Fichier58(Commentaires({"TITLE=Un"}, 32)), Lignes("Un")},
             Cas{"vendor of 30", Fichier58(Commentaires({"TITLE=Un"}, 30)), "rien"},
             Cas{"at the start", commentaires + "\1" + fin, Lignes("Un")},
             Cas{"at the end of the first block", std::string(2040, 'p') + commentaires + "\1" + fin, Lignes("Un")},
             Cas{"across two blocks", std::string(2041, 'p') + commentaires + "\1" + fin, "rien"},
             Cas{"across, then whole", std::string(2041, 'p') + commentaires + commentaires + "\1" + fin, "rien"},
             Cas{"in the second block", std::string(2148, 'p') + commentaires + "\1" + fin, "rien"},
             // Found in the third block, then read at the same place of the first.
             Cas{"place in the block", "pTITLE=Deux\1" + fin + std::string(4096 - 19, 'p') + commentaires,
                 Lignes("Deux")},
             Cas{"nothing ends the value", commentaires + fin, "rien"},
             Cas{"no framing bit", commentaires + fin + "\7\0\0\0"s, Lignes("Un" + fin)},
             Cas{"no setup header", commentaires + "\1" + "\5Vorbis", "rien"},
             Cas{"empty file", "", "rien"},
         })
        EXPECT_EQ(Decrire(cas.contenu), cas.attendu) << cas.nom;
    std::string description;
    EXPECT_FALSE(DecrireOgg(Fichier(), description));
}
