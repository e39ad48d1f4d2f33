#include "browser/ChargerImage.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <mutex>
#include <utility>

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include "platform/Fichier.h"
#include "platform/OperationsFichiers.h"

namespace {

constexpr double TwipsParPixel = 15, LargeurCadre = 2280, HauteurCadre = 2895, HauteurMontree = 2850;

// What a decoder may hold for each pixel at its worst (all coefficients of a progressive picture), and the pixels that
// this leaves room for beside the bytes of the file.
constexpr int64_t OctetsParPixel = 6, MemoireDecodage = int64_t{180} << 20;
constexpr uint64_t FichierMaximal = uint64_t{64} << 20;
constexpr auto Patience = std::chrono::seconds(1);

// The bytes of a file for a decoder; they end when time is up, and with them the decoding.
class Octets : public QBuffer {
public:
    Octets(const QByteArray& octets, std::stop_token arret) : arret_(std::move(arret))
    {
        setData(octets);
        open(QIODevice::ReadOnly);
    }

protected:
    qint64 readData(char* tampon, qint64 nombre) override
    {
        if (arret_.stop_requested() || std::chrono::steady_clock::now() > fin_)
            return -1;
        return QBuffer::readData(tampon, nombre);
    }

private:
    const std::stop_token arret_;
    const std::chrono::steady_clock::time_point fin_ = std::chrono::steady_clock::now() + Patience;
};

QByteArray LireOctets(const Fichier& fichier, const std::stop_token& arret)
{
    if (fichier.Taille() > FichierMaximal)
        return {};
    const auto taille = static_cast<size_t>(fichier.Taille());
    QByteArray octets(static_cast<qsizetype>(taille), Qt::Uninitialized);
    constexpr size_t Bloc = 1 << 20;
    for (size_t lu = 0; lu < taille;) {
        const size_t venu =
            arret.stop_requested() ? 0 : fichier.Lire(lu, octets.data() + lu, std::min(Bloc, taille - lu));
        if (venu == 0)
            return {};
        lu += venu;
    }
    return octets;
}

bool EstFormatLu(const QByteArray& format)
{
    static constexpr std::array formats = {"jpeg", "gif", "png", "bmp"};
    return std::find(formats.begin(), formats.end(), format) != formats.end();
}

QImage Decoder(const QByteArray& octets, double echelle, const std::stop_token& arret)
{
    // One at a time, whatever number of pictures the user runs through.
    static std::mutex unSeul;
    const std::lock_guard garde(unSeul);
    static const bool limitee = (QImageReader::setAllocationLimit(256), true);
    if (!limitee || arret.stop_requested())
        return {};

    Octets source(octets, arret);
    QImageReader lecteur(&source);
    const QSize taille = lecteur.size();
    if (!EstFormatLu(lecteur.format()) || taille.isEmpty() ||
        int64_t{taille.width()} * taille.height() > MemoireDecodage / OctetsParPixel)
        return {};
    const QSize montree = (QSizeF(TailleMontree(taille)) * echelle).toSize().expandedTo({1, 1});
    // A decoder that can leaves out at once what will not be seen; twice the size keeps the lines clean.
    if (taille.width() > 4 * montree.width())
        lecteur.setScaledSize(2 * montree);
    QImage image;
    if (!lecteur.read(&image) || arret.stop_requested())
        return {};
    image = image.scaled(montree, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(echelle);
    return image;
}

}  // namespace

QSize TailleMontree(QSize image)
{
    const double ratio = static_cast<double>(image.height()) / std::max(image.width(), 1);
    double largeur = LargeurCadre, hauteur = largeur * ratio;
    if (hauteur > HauteurCadre) {
        hauteur = HauteurMontree;
        largeur = hauteur / ratio;
    }
    const auto pixels = [](double twips) { return std::max(1, static_cast<int>(std::lround(twips / TwipsParPixel))); };
    return {pixels(largeur), pixels(hauteur)};
}

Photo ChargerImage(const std::string& chemin, double echelle, const std::stop_token& arret)
{
    Photo photo;
    photo.fichier = FichierExiste(chemin);
    if (!photo.fichier)
        return photo;
    const Fichier fichier(chemin);
    if (const QByteArray octets = LireOctets(fichier, arret); !octets.isEmpty())
        photo.image = Decoder(octets, echelle, arret);
    return photo;
}
