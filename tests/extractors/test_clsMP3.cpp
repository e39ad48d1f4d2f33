#include <fmt/format.h>

#include "extractors/clsMP3.h"
#include "outils/Archives.h"
#include "outils/DecrireContenu.h"
#include "outils/Octets.h"

using namespace std::string_literals;

namespace {

class MP3Test : public TestDescription {
protected:
    clsMP3 Lire(const std::string& contenu) const
    {
        Ecrire(travail_ / "son.mp3", contenu);
        clsMP3 mp3;
        EXPECT_TRUE(mp3.ReadMP3(Fichier((travail_ / "son.mp3").string())));
        return mp3;
    }
};

std::string Champ(std::string texte, size_t taille, char reste = '\0')
{
    texte.resize(taille, reste);
    return texte;
}

std::string ID3v1(const std::string& titre, const std::string& commentaire, int genre)
{
    return "TAG" + Champ(titre, 30) + Champ("Moi", 30) + Champ("Album", 30) + "1999" + Champ(commentaire, 30) +
           static_cast<char>(genre);
}

// A tag of version 2.`version`, its size given apart where it shall lie.
std::string ID3v2(int version, const std::string& corps, size_t taille = SIZE_MAX)
{
    taille = taille == SIZE_MAX ? corps.size() : taille;
    std::string tag = "ID3"s + static_cast<char>(version) + "\0\0"s;
    for (const int decalage : {21, 14, 7, 0})
        tag += static_cast<char>(taille >> decalage & 0x7F);
    return tag + corps;
}

std::string Trame2(const std::string& nom, const std::string& texte)
{
    return nom + Gros(texte.size() + 1, 3) + '\0' + texte;
}

std::string Trame3(const std::string& nom, const std::string& texte, int drapeaux = 0)
{
    return nom + Gros(texte.size() + 1, 4) + Gros(drapeaux) + '\0' + texte;
}

std::string AvecXing(uint32_t trames)
{
    return Champ("\xFF\xFB\x90\x40", 36) + "Xing\0\0\0\1"s + Gros(trames, 4);
}

const std::string EnteteStereo = "\xFF\xFB\x90\x00"s;  // 128 kbit/s, 44100 Hz

}  // namespace

// What an encoder writes. The average bit rate of a "Xing" header counts the tags too, so that it may be over the
// encoder's own.
TEST_F(MP3Test, FichiersDeLame)
{
    Ecrire(travail_ / "son.raw", std::string(44100 * 4 * 10, '\x11'));
    struct Sortie {
        const char *options, *debit, *duree, *frequence, *mode, *commentaire;
    };
    for (const Sortie& cas :
         {Sortie{"-b 128 --id3v1-only", "128", "0m 10s", "44100", "joint stereo", "Faitpar2001"},
          Sortie{"-b 320 -m s --id3v2-only --id3v2-latin1", "320", "0m 10s", "44100", "stereo", ""},
          Sortie{"-b 160 -m m --resample 48 --id3v1-only", "160", "0m 20s", "48000", "single channel", "Faitpar2001"},
          Sortie{"-V 4 -m j --resample 32 --id3v1-only", "33", "0m 10s", "32000", "joint stereo", "Faitpar2001"}}) {
        Executer(
            "LC_ALL=C.UTF-8 lame --quiet -r -s 44.1 " + std::string(cas.options) +
            " --tt \"Chanson d'été\" --ta Moi --tl Album --ty 2003 --tc 'Fait par, 2001' --tg 17 --tn 3 son.raw a.mp3");
        EXPECT_EQ(DecrireFichier(Fichier((travail_ / "a.mp3").string()), "mp3"),
                  fmt::format("Album: Album\r\nChanson: Chanson d'été\r\nArtiste: Moi\r\nGenre: Rock\r\nBitrate: {}\r\n"
                              "Durée: {}\r\nFréquence: {}\r\nMode: {}\r\nLayer: 3\r\nMpeg version: 1\r\n"
                              "Année: 2003\r\nCommentaire: {}",
                              cas.debit, cas.duree, cas.frequence, cas.mode, cas.commentaire))
            << cas.options;
    }
}

TEST_F(MP3Test, RienDUtile)
{
    const std::string vide = DecrireFichier(Fichier(), "mp3");
    EXPECT_TRUE(vide.starts_with("Album: \r\nChanson: \r\nArtiste: \r\nGenre: \r\nBitrate: \r\n"));
    EXPECT_EQ(DecrireContenu(travail_, "mp3", std::string(20000, '\xFF')), vide);
}

