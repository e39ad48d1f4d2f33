#include "listings/SortieListing.h"

#include <algorithm>

#include "commun/Texte.h"

namespace {

constexpr size_t TailleMorceau = size_t{1} << 18;
constexpr char32_t EspaceInsecable = 0xA0, EspaceInsecableFine = 0x202F;
constexpr char32_t PremierAccentSeul = 0x300;  // all characters that compose lie from here on

bool ToutAscii(std::string_view texte)
{
    unsigned char bits = 0;
    for (const char c : texte)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80;
}

bool PeutSeComposer(std::string_view texte)
{
    for (size_t position = 0; position < texte.size();)
        if (CaractereSuivant(texte, position) >= PremierAccentSeul)
            return true;
    return false;
}

// Null: the sign stands for itself.
const char* Echappement(char32_t caractere)
{
    return caractere == '&' ? "&amp;" : caractere == '<' ? "&lt;" : caractere == '>' ? "&gt;" : nullptr;
}

}  // namespace

SortieListing& SortieListing::Fixe(std::string_view texte)
{
    Convertir(texte, forme_ == Interrogation ? Interrogation : Reference);
    return *this;
}

SortieListing& SortieListing::Texte(std::string_view texte)
{
    Convertir(texte, forme_);
    return *this;
}

SortieListing& SortieListing::Colonne(std::string_view texte, size_t coupe, size_t largeur)
{
    const size_t debut = tampon_.size();
    Convertir(texte, Interrogation);
    tampon_.resize(debut + std::min(tampon_.size() - debut, coupe));
    tampon_.resize(std::max(tampon_.size(), debut + largeur), ' ');
    return *this;
}

void SortieListing::FinLigne()
{
    tampon_ += "\r\n";
    if (tampon_.size() >= TailleMorceau)
        Vider();
}

void SortieListing::Convertir(std::string_view texte, Forme forme)
{
    if (forme != ReferenceEchappee && ToutAscii(texte)) {
        tampon_ += texte;
        return;
    }
    if (PeutSeComposer(texte)) {
        const std::string compose = Composer(texte);
        if (compose != texte) {
            Convertir(compose, forme);
            return;
        }
    }
    for (size_t position = 0; position < texte.size();) {
        char32_t caractere = CaractereSuivant(texte, position);
        if (caractere == EspaceInsecableFine)
            caractere = EspaceInsecable;
        const char* echappement = forme == ReferenceEchappee ? Echappement(caractere) : nullptr;
        if (const int octet = OctetAnsi(caractere); echappement)
            tampon_ += echappement;
        else if (octet >= 0)
            tampon_ += static_cast<char>(octet);
        else if (forme == Interrogation)
            tampon_ += '?';
        else
            tampon_.append("&#").append(std::to_string(static_cast<uint32_t>(caractere))).append(";");
    }
}

void SortieListing::Vider()
{
    reussie_ = reussie_ && verser_(tampon_);
    versees_ += tampon_.size();
    tampon_.clear();
}

bool SortieListing::Terminer()
{
    Vider();
    return reussie_;
}
