#include <cstdlib>

#include "Environnement.h"
#include "extractors/Aiguillage.h"
#include "extractors/CImageInfo.h"

using namespace std::string_literals;

namespace {

class Images : public Environnement {
protected:
    // As the walk does it; "-" when there is no description.
    std::string Decrire(const std::string& nom) const
    {
        const std::string extension = nom.substr(nom.rfind('.') + 1);
        const Fichier fichier((travail_ / nom).string());
        std::string description = "-";
        const bool decrit = ChoisirBranche(extension).extraire({fichier, "D:\\" + nom, extension}, description);
        EXPECT_EQ(decrit, description != "-") << nom;
        return description;
    }

    std::string Decrire(const std::string& nom, const std::string& contenu) const
    {
        Ecrire(travail_ / nom, contenu);
        return Decrire(nom);
    }

    // As the preview does it: "type widthxheightxdepth".
    std::string Montrer(const std::string& nom)
    {
        info_.ReadImageInfo(Fichier((travail_ / nom).string()));
        if (info_.imageType() == CImageInfo::Inconnu)
            return "0";
        return std::to_string(info_.imageType()) + " " + std::to_string(info_.Width()) + "x" +
               std::to_string(info_.Height()) + "x" + std::to_string(info_.Depth());
    }

    void Executer(const std::string& commande) const
    {
        ASSERT_EQ(std::system(("cd '" + travail_.string() + "' && (" + commande + ") >/dev/null 2>&1").c_str()), 0)
            << commande;
    }

    CImageInfo info_;
};

// Unsigned, most significant byte first.
std::string Gros(uint32_t valeur, int octets = 2)
{
    std::string texte;
    while (octets-- > 0)
        texte += static_cast<char>(valeur >> 8 * octets);
    return texte;
}

std::string Petit(uint32_t valeur, int octets = 2)
{
    const std::string gros = Gros(valeur, octets);
    return {gros.rbegin(), gros.rend()};
}

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
    struct Cas {
        std::string commande, nom, attendu;
    };
    for (const Cas& cas : {
             Cas{"convert p.ppm -monochrome -define png:color-type=0 -define png:bit-depth=1", "1.png", "37x23x1xPNG"},
             Cas{"convert p.pgm -define png:color-type=0 -define png:bit-depth=16", "gris16.png", "37x23x16xPNG"},
             Cas{"convert p.ppm -depth 8", "rvb.png", "37x23x24xPNG"},
             Cas{"convert p.ppm -define png:bit-depth=16 -define png:color-type=2", "48.png", "37x23x48xPNG"},
             Cas{"convert p16.ppm -define png:color-type=3 -define png:bit-depth=4", "palette.png", "37x23x8xPNG"},
             Cas{"convert p.pgm -alpha on -depth 8 -define png:color-type=4", "ga.png", "37x23x16xPNG"},
             Cas{"convert p.ppm -define png:bit-depth=16 -define png:color-type=6", "64.png", "37x23x64xPNG"},
             Cas{"convert p.ppm -colors 256", "256.gif", "37x23x8xGIF"},
             Cas{"convert p16.ppm", "16.gif", "37x23x4xGIF"},
             Cas{"convert p.ppm -monochrome", "1.bmp", "37x23x1xBMP"},
             Cas{"convert p16.ppm -type Palette", "4.bmp", "37x23x4xBMP"},
             Cas{"convert p.pgm -type Palette", "8.bmp", "37x23x8xBMP"},
             Cas{"convert p.ppm -type TrueColor", "24.bmp", "37x23x24xBMP"},
             Cas{"convert p.ppm -alpha on -channel A -evaluate set 50%", "32.bmp", "37x23x32xBMP"},
             Cas{"convert p.ppm", "rvb.jpg", "37x23x24xJPG"},
             Cas{"convert p.pgm", "gris.jpg", "37x23x8xJPG"},
             Cas{"convert p.ppm -colorspace CMYK", "cmjn.jpg", "37x23x32xJPG"},
             Cas{"convert p.ppm -interlace JPEG", "progressif.jpeg", "37x23x24xJPG"},
             Cas{"convert p.ppm", "rvb.pcx", "37x23x24xPCX"},
             Cas{"pgmtopbm p.pgm | ppmtopcx >", "1.pcx", "37x23x8xPCX"},  // by planes alone
             Cas{"convert p.ppm", "24.tga", "37*23*24xTGA"},
             Cas{"convert p.pgm", "8.tga", "37*23*8xTGA"},
             Cas{"ppmtoilbm p16.ppm >", "4.lbm", "37x23x4xLBM"},
             Cas{"ppmtoilbm -24force p.ppm >", "24.iff", "37x23x24xIFF"},
         }) {
        Executer(cas.commande + " " + cas.nom);
        EXPECT_EQ(Decrire(cas.nom), cas.attendu) << cas.nom;
    }
    EXPECT_EQ(Decrire("absent.png") + Decrire("absent.pcx") + Decrire("absent.tga") + Decrire("absent.lbm"), "----");

