#include <fmt/format.h>

#include "extractors/CImageInfo.h"
#include "outils/DecrireContenu.h"
#include "outils/Octets.h"

using namespace std::string_literals;

namespace {

class Images : public TestDescription {
protected:
    // As the walk does it.
    std::string Decrire(const std::string& nom) const
    {
        return DecrireFichier(Fichier((travail_ / nom).string()), nom.substr(nom.rfind('.') + 1));
    }

    // As the preview does it: "type widthxheightxdepth".
    std::string Montrer(const std::string& nom)
    {
        info_.ReadImageInfo(Fichier((travail_ / nom).string()));
        if (info_.imageType() == CImageInfo::Inconnu)
            return "0";
        return fmt::format("{} {}x{}x{}", int(info_.imageType()), info_.Width(), info_.Height(), info_.Depth());
    }

    CImageInfo info_;
};

std::string Png(uint32_t largeur, uint32_t hauteur, int bits, int couleur)
{
    return "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s + Gros(largeur, 4) + Gros(hauteur, 4) + Gros(bits, 1) + Gros(couleur, 1);
}

std::string Bmp(uint32_t largeur, uint32_t hauteur, int bits)
{
    return "BM" + std::string(12, '\0') + Petit(40, 4) + Petit(largeur, 4) + Petit(hauteur, 4) + Petit(1) + Petit(bits);
}

std::string Segment(int marqueur, const std::string& contenu)
{
    return '\xFF' + Gros(marqueur, 1) + Gros(static_cast<uint32_t>(contenu.size()) + 2) + contenu;
}

std::string Cadre(int marqueur, int largeur, int hauteur, int composantes)
{
    return Segment(marqueur, '\x8' + Gros(hauteur) + Gros(largeur) + Gros(composantes, 1));
}

const std::string Soi = "\xFF\xD8";

}  // namespace

TEST_F(Images, FichiersDesOutils)
{
    std::string pixels;
    for (uint32_t i = 0; i < 37 * 23; ++i)
        pixels += Gros(i, 1) + Gros(i / 4, 1) + Gros(i * 3, 1);
    Ecrire(travail_ / "p.ppm", "P6 37 23 255\n" + pixels);
    Executer("ppmtopgm p.ppm > p.pgm && pnmquant 16 p.ppm > p16.ppm");
    const std::tuple<std::string, std::string, std::string> cas[] = {
        {"convert p.pgm -define png:color-type=0 -define png:bit-depth=16", "gris16.png", "37x23x16xPNG"},
        {"convert p.ppm -depth 8", "rvb.png", "37x23x24xPNG"},
        {"convert p.ppm -define png:bit-depth=16 -define png:color-type=2", "48.png", "37x23x48xPNG"},
        {"convert p16.ppm -define png:color-type=3 -define png:bit-depth=4", "palette.png", "37x23x8xPNG"},
        {"convert p16.ppm", "16.gif", "37x23x4xGIF"},
        {"convert p.pgm -type Palette", "8.bmp", "37x23x8xBMP"},
        {"convert p.ppm -alpha on -channel A -evaluate set 50%", "32.bmp", "37x23x32xBMP"},
        {"convert p.ppm", "rvb.jpg", "37x23x24xJPG"},
        {"convert p.ppm -interlace JPEG", "progressif.jpeg", "37x23x24xJPG"},
        {"convert p.ppm", "rvb.pcx", "37x23x24xPCX"},
        {"pgmtopbm p.pgm | ppmtopcx >", "1.pcx", "37x23x8xPCX"},  // by planes alone
        {"convert p.ppm", "24.tga", "37*23*24xTGA"},
        {"ppmtoilbm p16.ppm >", "4.lbm", "37x23x4xLBM"},
    };
    for (const auto& [commande, nom, attendu] : cas) {
        Executer(commande + " " + nom);
        EXPECT_EQ(Decrire(nom), attendu) << nom;
    }
    for (const char* absent : {"absent.png", "absent.pcx", "absent.tga", "absent.lbm"})
        EXPECT_EQ(Decrire(absent), SansDescription);
    EXPECT_EQ(Montrer("16.gif"), "1 37x23x4");
    EXPECT_EQ(Montrer("48.png"), "3 37x23x48");
    EXPECT_EQ(Montrer("rvb.pcx"), "0");

    const std::string jpeg = Contenu(travail_ / "rvb.jpg");
    const std::string exif = Segment(0xE1, "Exif\0\0"s + jpeg), icc = Segment(0xE2, std::string(0x7FFD, 'i'));
    EXPECT_EQ(DecrireContenu(travail_, "jpg", Soi + exif + icc + Cadre(0xC0, 9, 8, 3)), "9x8x24xJPG");
    EXPECT_EQ(DecrireContenu(travail_, "gif", std::string(4094, 'x') + jpeg), "37x23x24xJPG");
    EXPECT_EQ(DecrireContenu(travail_, "jpg", Contenu(travail_ / "rvb.png")), "37x23x24xPNG");
}