// Streams as "bit rate, duration, frequency, mode".
TEST_F(MP3Test, Flux)
{
    const std::string loin(5000, 'x'), xing = AvecXing(1), rien = ", , , ";
    const std::string stereo = "44100, stereo", joint = "44100, joint stereo";
    const auto flux = [](const std::string& entete, size_t taille = 1000) { return Champ(entete, taille); };
    for (const Cas& cas : {
             Cas{"200 s", flux(EnteteStereo, 3'200'000), "128, 3m 20s, " + stereo},
             Cas{"255 bytes", flux(EnteteStereo, 255), rien},
             Cas{"256 bytes", flux(EnteteStereo, 256), "128, 0m 0s, " + stereo},
             Cas{"check sum, one channel", flux("\xFF\xFA\xE0\xC0"), "320, 0m 0s, 44100, single channel"},
             Cas{"other layer first", "\xFF\xFD\x90\x40" + flux("\xFF\xFB\x14\x40"), "32, 0m 0s, 48000, joint stereo"},
             Cas{"across blocks", std::string(4095, 'x') + flux(EnteteStereo, 100'000), "128, 0m 6s, " + stereo},
             Cas{"the first of both", loin + "\xFF\xFA\x10\x00"s + EnteteStereo + loin, "32, 0m 2s, " + stereo},
             Cas{"cut header", loin + "\xFF\xFB\x90", rien},
             Cas{"free bit rate", flux("\xFF\xFB\x00\x00"s), "0, , " + stereo},
             Cas{"bit rate 15", flux("\xFF\xFB\xF0\x00"s), ", , " + stereo},
             Cas{"Xing", flux(AvecXing(383), 200'000), "159, 0m 10s, " + joint},
             Cas{"Xing at the end", loin + xing.substr(0, 40), ", , " + joint},
             Cas{"no room for Xing", loin + xing.substr(0, 39), "128, 0m 0s, " + joint},
         }) {
        const clsMP3 mp3 = Lire(cas.contenu);
        EXPECT_EQ(fmt::format("{}, {}, {}, {}", mp3.Bitrate, mp3.Duration, mp3.Frequency, mp3.Mode), cas.description)
            << cas.nom;
        EXPECT_EQ(mp3.MpegVersion + ' ' + mp3.Layer, mp3.Mode.empty() ? " " : "1 3") << cas.nom;
    }
}

TEST_F(MP3Test, ID3v1)
{
    struct Marque {
        std::string titre, commentaire;
        int genre;
        const char* attendu;
    };
    for (const Marque& cas : {
             Marque{Champ("Blancs", 30, ' '), "Ripped by Me, 2001", 0, "Blancs/RippedbyMe2001/Blues"},
             Marque{"Garde  ", Champ("a/b:c", 28) + "\0\x1F"s, 125, "Garde  /ab:c/Dance Hall"},
             Marque{Champ("", 30, ' '), "12 !", 126, "/12/"},
             Marque{"\xC9t\xE9\x80"s, "\xE9 \xE8", 255, "Été€/éè/"},
         }) {
        // Fewer than 256 bytes: no stream.
        const clsMP3 mp3 = Lire(Champ(EnteteStereo, 127) + ID3v1(cas.titre, cas.commentaire, cas.genre));
        EXPECT_EQ(mp3.Title + '/' + mp3.Comment + '/' + mp3.Genre, cas.attendu);
        EXPECT_EQ(mp3.Artist + mp3.Album + mp3.Year + mp3.Bitrate, "MoiAlbum1999");
    }
    EXPECT_EQ(Lire(ID3v1("Court", "", 17).substr(1)).Title, "");
}

TEST_F(MP3Test, Tables)
{
    std::string debits, genres;
    for (int rang = 1; rang < 15; ++rang)
        debits += Lire(Champ("\xFF\xFB" + Petit(rang << 4, 1), 300)).Bitrate + ' ';
    EXPECT_EQ(debits, "32 40 48 56 64 80 96 112 128 160 192 224 256 320 ");
    for (int genre = 0; genre <= 126; ++genre)
        genres += Lire(ID3v1("", "", genre)).Genre + '\n';
    EXPECT_EQ(std::count(genres.begin(), genres.end(), '\n'), 127);
    EXPECT_EQ(Crc32(genres), 0x7186ad3aU) << genres;  // the list, as it was laid down
}

TEST_F(MP3Test, TramesDesDeuxVersions)
{
    const std::string deux[] = {"TT2", "TOA", "TAL", "TYE", "TCO", "TRCK"};
    const std::string trois[] = {"TIT2", "TPE1", "TALB", "TYER", "TCON", "TRCK"};
    std::string corps2, corps3;
    for (int rang = 0; rang < 6; ++rang) {
        const std::string texte(1, static_cast<char>('a' + rang));
        corps2 += Trame2(deux[rang], texte);
        corps3 += Trame3(trois[rang], texte);
    }
    for (const std::string& tag : {ID3v2(2, corps2), ID3v2(3, corps3), Avec(ID3v2(3, corps3), 5, "\x80")}) {
        const clsMP3 mp3 = Lire(tag + Champ("", 128));
        EXPECT_EQ(mp3.Title + mp3.Artist + mp3.Album + mp3.Year + mp3.Genre, "abcde");
        EXPECT_EQ(mp3.Track, tag[3] == 3 ? "f" : Lire(ID3v2(2, corps2) + Champ("", 128)).Track);
    }
    // The weight of the first byte of a tag's size.
    const std::string tag = Avec(ID3v2(3, Trame3("TIT2", "Deux")), 6, "\1\0\0\0"s), fin = ID3v1("Un", "", 0);
    for (const size_t taille : {20917151U, 20917152U})
        EXPECT_EQ(Lire(Champ(tag, taille - 128) + fin).Title, taille < 20917152U ? "Un" : "Deux");
}

// Over an ID3v1 record with the title "Un" and genre 17, as "title/artist/genre".
TEST_F(MP3Test, ID3v2)
{
    const auto trois = [](const std::string& corps) { return ID3v2(3, corps); };
    const auto genre = [](const std::string& texte) { return ID3v2(3, Trame3("TCON", texte)); };
    const std::string titre = Trame3("TIT2", "Deux"), artiste = Trame3("TPE1", "Toi"), long254(254, 'l');
    for (const Cas& cas : {
             Cas{"2.3", trois(titre + artiste + Trame3("TCON", "Jazz")), "Deux/Toi/Jazz"},
             Cas{"2.2, original artist", ID3v2(2, Trame2("TP1", "Nul") + Trame2("TOA", "Toi")), "Un/Toi/Rock"},
             Cas{"2.4 ends before the genre's name", ID3v2(4, titre), "Un/Moi/17"},
             Cas{"larger than the file", ID3v2(3, titre, 9000), "Un/Moi/17"},
             Cas{"a frame at the start", "I\xFB"s + "3\x03"s + titre, "Un/Moi/Rock"},
             Cas{"first letter not looked at", Avec(trois(titre), 0, "X"), "Deux/Moi/Rock"},
             Cas{"genre with number", genre("(8)Rock"), "Un/Moi/Rock"},
             Cas{"genre a number in brackets", genre("(8)"), "Un/Moi/"},
             Cas{"genre a number", genre("8"), "Un/Moi/Jazz"},
             Cas{"genre a number behind", genre("(RX)8"), "Un/Moi/Jazz"},
             Cas{"genre with a sign", genre("+17"), "Un/Moi/Rock"},
             Cas{"genre with decimals", genre("17.0"), "Un/Moi/Rock"},
             Cas{"genre to be rounded", genre("16,6"), "Un/Moi/Rock"},
             Cas{"genre below", genre("-1"), "Un/Moi/"},
             Cas{"genre above", genre("125.6"), "Un/Moi/"},
             Cas{"empty text", trois(Trame3("TIT2", "") + artiste), "Un/Toi/Rock"},
             Cas{"length 0 ends", trois(titre + "TPE1" + Petit(0, 20) + Trame3("TCON", "8")), "Deux/Moi/17"},
             Cas{"length 0 in the album", trois(titre + "TALB" + Petit(0, 20) + artiste), "Deux/Moi/17"},
             Cas{"the same in 2.2", ID3v2(2, Trame2("TT2", "Deux") + "TAL" + Petit(0, 20) + Trame2("TOA", "Toi")),
                 "Deux/Moi/17"},
             Cas{"encrypted", trois(Trame3("TIT2", "Deux", 0x40) + Trame3("TPE1", "Toi", 0x80)), "Deux/Moi/Rock"},
             Cas{"compressed", trois(Trame3("TPE1", "Toi", 0x40) + Trame3("TCON", "8")), "Un/Moi/Jazz"},
             Cas{"grouped", trois(Trame3("TPE1", "Toi", 0x20)), "Un/Toi/Rock"},
             Cas{"UTF-16 as bytes", trois(Trame3("TIT2", "\xFF\xFE\xE9\0"s)), "ÿþé\0/Moi/Rock"s},
             Cas{"inside other data", trois(Trame3("COMM", "vTIT2" + Fois(7, "\3") + "abcdef") + titre), "ab/Moi/Rock"},
             Cas{"long text cut", trois("TIT2\0\0\1\xFF\0\0\0"s + long254 + "reste"), long254 + "/Moi/Rock"},
             Cas{"cut by the body's end", trois(titre.substr(0, 13)), "De/Moi/Rock"},
             Cas{"ends before the size", ID3v2(2, Trame2("TT2", "").substr(0, 5)), "Un/Moi/17"},
             Cas{"far behind a picture", trois(Trame3("APIC", "") + Fois(10'000, "x") + titre), "Deux/Moi/Rock"},
             Cas{"behind the body", trois("rien") + titre, "Un/Moi/Rock"},
         }) {
        const clsMP3 mp3 = Lire(cas.contenu + ID3v1("Un", "", 17));
        EXPECT_EQ(mp3.Title + '/' + mp3.Artist + '/' + mp3.Genre, cas.description) << cas.nom;
    }
}