    EXPECT_EQ(Montrer("16.gif"), "1 37x23x4");
    EXPECT_EQ(Montrer("progressif.jpeg"), "2 37x23x24");
    EXPECT_EQ(Montrer("48.png"), "3 37x23x48");
    EXPECT_EQ(Montrer("32.bmp"), "4 37x23x32");
    EXPECT_EQ(Montrer("rvb.pcx"), "0");

    const std::string jpeg = Contenu(travail_ / "rvb.jpg"), corps = jpeg.substr(2);
    const std::string exif = Segment(0xE1, "Exif\0\0"s + jpeg), icc = Segment(0xE2, std::string(0x7FFD, 'i'));
    EXPECT_EQ(Decrire("vignette.jpg", Soi + exif + icc + icc + Cadre(0xC0, 9, 8, 3)), "9x8x24xJPG");
    EXPECT_EQ(Decrire("enveloppe.gif", std::string(4094, 'x') + jpeg), "37x23x24xJPG");
    EXPECT_EQ(Decrire("faux.jpg", Contenu(travail_ / "rvb.png")), "37x23x24xPNG");
}

TEST_F(Images, EntetesSinguliers)
{
    const std::string jpeg = Soi + Cadre(0xC0, 9, 8, 3), gif = "GIF89a" + Petit(300) + Petit(2);
    struct Cas {
        std::string contenu, attendu, montre;
    };
    const Cas cas[] = {
        {"BM, dit-il, est un texte sans pixels", "29728x25972x115xBMP", "4 29728x25972x115"},
        {"BM", "-", "0"},
        {"", "-", "0"},
        {Png(32767, 0x10001, 8, 2), "32767x1x24xPNG", "3 32767x1x24"},  // the low 16 bits
        {Png(32768, 1, 8, 2) + jpeg, "-", "0"},                         // an overflow ends it all,
        {Png(1, 1, 64, 6) + jpeg, "-", "0"},
        {Png(1, 1, 8, 5) + jpeg, "9x8x24xJPG", "2 9x8x24"},  // a strange colour type does not
        {Png(1, 1, 63, 6), "1x1x252xPNG", "3 1x1x252"},
        {Png(1, 1, 8, 2).substr(0, 25), "-", "0"},
        {gif + '\xF7', "300x2x8xGIF", "1 300x2x8"},
        {gif, "-", "0"},
        {Bmp(7, static_cast<uint32_t>(-5), 24), "-", "0"},  // rows from the top
        {Soi + Segment(0xE1, std::string(0x7FFE, 'x')) + Cadre(0xC0, 9, 8, 3), "-", "0"},
        {Soi + "\xFF\xFF\xFF" + Cadre(0xC3, 9, 8, 1), "9x8x8xJPG", "2 9x8x8"},
        {Soi + Cadre(0xC5, 5, 5, 3) + Cadre(0xC1, 9, 8, 3), "9x8x24xJPG", "2 5x5x24"},
        {Soi + Cadre(0xCF, 5, 5, 3), "-", "2 5x5x24"},
        {Soi + Cadre(0xC4, 5, 5, 3) + Cadre(0xC8, 5, 5, 3) + Cadre(0xCC, 5, 5, 3) + Cadre(0xC2, 9, 8, 3), "9x8x24xJPG",
         "2 9x8x24"},
        {Soi + Cadre(0xC0, 9, 8, 32), "-", "0"},
        {Soi + Cadre(0xC0, 9, 0x8000, 3), "-", "0"},
        {jpeg.substr(0, jpeg.size() - 1), "-", "0"},
        {Soi + "\xFF", "-", "0"},
        {Soi + '\xFF' + std::string(100000, '\0') + '\x2' + Cadre(0xC0, 9, 8, 3), "9x8x24xJPG",
         "0"},  // lengths of 0 step on byte by byte
        {std::string(65536 - jpeg.size(), 'x') + jpeg, "9x8x24xJPG", "2 9x8x24"},
        {std::string(65537 - jpeg.size(), 'x') + jpeg, "9x8x24xJPG", "0"},
        {std::string(65534, 'x') + jpeg, "9x8x24xJPG", "0"},
    };
    for (size_t i = 0; i < std::size(cas); ++i) {
        EXPECT_EQ(Decrire("i.bmp", cas[i].contenu), cas[i].attendu) << i;
        EXPECT_EQ(Montrer("i.bmp"), cas[i].montre) << i;
    }
}

