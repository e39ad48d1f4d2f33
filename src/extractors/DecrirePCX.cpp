#include "extractors/DecrirePCX.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>

#include "platform/LecteurOctets.h"

namespace {

// The PCX header up to what is described; little-endian.
struct EntetePcx {
    uint8_t fabricant = 0, version = 0, codage = 0, bitsParPixel = 0;
    uint16_t xMin = 0, yMin = 0, xMax = 0, yMax = 0;
    uint16_t resolutionX = 0, resolutionY = 0;
    std::array<uint8_t, 48> palette = {};
    uint8_t reserve = 0, plans = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(fabricant) && lecteur.PetitBoutiste(version) && lecteur.PetitBoutiste(codage) &&
               lecteur.PetitBoutiste(bitsParPixel) && lecteur.PetitBoutiste(xMin) && lecteur.PetitBoutiste(yMin) &&
               lecteur.PetitBoutiste(xMax) && lecteur.PetitBoutiste(yMax) && lecteur.PetitBoutiste(resolutionX) &&
               lecteur.PetitBoutiste(resolutionY) && lecteur.Lire(palette.data(), palette.size()) &&
               lecteur.PetitBoutiste(reserve) && lecteur.PetitBoutiste(plans);
    }
};

EntetePcx entete;  // kept from file to file, as meant: fields that a file lacks stay those of the one before it

}  // namespace

bool DecrirePCX(const Fichier& fichier, std::string& resultat)
{
    if (!fichier.Ouvert())
        return false;
    LecteurOctets lecteur(fichier);
    entete.Lire(lecteur);
    if (entete.fabricant != 10)
        return false;

    const int largeur = entete.xMax - entete.xMin + 1;
    const int hauteur = entete.yMax - entete.yMin + 1;
    const int profondeur = entete.plans * 8;  // planes only, as meant: bits per pixel do not count
    resultat = fmt::format("{}x{}x{}xPCX", largeur, hauteur, profondeur);
    return true;
}
