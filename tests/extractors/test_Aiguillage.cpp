#include "extractors/Aiguillage.h"
#include "outils/DecrireContenu.h"
#include "outils/Octets.h"
#include "store/Reglages.h"

using namespace std::string_literals;

class AiguillageTest : public Environnement {};

// Each extension: its setting, which alone turns it off, and the shortest file that has a description.
TEST_F(AiguillageTest, BrancheParExtension)
{
    const std::string entier(64, '\0');
    const std::string gif = "GIF89a" + Petit(3) + Petit(2) + '\7', projet = "Title=\"a", titre = "<title></title>";
    const std::string ogg =
        "\3vorbis\x1D"
        "DATE=\1\5vorbis";
    struct Cas {
        const char *extension, *cle;
        std::string court, debut;
    };
    for (const Cas& cas : {
             Cas{"htm", "HTM", titre, "Titre: "},
             {"html", "HTM", titre, "Titre: "},
             {"diz", "DIZ", "d", "d"},
             {"nfo", "NFO", "n", "n"},
             {"bbs", "BBS", "b", "b"},
             {"lnk", "LNK", "", "Raccourci: Error"},
             {"mp3", "MP3", "", "Album: "},
             {"vbp", "VBP", projet, "Titre: a"},
             {"jpg", "JPG", gif, "3x2x8xGIF"},
             {"jpeg", "JPG", gif, "3x2x8xGIF"},
             {"bmp", "BMP", gif, "3x2x8xGIF"},
             {"png", "PNG", gif, "3x2x8xGIF"},
             {"gif", "GIF", gif, "3x2x8xGIF"},
             {"pcx", "PCX", "\n", "1x1x0xPCX"},
             {"tga", "TGA", "", "0*0*0xTGA"},
             {"iff", "LBM", "FORM", "0x0x0xIFF"},
             {"lbm", "LBM", "FORM", "0x0x0xLBM"},
             {"pdf", "PDF", "", "Titre : "},
             {"ogg", "OGG", ogg, "Titre            : "},
             {"fon", "FON", entier, SansDescription},
             {"sys", "SYS", entier, SansDescription},
             {"", "EXE", entier, SansDescription},
             {"txt", "EXE", entier, SansDescription},
             {"HTM", "EXE", entier, SansDescription},
         }) {
        const Branche& branche = ChoisirBranche(cas.extension);
        EXPECT_EQ(branche.cle, cas.cle) << cas.extension;
        EXPECT_TRUE(branche.Voulue()) << cas.extension;
        for (const char* valeur : {"0", "2", "1"}) {
            SaveSetting(SectionDescriptions, cas.cle, valeur);
            EXPECT_EQ(branche.Voulue(), *valeur == '1') << cas.extension;
        }
        EXPECT_LE(branche.tailleMinimale, cas.court.size()) << cas.extension;
        EXPECT_TRUE(DecrireContenu(travail_, cas.extension, cas.court).starts_with(cas.debut)) << cas.extension;
    }
}

TEST_F(AiguillageTest, ConditionsSurLeNom)
{
    const auto admise = [](const char* extension, const char* nom) {
        return BrancheAdmise(ChoisirBranche(extension), nom, "D:\\"s + nom);
    };
    EXPECT_TRUE(admise("diz", "FILE_ID.diz"));
    EXPECT_FALSE(admise("diz", "lisez.diz"));
    EXPECT_TRUE(admise("nfo", "lisez.nfo"));
    EXPECT_FALSE(admise("cda", "Piste 01.cda"));
    EXPECT_TRUE(admise("cda", "PISTE 01.CDA"));
    EXPECT_TRUE(admise("", "cda"));
}
