#include "extractors/DecrireImage.h"

#include <fmt/format.h>

#include "extractors/EnteteImage.h"

bool DecrireImage(const Fichier& fichier, std::string& resultat)
{
    constexpr const char* NomsTypes[] = {"---", "PNG", "GIF", "JPG", "BMP"};  // by type
    const EnteteImage entete = LireEnteteImage(fichier);
    if (entete.type == TypeImage::Inconnu)
        return false;
    resultat = fmt::format("{}x{}x{}x{}", entete.largeur, entete.hauteur, entete.profondeur,
                           NomsTypes[static_cast<uint8_t>(entete.type)]);
    return true;
}
