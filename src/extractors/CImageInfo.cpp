#include "extractors/CImageInfo.h"

#include "extractors/EnteteImage.h"

namespace {

// Every frame header of a JPEG stream: 196, 200 and 204 are other segments.
bool CadreMontre(uint8_t marqueur)
{
    return marqueur >= 192 && marqueur <= 207 && (marqueur % 4 != 0 || marqueur == 192);
}

constexpr PorteeJpeg Debut64Ko = {65536, CadreMontre};

CImageInfo::Type TypeMontre(TypeImage type)
{
    switch (type) {
        case TypeImage::GIF: return CImageInfo::GIF;
        case TypeImage::JPEG: return CImageInfo::JPEG;
        case TypeImage::PNG: return CImageInfo::PNG;
        case TypeImage::BMP: return CImageInfo::BMP;
        case TypeImage::Inconnu: break;
    }
    return CImageInfo::Inconnu;
}

}  // namespace

void CImageInfo::ReadImageInfo(const Fichier& fichier)
{
    const EnteteImage entete = LireEnteteImage(fichier, Debut64Ko);
    type_ = TypeMontre(entete.type);
    largeur_ = entete.largeur;
    hauteur_ = entete.hauteur;
    profondeur_ = entete.profondeur;
}
