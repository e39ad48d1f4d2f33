#include "extractors/EnteteImage.h"

#include <algorithm>
#include <array>

#include "platform/LecteurOctets.h"

namespace {

using Octets2 = std::array<uint8_t, 2>;
using Octets4 = std::array<uint8_t, 4>;

constexpr std::array<uint8_t, 3> SignaturePng = {137, 'P', 'N'}, SignatureGif = {'G', 'I', 'F'},
                                 SignatureJpeg = {255, 216, 255};
constexpr std::array<uint8_t, 2> SignatureBmp = {'B', 'M'};

// Start of a PNG file: signature and the chunk IHDR, big-endian.
struct DebutPng {
    std::array<uint8_t, 8> signature;
    Octets4 tailleBloc, nomBloc;
    Octets4 largeur, hauteur;
    uint8_t profondeur;  // bits of a sample
    uint8_t typeCouleur;
};

// Start of a GIF file: signature and the logical screen descriptor, little-endian.
struct DebutGif {
    std::array<uint8_t, 6> signature;
    Octets2 largeur, hauteur;
    uint8_t drapeaux;
};

// Start of a BMP file: BITMAPFILEHEADER and BITMAPINFOHEADER, little-endian.
struct DebutBmp {
    Octets2 signature;
    Octets4 tailleFichier, reserve, debutPixels;
    Octets4 tailleEntete;
    Octets4 largeur, hauteur;
    Octets2 plans;
    uint8_t profondeur;
};

// Frame header of a JPEG stream (ITU-T T.81, B.2.2) behind its marker, big-endian.
struct CadreJpeg {
    Octets2 longueur;
    uint8_t precision;
    Octets2 hauteur, largeur;
    uint8_t composantes;
};

template <typename Enregistrement>
bool Lire(LecteurOctets& lecteur, Enregistrement& enregistrement)
{
    static_assert(alignof(Enregistrement) == 1);  // read as it lies in the file
    return lecteur.Lire(&enregistrement, sizeof enregistrement);
}

// Values are 16-bit signed: false from 32768 on. Of a wider field only these two bytes are looked at (kept,
// particularité 21).
template <typename Entier>
bool Valeur16(uint8_t haut, uint8_t bas, Entier& valeur)
{
    if (haut >= 128)
        return false;
    valeur = static_cast<Entier>(haut * 256 + bas);
    return true;
}

bool Reconnaitre(EnteteImage& entete, TypeImage type, int profondeur)
{
    if (profondeur > 255)
        return false;
    entete.type = type;
    entete.profondeur = static_cast<uint8_t>(profondeur);
    return true;
}

// The readers below return false when a field could not be read, which ends the reading of the file.

// A colour type that PNG does not know leaves the type unknown, and the file may still be a JPEG.
bool LirePng(LecteurOctets& lecteur, EnteteImage& entete)
{
    DebutPng debut;
    if (!Lire(lecteur, debut) || !Valeur16(debut.largeur[2], debut.largeur[3], entete.largeur) ||
        !Valeur16(debut.hauteur[2], debut.hauteur[3], entete.hauteur))
        return false;
    switch (debut.typeCouleur) {
        case 0: return Reconnaitre(entete, TypeImage::PNG, debut.profondeur);
        case 2: return Reconnaitre(entete, TypeImage::PNG, debut.profondeur * 3);
        case 3: return Reconnaitre(entete, TypeImage::PNG, 8);
        case 4: return Reconnaitre(entete, TypeImage::PNG, debut.profondeur * 2);
        case 6: return Reconnaitre(entete, TypeImage::PNG, debut.profondeur * 4);
        default: return true;
    }
}

bool LireGif(LecteurOctets& lecteur, EnteteImage& entete)
{
    DebutGif debut;
    return Lire(lecteur, debut) && Valeur16(debut.largeur[1], debut.largeur[0], entete.largeur) &&
           Valeur16(debut.hauteur[1], debut.hauteur[0], entete.hauteur) &&
           Reconnaitre(entete, TypeImage::GIF, (debut.drapeaux & 7) + 1);
}

bool LireBmp(LecteurOctets& lecteur, EnteteImage& entete)
{
    DebutBmp debut;
    return Lire(lecteur, debut) && Valeur16(debut.largeur[1], debut.largeur[0], entete.largeur) &&
           Valeur16(debut.hauteur[1], debut.hauteur[0], entete.hauteur) &&
           Reconnaitre(entete, TypeImage::BMP, debut.profondeur);
}

bool LireCadre(LecteurOctets& lecteur, EnteteImage& entete)
{
    CadreJpeg cadre;
    return Lire(lecteur, cadre) && Valeur16(cadre.hauteur[0], cadre.hauteur[1], entete.hauteur) &&
           Valeur16(cadre.largeur[0], cadre.largeur[1], entete.largeur) &&
           Reconnaitre(entete, TypeImage::JPEG, cadre.composantes * 8);
}

// Goes from segment to segment until a frame header; whatever is no 255 counts as a marker, with a length behind it.
bool LireJpeg(LecteurOctets& lecteur, uint64_t debut, const PorteeJpeg& portee, EnteteImage& entete)
{
    for (uint64_t place = debut + 2; place < portee.fin; ++place) {
        uint8_t marqueur;
        lecteur.Aller(place);
        if (!Lire(lecteur, marqueur))
            return false;
        if (marqueur == 255)
            continue;
        if (portee.estCadre(marqueur))
            return place + sizeof(CadreJpeg) < portee.fin && LireCadre(lecteur, entete);
        uint16_t longueur;
        if (!lecteur.GrosBoutiste(longueur))
            return false;
        place += longueur;
    }
    return true;
}

bool CadreDecrit(uint8_t marqueur)
{
    return marqueur >= 192 && marqueur <= 195;  // the later ones are passed over (kept, particularité 20)
}

}  // namespace

EnteteImage LireEnteteImage(const Fichier& fichier)
{
    return LireEnteteImage(fichier, {UINT64_MAX, CadreDecrit});
}

EnteteImage LireEnteteImage(const Fichier& fichier, const PorteeJpeg& portee)
{
    EnteteImage entete;
    LecteurOctets lecteur(fichier);
    std::array<uint8_t, 3> signature;
    if (!Lire(lecteur, signature))
        return entete;
    lecteur.Aller(0);

    bool lu = true;
    if (signature == SignaturePng)
        lu = LirePng(lecteur, entete);
    else if (signature == SignatureGif)
        lu = LireGif(lecteur, entete);
    else if (std::equal(SignatureBmp.begin(), SignatureBmp.end(), signature.begin()))
        lu = LireBmp(lecteur, entete);
    if (!lu || entete.type != TypeImage::Inconnu)
        return entete;

    const std::string_view motif(reinterpret_cast<const char*>(SignatureJpeg.data()), SignatureJpeg.size());
    const uint64_t debut = signature == SignatureJpeg ? 0 : Chercher(fichier, motif, 0, portee.fin);
    if (debut != Introuvable)
        LireJpeg(lecteur, debut, portee, entete);
    return entete;
}
