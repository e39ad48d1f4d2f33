#include "platform/NomsDossier.h"

#include <algorithm>
#include <cstring>

#include "commun/Texte.h"

namespace {

constexpr size_t octetsGardes = 1 << 20;  // room kept from one directory to the next

bool EstAscii(std::string_view nom)
{
    return std::all_of(nom.begin(), nom.end(), [](char octet) { return static_cast<unsigned char>(octet) < 0x80; });
}

char CapitaleAscii(char octet)
{
    return octet >= 'a' && octet <= 'z' ? static_cast<char>(octet - ('a' - 'A')) : octet;
}

}  // namespace

void NomsDossier::Ajouter(std::string_view nom, uint8_t type)
{
    const size_t cle = octets_.size();
    if (EstAscii(nom)) {
        octets_.append(nom);
        std::transform(octets_.begin() + static_cast<std::ptrdiff_t>(cle), octets_.end(),
                       octets_.begin() + static_cast<std::ptrdiff_t>(cle), CapitaleAscii);
    } else {
        octets_ += Majuscules(NomEnTexte(nom));
    }
    octets_ += '\0';
    places_.push_back({cle, octets_.size(), type});
    octets_.append(nom).push_back('\0');
}

void NomsDossier::Trier()
{
    std::sort(places_.begin(), places_.end(), [debut = octets_.data()](const Place& gauche, const Place& droite) {
        const int ordre = std::strcmp(debut + gauche.cle, debut + droite.cle);
        return ordre != 0 ? ordre < 0 : std::strcmp(debut + gauche.nom, debut + droite.nom) < 0;
    });
}

void NomsDossier::Vider()
{
    places_.clear();
    octets_.clear();
    if (octets_.capacity() > octetsGardes) {
        places_.shrink_to_fit();
        octets_.shrink_to_fit();
    }
}
