#include <cstdlib>

#include <fmt/format.h>

#include "Environnement.h"
#include "extractors/DecrireMP3.h"
#include "extractors/clsMP3.h"

using namespace std::string_literals;

namespace {

class MP3Test : public Environnement {
protected:
    Fichier Poser(const std::string& contenu) const
    {
        Ecrire(travail_ / "son.mp3", contenu);
        return Fichier((travail_ / "son.mp3").string());
    }

    clsMP3 Lire(const std::string& contenu) const
    {
        clsMP3 mp3;
        EXPECT_TRUE(mp3.ReadMP3(Poser(contenu)));
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
    return nom + "\0\0"s + static_cast<char>(texte.size() + 1) + "\0"s + texte;
}

std::string Trame3(const std::string& nom, const std::string& texte, char drapeaux = 0)
{
    return nom + "\0\0\0"s + static_cast<char>(texte.size() + 1) + "\0"s + drapeaux + "\0"s + texte;
}

// A stream of so many bytes that begins with the header and holds no other.
std::string Flux(const std::string& entete, size_t taille = 1000)
{
    return Champ(entete, taille);
}

std::string AvecXing(uint32_t trames)
{
    std::string nombre;
    for (const int decalage : {24, 16, 8, 0})
        nombre += static_cast<char>(trames >> decalage);
    return Champ("\xFF\xFB\x90\x40", 36) + "Xing\0\0\0\1"s + nombre;
}

const std::string EnteteStereo = "\xFF\xFB\x90\x00"s;  // 128 kbit/s, 44100 Hz

}  // namespace

// What an encoder writes. The average bit rate of a "Xing" header counts the tags too, so that it may be over the
// encoder's own.
TEST_F(MP3Test, FichiersDeLame)
{
    Ecrire(travail_ / "son.raw", std::string(44100 * 4 * 10, '\x11'));
    struct Cas {
        const char *options, *debit, *duree, *frequence, *mode, *commentaire;
        bool xing;
    };
    for (const Cas& cas :
         {Cas{"-b 128 --id3v1-only", "128", "0m 10s", "44100", "joint stereo", "Faitpar2001", false},
          Cas{"-b 320 -m s --id3v2-only --id3v2-latin1", "320", "0m 10s", "44100", "stereo", "", false},
          Cas{"-b 160 -m m --resample 48 --id3v1-only", "160", "0m 20s", "48000", "single channel", "Faitpar2001",
              false},
          Cas{"-V 4 -m s --id3v1-only", "33", "0m 10s", "44100", "stereo", "Faitpar2001", true},
          Cas{"-V 4 -m j --resample 32 --id3v1-only", "33", "0m 10s", "32000", "joint stereo", "Faitpar2001", true}}) {
        const std::string commande = fmt::format(
            "cd '{}' && LC_ALL=C.UTF-8 lame --quiet -r -s 44.1 {} --tt \"Chanson d'été\" --ta Moi --tl Album --ty 2003 "
            "--tc 'Fait par, 2001' --tg 17 --tn 3 son.raw son.mp3 >/dev/null 2>&1",
            travail_.string(), cas.options);
        ASSERT_EQ(std::system(commande.c_str()), 0) << commande;
        const Fichier fichier((travail_ / "son.mp3").string());
        std::string description;
        ASSERT_TRUE(DecrireMP3(fichier, description));
        EXPECT_EQ(description,
                  fmt::format("Album: Album\r\nChanson: Chanson d'été\r\nArtiste: Moi\r\nGenre: Rock\r\nBitrate: {}\r\n"
                              "Durée: {}\r\nFréquence: {}\r\nMode: {}\r\nLayer: 3\r\nMpeg version: 1\r\n"
                              "Année: 2003\r\nCommentaire: {}",
                              cas.debit, cas.duree, cas.frequence, cas.mode, cas.commentaire))
            << cas.options;
        clsMP3 mp3;
        mp3.ReadMP3(fichier);
        EXPECT_EQ(mp3.Xing, cas.xing) << cas.options;
    }
}

TEST_F(MP3Test, RienDUtile)
{
    const std::string vide =
        "Album: \r\nChanson: \r\nArtiste: \r\nGenre: \r\nBitrate: \r\nDurée: \r\nFréquence: \r\nMode: \r\nLayer: \r\n"
        "Mpeg version: \r\nAnnée: \r\nCommentaire: ";
    std::string description;
    EXPECT_TRUE(DecrireMP3(Fichier(), description));
    EXPECT_EQ(description, vide);
    EXPECT_TRUE(DecrireMP3(Poser(std::string(20000, '\xFF')), description));
    EXPECT_EQ(description, vide);
}

TEST_F(MP3Test, Flux)
{
    struct Cas {
        const char* nom;
        std::string contenu;
        const char *debit, *duree, *frequence, *mode;
    };
    const std::string loin(5000, 'x');
    for (const Cas& cas : {
             Cas{"200 s", Flux(EnteteStereo, 3'200'000), "128", "3m 20s", "44100", "stereo"},
             Cas{"255 bytes", Flux(EnteteStereo, 255), "", "", "", ""},
             Cas{"256 bytes", Flux(EnteteStereo, 256), "128", "0m 0s", "44100", "stereo"},
             Cas{"check sum, one channel", Flux("\xFF\xFA\xE0\xC0"), "320", "0m 0s", "44100", "single channel"},
             Cas{"32 kHz, dual", Flux("\xFF\xFA\xE8\x80"), "320", "0m 0s", "32000", "dual channel"},
             Cas{"other layer first", "\xFF\xFD\x90\x40" + Flux("\xFF\xFB\x14\x40"), "32", "0m 0s", "48000",
                 "joint stereo"},
             Cas{"across blocks", std::string(4095, 'x') + Flux(EnteteStereo, 100'000), "128", "0m 6s", "44100",
                 "stereo"},
             Cas{"the first of both", loin + "\xFF\xFA\x10\x00"s + EnteteStereo + loin, "32", "0m 2s", "44100",
                 "stereo"},
             Cas{"cut header", loin + "\xFF\xFB\x90", "", "", "", ""},
             Cas{"free bit rate", Flux("\xFF\xFB\x00\x00"s), "0", "", "44100", "stereo"},
             Cas{"bit rate 15", Flux("\xFF\xFB\xF0\x00"s), "", "", "44100", "stereo"},
             Cas{"sampling rate 3", Flux("\xFF\xFB\x9C\x40"), "", "", "", "joint stereo"},
             Cas{"Xing", Flux(AvecXing(383), 200'000), "159", "0m 10s", "44100", "joint stereo"},
             Cas{"Xing, exact", Flux(AvecXing(1225), 512'000), "128", "0m 32s", "44100", "joint stereo"},
             Cas{"Xing, no frames", Flux(AvecXing(0), 200'000), "", "", "44100", "joint stereo"},
             Cas{"Xing, under 1 kbit", Flux(AvecXing(0x80000000), 200'000), "0", "", "44100", "joint stereo"},
             Cas{"Xing at the end", loin + AvecXing(1).substr(0, 40), "", "", "44100", "joint stereo"},
             Cas{"no room for Xing", loin + AvecXing(1).substr(0, 39), "128", "0m 0s", "44100", "joint stereo"},
         }) {
        const clsMP3 mp3 = Lire(cas.contenu);
        EXPECT_EQ(mp3.MpegVersion + ' ' + mp3.Layer, *cas.mode ? "1 3" : " ") << cas.nom;
        EXPECT_EQ(mp3.Bitrate, cas.debit) << cas.nom;
        EXPECT_EQ(mp3.Duration, cas.duree) << cas.nom;
        EXPECT_EQ(mp3.Frequency, cas.frequence) << cas.nom;
        EXPECT_EQ(mp3.Mode, cas.mode) << cas.nom;
    }
}

TEST_F(MP3Test, ID3v1)
{
    struct Cas {
        std::string titre, commentaire;
        int genre;
        std::string titreLu, commentaireLu;
        const char* genreLu;
    };
    for (const Cas& cas : {
             Cas{Champ("Blancs", 30, ' '), "Ripped by Me, 2001", 0, "Blancs", "RippedbyMe2001", "Blues"},
             Cas{"Garde  ", Champ("a/b:c", 28) + "\0\x1F"s, 125, "Garde  ", "ab:c", "Dance Hall"},
             Cas{Champ("", 30, ' '), "12 !", 126, "", "12", ""},
             Cas{"\xC9t\xE9\x80"s, "\xE9 \xE8", 255, "Été€", "éè", ""},
         }) {
        // Fewer than 256 bytes: no stream.
        const clsMP3 mp3 = Lire(Flux(EnteteStereo, 127) + ID3v1(cas.titre, cas.commentaire, cas.genre));
        EXPECT_EQ(mp3.Title, cas.titreLu);
        EXPECT_EQ(mp3.Comment, cas.commentaireLu);
        EXPECT_EQ(mp3.Genre, cas.genreLu);
        EXPECT_EQ(mp3.Artist + mp3.Album + mp3.Year, "MoiAlbum1999");
        EXPECT_EQ(mp3.Bitrate, "");
    }
    EXPECT_EQ(Lire(ID3v1("Seul", "", 17)).Genre, "Rock");
    EXPECT_EQ(Lire(ID3v1("Court", "", 17).substr(1)).Title, "");
}

// Over an ID3v1 record with the title "Un" and genre 17.
TEST_F(MP3Test, ID3v2)
{
    struct Cas {
        const char* nom;
        std::string tag;
        std::string titre, artiste, genre;
    };
    const std::string titre = Trame3("TIT2", "Deux"), long254(254, 'l');
    for (const Cas& cas : {
             Cas{"2.3", ID3v2(3, titre + Trame3("TPE1", "Toi") + Trame3("TCON", "Jazz")), "Deux", "Toi", "Jazz"},
             Cas{"2.2, original artist", ID3v2(2, Trame2("TP1", "Nul") + Trame2("TOA", "Toi") + Trame2("TT2", "Deux")),
                 "Deux", "Toi", "Rock"},
             Cas{"2.4 ends before the genre's name", ID3v2(4, titre), "Un", "Moi", "17"},
             Cas{"larger than the file", ID3v2(3, titre, 9000), "Un", "Moi", "17"},
             Cas{"large first byte", ID3v2(3, titre, 1 << 21), "Un", "Moi", "17"},
             Cas{"empty", ID3v2(3, "", 0), "Un", "Moi", "17"},
             Cas{"a frame at the start", "I\xFB"s + "3\x03"s + titre, "Un", "Moi", "Rock"},
             Cas{"first letter not looked at", "X" + ID3v2(3, titre).substr(1), "Deux", "Moi", "Rock"},
             Cas{"genre with number", ID3v2(3, Trame3("TCON", "(8)Rock")), "Un", "Moi", "Rock"},
             Cas{"genre a number in brackets", ID3v2(3, Trame3("TCON", "(8)")), "Un", "Moi", ""},
             Cas{"genre a number", ID3v2(3, Trame3("TCON", "8")), "Un", "Moi", "Jazz"},
             Cas{"genre a number behind", ID3v2(3, Trame3("TCON", "(RX)8")), "Un", "Moi", "Jazz"},
             Cas{"genre over the list", ID3v2(3, Trame3("TCON", "99999999999999999999")), "Un", "Moi", ""},
             Cas{"genre unclosed", ID3v2(3, Trame3("TCON", "(8")), "Un", "Moi", "(8"},
             Cas{"genre bracket within", ID3v2(3, Trame3("TCON", "Pop (8)")), "Un", "Moi", "Pop (8)"},
             Cas{"genre empty", ID3v2(3, Trame3("TCON", "")), "Un", "Moi", ""},
             Cas{"empty text", ID3v2(3, Trame3("TIT2", "") + Trame3("TPE1", "Toi")), "Un", "Toi", "Rock"},
             Cas{"length 0 ends", ID3v2(3, titre + "TPE1" + std::string(20, '\0') + Trame3("TCON", "8")), "Deux", "Moi",
                 "17"},
             Cas{"encrypted", ID3v2(3, Trame3("TIT2", "Deux", '\x40') + Trame3("TPE1", "Toi", '\x80')), "Deux", "Moi",
                 "Rock"},
             Cas{"grouped", ID3v2(3, Trame3("TPE1", "Toi", '\x20')), "Un", "Toi", "Rock"},
             Cas{"UTF-16 as bytes", ID3v2(3, Trame3("TIT2", "\xFF\xFE\xE9\0"s)), "ÿþé\0"s, "Moi", "Rock"},
             Cas{"inside other data", ID3v2(3, Trame3("COMM", "vTIT2" + std::string(7, '\3') + "abcdef") + titre), "ab",
                 "Moi", "Rock"},
             Cas{"long text cut", ID3v2(3, "TIT2\0\0\1\xFF\0\0\0"s + long254 + "reste"), long254, "Moi", "Rock"},
             Cas{"cut by the body's end", ID3v2(3, titre.substr(0, 13)), "De", "Moi", "Rock"},
             Cas{"ends before the text", ID3v2(3, titre.substr(0, 10)), "Un", "Moi", "Rock"},
             Cas{"ends before the flags", ID3v2(3, titre.substr(0, 9)), "Un", "Moi", "17"},
             Cas{"ends before the size", ID3v2(2, Trame2("TT2", "").substr(0, 5)), "Un", "Moi", "17"},
             Cas{"far behind a picture", ID3v2(3, Trame3("APIC", "") + std::string(100'000, 'x') + titre), "Deux",
                 "Moi", "Rock"},
             Cas{"behind the body", ID3v2(3, "rien") + titre, "Un", "Moi", "Rock"},
         }) {
        const clsMP3 mp3 = Lire(cas.tag + ID3v1("Un", "", 17));
        EXPECT_EQ(mp3.Title, cas.titre) << cas.nom;
        EXPECT_EQ(mp3.Artist, cas.artiste) << cas.nom;
        EXPECT_EQ(mp3.Genre, cas.genre) << cas.nom;
    }
}
