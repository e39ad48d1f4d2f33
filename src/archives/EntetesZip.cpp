#include "archives/EntetesZip.h"

#include <algorithm>

#include "archives/ChampsOctets.h"
#include "commun/Texte.h"

namespace {

// Fields of a member's extra bytes, each with its identifier.
constexpr uint16_t ExtraZip64 = 0x0001, ExtraNomUnicode = 0x7075;

bool LireSignature(LecteurOctets& lecteur, std::string_view attendue)
{
    std::array<char, 4> signature;
    return lecteur.PetitBoutiste(signature) && std::string_view(signature.data(), signature.size()) == attendue;
}

// The first extra field of that identifier; what is damaged ends the search.
std::optional<std::string_view> ChercherExtra(const MembreZip& membre, uint16_t identifiant)
{
    ChampsOctets champs(membre.extra);
    while (champs.Reste() > 0) {
        const auto trouve = champs.PetitBoutiste<uint16_t>();
        const auto taille = champs.PetitBoutiste<uint16_t>();
        if (!champs.Complets() || taille > champs.Reste())
            break;
        const std::string_view contenu = champs.Octets(taille);
        if (trouve == identifiant)
            return contenu;
    }
    return std::nullopt;
}

// The name of an extra field that belongs to the member's name as it stands now.
std::optional<std::string_view> NomUnicode(const MembreZip& membre)
{
    const auto extra = ChercherExtra(membre, ExtraNomUnicode);
    if (!extra)
        return std::nullopt;
    ChampsOctets champs(*extra);
    const auto version = champs.PetitBoutiste<uint8_t>();
    const auto somme = champs.PetitBoutiste<uint32_t>();
    const std::string_view nom = champs.Octets(champs.Reste());
    if (!champs.Complets() || version != 1 || !SommeJuste(membre.nom, somme) || !Utf8Valide(nom))
        return std::nullopt;
    return nom;
}

// The systems whose names are in the code page of DOS: DOS itself, OS/2, Windows under its two numbers, VFAT.
bool EstDos(uint8_t systeme)
{
    constexpr std::array<uint8_t, 5> systemes = {0, 6, 10, 11, 14};
    return std::find(systemes.begin(), systemes.end(), systeme) != systemes.end();
}

}  // namespace

bool MembreZip::Lire(LecteurOctets& lecteur)
{
    if (!LireSignature(lecteur, Signature) ||
        !lecteur.PetitBoutiste(versionAuteur, systeme, versionRequise, drapeaux, methode, heure, date, somme,
                               taillePaquet, tailleReelle, tailleNom, tailleExtra, tailleCommentaire, volume,
                               attributsInternes, attributsExternes, place) ||
        lecteur.Reste() < tailleNom)
        return false;
    nom = lecteur.Octets(tailleNom);
    extra = lecteur.Octets(tailleExtra);
    lecteur.Sauter(tailleCommentaire);
    return true;
}

bool FinZip::Lire(LecteurOctets& lecteur)
{
    return LireSignature(lecteur, Signature) &&
           lecteur.PetitBoutiste(volume, volumeRepertoire, membresVolume, membres, tailleRepertoire, placeRepertoire,
                                 tailleCommentaire);
}

bool RenvoiZip64::Lire(LecteurOctets& lecteur)
{
    return LireSignature(lecteur, Signature) && lecteur.PetitBoutiste(volume, place, volumes);
}

bool FinZip64::Lire(LecteurOctets& lecteur)
{
    return LireSignature(lecteur, Signature) &&
           lecteur.PetitBoutiste(taille, versionAuteur, versionRequise, volume, volumeRepertoire, membresVolume,
                                 membres, tailleRepertoire, placeRepertoire);
}

uint64_t TailleReelle(const MembreZip& membre)
{
    if (membre.tailleReelle != UINT32_MAX)
        return membre.tailleReelle;
    ChampsOctets champs(ChercherExtra(membre, ExtraZip64).value_or(std::string_view()));
    const auto taille = champs.PetitBoutiste<uint64_t>();
    return champs.Complets() ? taille : membre.tailleReelle;
}

std::string NomZip(const MembreZip& membre)
{
    const auto jusquAuNul = [](std::string_view octets) { return octets.substr(0, octets.find('\0')); };
    const std::string_view nom = jusquAuNul(membre.nom);
    // particularité 39
    if (membre.drapeaux & MembreZip::NomUtf8 && Utf8Valide(nom))
        return std::string(nom);
    if (const auto unicode = NomUnicode(membre))
        return std::string(jusquAuNul(*unicode));
    return EstDos(membre.systeme) ? DosEnTexte(nom) : NomEnTexte(nom);
}
