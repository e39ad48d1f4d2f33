#include "outils/DecrireContenu.h"
#include "outils/Octets.h"

using namespace std::string_literals;

namespace {

std::string Commentaires(const std::vector<std::string>& entrees, size_t vendeur = 29)
{
    std::string texte = "\x03vorbis" + Petit(vendeur, 4) + std::string(vendeur, 'v') + Petit(entrees.size(), 4);
    for (const std::string& entree : entrees)
        texte += Petit(entree.size(), 4) + entree;
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

using OggTest = TestDescription;

TEST_F(OggTest, FichierDOggenc)
{
    Ecrire(travail_ / "son.raw", std::string(44100 * 4, '\x11'));
    Executer("oggenc -Q -r -o son.ogg son.raw");
    Executer(
        "vorbiscomment -w son.ogg -t TITLE=Chanson -t ALBUM=Disque -t 'ARTIST=Moi & Toi' -t GENRE=Rock "
        "-t TRACKNUMBER=3 -t DATE=2003 -t ENCODED_USING=oggenc -t 'COMMENT=Fin été'");
    std::string contenu = Contenu(travail_ / "son.ogg");
    EXPECT_EQ(DecrireContenu(travail_, "ogg", contenu),
              SansDescription);  // today's encoders name themselves in more than 29 or 32 characters

    const size_t vendeur = contenu.find("\x03vorbis") + 7;
    contenu.replace(vendeur, 4U + static_cast<unsigned char>(contenu[vendeur]), Petit(32, 4) + std::string(32, 'v'));
    EXPECT_EQ(DecrireContenu(travail_, "ogg", contenu),
              "Titre            : Chanson\r\nAlbum            : Disque\r\nArtiste          : Moi & Toi\r\n"
              "Genre            : Rock\r\nNombre de pistes : 3\r\nDate             : 2003\r\n"
              "Encodage         : oggenc\r\nCommentaire      : Fin Ã©tÃ©");  // each byte is one character
}

TEST_F(OggTest, Valeurs)
{
    const auto fichier = [](const std::vector<std::string>& entrees) { return Fichier58(Commentaires(entrees)); };
    const std::string suite = "X=" + std::string(300, 'a'), trop(2100, 'b');
    Verifier("ogg", {
                        {"unknown only", fichier({"title=minuscules", "LYRICS=x"}), SansDescription},
                        {"empty", fichier({"TITLE=", "ARTIST="}), Lignes("")},
                        {"inside another key", fichier({"SUBTITLE=Sous", "TITLE=Chanson"}), Lignes("Sous")},
                        // The second length byte of the entry behind is no NUL: the value runs on to the next one.
                        {"before a long entry", fichier({"TITLE=Un", suite, "Y=2"}), Lignes("Un\x2E\1\0\0"s + suite)},
                        {"before an entry of no bytes", fichier({"TITLE=Un", "", "Y=2"}), Lignes("U")},
                        {"empty before one of no bytes", fichier({"TITLE=", "", "Y=2"}), SansDescription},
                        {"too long for a block", fichier({"TITLE=Un", trop}), SansDescription},
                    });
}

TEST_F(OggTest, PlaceDeLEntete)
{
    const std::string entete = Commentaires({"TITLE=Un"}), fin = "\x05vorbis", bloc(2040, 'p');
    Verifier("ogg", {
                        {"vendor of 32", Fichier58(Commentaires({"TITLE=Un"}, 32)), Lignes("Un")},
                        {"at the end of the first block", bloc + entete + "\1" + fin, Lignes("Un")},
                        {"across two blocks", bloc + 'p' + entete + "\1" + fin, SansDescription},
                        // Found in the third block, then read at the same place of the first.
                        {"in the block", "pTITLE=Deux\1" + fin + Fois(4096 - 19, "p") + entete, Lignes("Deux")},
                        {"nothing ends the value", entete + fin, SansDescription},
                        {"no framing bit", entete + fin + "\7\0\0\0"s, Lignes("Un" + fin)},
                        {"no setup header", entete + "\1" + "\5Vorbis", SansDescription},
                    });
    EXPECT_EQ(DecrireFichier(Fichier(), "ogg"), SansDescription);
}
