#include <QBuffer>
#include <QImage>
#include <QtEndian>

#include "browser/ChargerImage.h"
#include "fenetres/IconeMedia.h"
#include "outils/Environnement.h"

namespace {

std::string Octets(const QImage& image, const char* format)
{
    QByteArray octets;
    QBuffer tampon(&octets);
    image.save(&tampon, format);
    return octets.toStdString();
}

// The same file with another size in its head.
std::string AvecTaille(std::string bmp, int32_t largeur, int32_t hauteur)
{
    qToLittleEndian(largeur, bmp.data() + 18);
    qToLittleEndian(hauteur, bmp.data() + 22);
    return bmp;
}

// An icon file of one picture, whose directory claims what it likes.
std::string Ico(uint16_t entrees, uint32_t taille, uint32_t place, const std::string& image)
{
    std::string ico(22, '\0');
    ico[2] = 1;
    qToLittleEndian(entrees, ico.data() + 4);
    ico[6] = ico[7] = 32;
    qToLittleEndian(taille, ico.data() + 14);
    qToLittleEndian(place, ico.data() + 18);
    return ico + image;
}

using Images = Environnement;

}  // namespace

TEST_F(Images, EntrentDansLeCadre)
{
    const std::pair<QSize, QSize> cas[] = {
        {{152, 152}, {152, 152}}, {{40, 20}, {152, 76}},  {{1000, 1200}, {152, 182}},
        {{100, 200}, {95, 190}},  {{30000, 1}, {152, 1}}, {{1, 30000}, {1, 190}},
    };
    for (const auto& [image, montree] : cas)
        EXPECT_EQ(TailleMontree(image), montree) << image.width() << 'x' << image.height();
}

TEST_F(Images, LisentCeQuiEstSain)
{
    QImage image(600, 300, QImage::Format_RGB32);
    image.fill(Qt::red);
    const std::string png = Octets(image, "PNG"), bmp = Octets(image, "BMP");
    const struct {
        const char* nom;
        std::string octets;
        bool lue;
    } cas[] = {
        {"a.png", png, true},
        {"a.jpg", Octets(image, "JPG"), true},
        {"a.bmp", bmp, true},
        {"faux.jpg", png, true},  // the content tells
        {"vide.png", "", false},
        {"tronquee.png", png.substr(0, 40), false},
        {"enorme.bmp", AvecTaille(bmp, 30000, 30000), false},
        {"large.bmp", AvecTaille(bmp, 2'000'000'000, 1), false},
        {"a.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>", false},
    };
    for (const auto& [nom, octets, lue] : cas) {
        Ecrire(travail_ / nom, octets);
        const Photo photo = ChargerImage((travail_ / nom).string(), 1);
        EXPECT_TRUE(photo.fichier) << nom;
        EXPECT_EQ(photo.image.size(), lue ? QSize(152, 76) : QSize(0, 0)) << nom;
    }
    EXPECT_FALSE(ChargerImage((travail_ / "absente.png").string(), 1).fichier);
    EXPECT_FALSE(ChargerImage(travail_.string(), 1).fichier);
    std::stop_source arret;
    arret.request_stop();
    EXPECT_TRUE(ChargerImage((travail_ / "a.png").string(), 1, arret.get_token()).image.isNull());
}

TEST_F(Images, IconesHostilesNeDonnentRien)
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    const std::string ico = Octets(image, "ICO"), png = Octets(image, "PNG");
    EXPECT_EQ(LireIcone(ico, 32).size(), QSize(32, 32));
    EXPECT_EQ(LireIcone(png, 32).size(), QSize(32, 32)) << "what reading a drive keeps";
    EXPECT_TRUE(LireIcone(AvecTaille(Octets(image, "BMP"), 20000, 20000), 32).isNull());
    EXPECT_TRUE(LireIcone("", 32).isNull());
    EXPECT_TRUE(LireIcone(ico + std::string(5 << 20, ' '), 32).isNull());

    const auto octets = static_cast<uint32_t>(png.size());
    const std::string large = Octets(image.scaled(300, 300), "PNG");
    const std::tuple<const char*, std::string, bool> cas[] = {
        {"sound", Ico(1, octets, 22, png), true},
        {"65535 entries, one there", Ico(65535, octets, 22, png), true},
        {"65535 entries, none there", Ico(65535, octets, 22, png).substr(0, 6), false},
        {"no entry", Ico(0, octets, 22, png), false},
        {"a gigabyte", Ico(1, 1U << 30, 22, png), false},
        {"place and size overflow", Ico(1, 0xFFFFFFFFU, 0xFFFFFFFFU, png), false},
        {"behind the end", Ico(1, octets, octets + 22, png), false},
        {"no byte", Ico(1, 0, 22, png), false},
        {"cut", Ico(1, octets, 22, png).substr(0, 40), false},
        {"another kind inside", Ico(1, 60, 22, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
         false},
        {"large inside", Ico(1, static_cast<uint32_t>(large.size()), 22, large), false},
    };
    for (const auto& [nom, ico1, lue] : cas)
        EXPECT_EQ(!LireIcone(ico1, 16).isNull(), lue) << nom;
    std::string plein = Ico(65535, 30, 22, std::string(1 << 20, '\0'));  // every entry is there and damaged
    for (size_t place = 22; place + 16 <= plein.size(); place += 16)
        plein.replace(place, 16, plein, 6, 16);
    EXPECT_TRUE(LireIcone(plein, 16).isNull());

    // Every byte of the heads turned, and every length: whatever comes of it is small.
    for (size_t place = 0; place < std::min<size_t>(ico.size(), 64); ++place)
        for (const int valeur : {0, 1, 0x7F, 0xFF}) {
            std::string abime = ico;
            abime[place] = static_cast<char>(valeur);
            const QImage lue = LireIcone(abime, 16);
            EXPECT_LE(lue.width(), 256);
            EXPECT_LE(lue.height(), 256);
        }
    for (size_t longueur = 0; longueur < ico.size(); longueur += 7)
        EXPECT_LE(LireIcone(ico.substr(0, longueur), 16).width(), 32);

    // The directory says 16 pixels, the picture behind it says what it likes.
    std::string menteur = ico;
    const size_t entete = 6 + 16;
    if (menteur.compare(entete, 4, "\x89PNG") != 0) {
        qToLittleEndian<int32_t>(30000, menteur.data() + entete + 4);
        EXPECT_TRUE(LireIcone(menteur, 16).isNull());
    }
}
