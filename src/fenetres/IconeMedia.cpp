#include "fenetres/IconeMedia.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <QBuffer>
#include <QImageReader>

#include "catalogue/ArbreCatalogue.h"

namespace {

constexpr int CoteMaximal = 256, CoteAutreImage = 1024;
constexpr size_t TailleEntete = 6, TailleEntree = 16, EntreesMaximum = 64;
constexpr std::string_view SignaturePng = "\x89PNG";

uint32_t Nombre(std::string_view octets, size_t place, size_t taille)
{
    uint32_t nombre = 0;
    for (size_t i = 0; i < taille && place + i < octets.size(); ++i)
        nombre |= static_cast<uint32_t>(static_cast<unsigned char>(octets[place + i])) << (8 * i);
    return nombre;
}

// One picture of an icon file (ICONDIRENTRY).
struct Entree {
    int cote = 0;
    uint32_t bits = 0;
    std::string_view description, image;
};

QImage Decoder(std::string_view octets, std::initializer_list<const char*> formats, int coteMaximal)
{
    QByteArray copie(octets.data(), static_cast<qsizetype>(octets.size()));
    QBuffer tampon(&copie);
    QImageReader lecteur(&tampon);
    lecteur.setDecideFormatFromContent(true);
    const QByteArray format = lecteur.format();
    if (std::none_of(formats.begin(), formats.end(), [&](const char* connu) { return format == connu; }))
        return {};
    const QSize taille = lecteur.size();
    if (taille.isEmpty() || taille.width() > coteMaximal || taille.height() > coteMaximal)
        return {};
    return lecteur.read();
}

// What the picture says of its own size counts, not the directory ahead of it.
bool EstPetite(std::string_view image)
{
    if (image.starts_with(SignaturePng))
        return true;  // looked at by the decoder
    const auto largeur = static_cast<int32_t>(Nombre(image, 4, 4)), hauteur = static_cast<int32_t>(Nombre(image, 8, 4));
    return image.size() >= 40 && Nombre(image, 0, 4) == 40 && largeur > 0 && largeur <= CoteMaximal && hauteur > 0 &&
           hauteur <= 2 * CoteMaximal && Nombre(image, 14, 2) <= 32;
}

std::string EnTexte(uint32_t nombre, size_t taille)
{
    std::string octets;
    for (size_t i = 0; i < taille; ++i)
        octets += static_cast<char>(nombre >> (8 * i));
    return octets;
}

QImage DecoderEntree(const Entree& entree)
{
    if (!EstPetite(entree.image))
        return {};
    if (entree.image.starts_with(SignaturePng))
        return Decoder(entree.image, {"png"}, CoteMaximal);
    // An icon file of this one picture.
    std::string seule(std::string_view("\0\0\1\0\1\0", TailleEntete));
    seule.append(entree.description.substr(0, 8));
    seule += EnTexte(static_cast<uint32_t>(entree.image.size()), 4);
    seule += EnTexte(static_cast<uint32_t>(TailleEntete + TailleEntree), 4);
    seule.append(entree.image);
    return Decoder(seule, {"ico"}, CoteMaximal);
}

// Pictures of an icon file, the best one for a square first.
std::vector<Entree> LireEntrees(std::string_view octets, int cote)
{
    std::vector<Entree> entrees;
    const size_t nombre = std::min<size_t>(Nombre(octets, 4, 2), EntreesMaximum);
    for (size_t i = 0; i < nombre && TailleEntete + (i + 1) * TailleEntree <= octets.size(); ++i) {
        const std::string_view description = octets.substr(TailleEntete + i * TailleEntree, TailleEntree);
        const size_t taille = Nombre(description, 8, 4), place = Nombre(description, 12, 4);
        if (place >= octets.size() || taille > octets.size() - place)
            continue;
        const int largeur = static_cast<unsigned char>(description[0]);
        entrees.push_back(
            {largeur ? largeur : CoteMaximal, Nombre(description, 6, 2), description, octets.substr(place, taille)});
    }
    const auto rang = [cote](const Entree& entree) {
        return entree.cote >= cote ? entree.cote - cote : CoteMaximal + cote - entree.cote;
    };
    std::stable_sort(entrees.begin(), entrees.end(), [&](const Entree& a, const Entree& b) {
        return std::pair(rang(a), -int64_t{a.bits}) < std::pair(rang(b), -int64_t{b.bits});
    });
    return entrees;
}

}  // namespace

QImage LireIcone(std::string_view octets, int cote)
{
    if (octets.size() < TailleEntete || octets.size() > TailleIconeMaximale)
        return {};
    if (!octets.starts_with(std::string_view("\0\0\1\0", 4)))
        return Decoder(octets, {"png", "bmp", "gif", "jpeg"}, CoteAutreImage);
    constexpr size_t Essais = 4;  // a file of nothing but damaged pictures is not tried to its end
    const std::vector<Entree> entrees = LireEntrees(octets, cote);
    for (size_t i = 0; i < std::min(Essais, entrees.size()); ++i)
        if (const QImage image = DecoderEntree(entrees[i]); !image.isNull())
            return image;
    return {};
}

QIcon IconeDeMedia(std::string_view octets)
{
    QIcon icone;
    for (const int cote : {16, 32, 48})
        if (const QImage image = LireIcone(octets, cote); !image.isNull())
            icone.addPixmap(QPixmap::fromImage(image));
    return icone;
}