TEST_F(Images, EntetesSinguliers)
{
    const std::string jpeg = Soi + Cadre(0xC0, 9, 8, 3), gif = "GIF89a" + Petit(300) + Petit(2);
    const std::string aucune = SansDescription;
    const std::tuple<std::string, std::string, const char*> cas[] = {
        {"BM, dit-il, est un texte sans pixels", "29728x25972x115xBMP", "4 29728x25972x115"},
        {"", aucune, "0"},
        {Png(32767, 0x10001, 8, 2), "32767x1x24xPNG", "3 32767x1x24"},  // the low 16 bits
        {Png(32768, 1, 8, 2) + jpeg, aucune, "0"},                      // an overflow ends it all,
        {Png(1, 1, 8, 5) + jpeg, "9x8x24xJPG", "2 9x8x24"},             // a strange colour type does not
        {Png(1, 1, 8, 2).substr(0, 25), aucune, "0"},
        {Png(1, 1, 1, 0), "1x1x1xPNG", "3 1x1x1"},  // bits of a sample times samples, a palette's always 8
        {Png(1, 1, 2, 3), "1x1x8xPNG", "3 1x1x8"},
        {Png(1, 1, 8, 4), "1x1x16xPNG", "3 1x1x16"},
        {Png(1, 1, 16, 6), "1x1x64xPNG", "3 1x1x64"},
        {gif + '\xF7', "300x2x8xGIF", "1 300x2x8"},
        {Bmp(7, static_cast<uint32_t>(-5), 24), aucune, "0"},  // rows from the top
        {Soi + Segment(0xE1, std::string(0xFFFD, 'x')) + Cadre(0xC0, 9, 8, 3), "9x8x24xJPG", "0"},
        {Soi + Cadre(0xC5, 5, 5, 3) + Cadre(0xC1, 9, 8, 3), "9x8x24xJPG", "2 5x5x24"},
        {Soi + Cadre(0xC3, 9, 8, 1), "9x8x8xJPG", "2 9x8x8"},
        {Soi + Cadre(0xCF, 5, 5, 3), aucune, "2 5x5x24"},
        {Soi + Cadre(0xC4, 5, 5, 3) + Cadre(0xC8, 5, 5, 3) + Cadre(0xCC, 5, 5, 3) + Cadre(0xC2, 9, 8, 3), "9x8x24xJPG",
         "2 9x8x24"},
        {jpeg.substr(0, jpeg.size() - 1), aucune, "0"},
        // lengths of 0 step on byte by byte
        {Soi + '\xFF' + Petit(0, 100000) + '\x2' + Cadre(0xC0, 9, 8, 3), "9x8x24xJPG", "0"},
        {std::string(65536 - jpeg.size(), 'x') + jpeg, "9x8x24xJPG", "2 9x8x24"},
        {std::string(65537 - jpeg.size(), 'x') + jpeg, "9x8x24xJPG", "0"},
    };
    for (const auto& [contenu, attendu, montre] : cas) {
        EXPECT_EQ(DecrireContenu(travail_, "bmp", contenu), attendu) << attendu;
        EXPECT_EQ(Montrer("essai.bmp"), montre) << attendu;
    }
}

// What a file lacks is that of the file before it; the first of each kind here is whole.
TEST_F(Images, FichiersCourts)
{
    const std::string pcx = "\x0A\x05\x01\x01"s + Petit(0) + Petit(0) + Petit(639) + Petit(479) + Petit(72) +
                            Petit(72) + std::string(49, 'p');
    const std::string tga = std::string(12, 't') + Petit(50000) + Petit(480);
    const std::string bmhd = "BMHD" + Gros(20, 4) + Gros(320) + Gros(0x9000) + Gros(0, 4);
    Verifier("pcx", {
                        {"whole", pcx + '\x4', "640x480x32xPCX"},
                        {"without the last byte", pcx, "640x480x32xPCX"},
                        {"half a word is none", "\x0A\x05\x01\x01"s + Petit(5) + Petit(0) + '\x9', "635x480x32xPCX"},
                        {"another file", "PNG", SansDescription},
                        {"another maker", "\t", SansDescription},
                    });
    Verifier("tga", {
                        {"whole", tga + '\x20', "50000*480*32xTGA"},
                        {"cut", std::string(12, 't') + Petit(7) + '\x9', "7*480*32xTGA"},
                        {"empty", "", "7*480*32xTGA"},
                    });
    Verifier(
        "lbm",
        {
            {"whole", "FORM" + Gros(28, 4) + bmhd + '\x5', "320x36864x5xLBM"},
            {"later record", "FORM...BMHD" + Gros(4, 4) + Gros(1) + Gros(2) + Gros(3, 4) + '\x8', "320x36864x5xLBM"},
            {"across blocks", "FORM" + std::string(4090, 'x') + "BMHD" + Gros(4, 4) + Gros(7), "7x36864x5xLBM"},
            {"without the record", "FORM....8SVXVHDR", "7x36864x5xLBM"},
            {"another file", "FOR", SansDescription},
        });
}