// What a file lacks is that of the file before it; the first of each kind here is whole.
TEST_F(Images, FichiersCourts)
{
    const std::string pcx = "\x0A\x05\x01\x01"s + Petit(0) + Petit(0) + Petit(639) + Petit(479) + Petit(72) +
                            Petit(72) + std::string(49, 'p');
    const std::string tga = std::string(12, 't') + Petit(50000) + Petit(480);
    const std::string bmhd = "BMHD" + Gros(20, 4) + Gros(320) + Gros(0x9000) + Gros(0, 4);
    struct Cas {
        const char* nom;
        std::string contenu, attendu;
    };
    for (const Cas& cas : {
             Cas{"a.pcx", pcx + '\x4', "640x480x32xPCX"},
             Cas{"b.pcx", pcx, "640x480x32xPCX"},
             Cas{"c.pcx", "\x0A\x05\x01\x01"s + Petit(5) + Petit(0) + '\x9', "635x480x32xPCX"},  // half a word is none
             Cas{"d.pcx", "", "635x480x32xPCX"},
             Cas{"e.pcx", "PNG", "-"},
             Cas{"f.pcx", "", "-"},
             Cas{"g.pcx", "\x0A"s, "635x480x32xPCX"},
             Cas{"a.tga", tga + '\x20', "50000*480*32xTGA"},
             Cas{"b.tga", std::string(12, 't') + Petit(7) + '\x9', "7*480*32xTGA"},
             Cas{"c.tga", "", "7*480*32xTGA"},
             Cas{"a.lbm", "FORM" + Gros(28, 4) + bmhd + '\x5', "320x36864x5xLBM"},
             Cas{"b.iff", "FORM....8SVXVHDR", "320x36864x5xIFF"},
             Cas{"c.lbm", "FORM...BMHD" + Gros(4, 4) + Gros(1) + Gros(2) + Gros(3, 4) + '\x8', "320x36864x5xLBM"},
             Cas{"d.lbm", "FORM" + std::string(4090, 'x') + "BMHD" + Gros(4, 4) + Gros(7), "7x36864x5xLBM"},
             Cas{"e.lbm", "FOR", "-"},
             Cas{"f.lbm", "LIST" + Gros(28, 4) + bmhd + '\x5', "-"},
         })
        EXPECT_EQ(Decrire(cas.nom, cas.contenu), cas.attendu) << cas.nom;
}
