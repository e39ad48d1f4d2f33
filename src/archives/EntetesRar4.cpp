#include "archives/EntetesRar4.h"

#include "archives/ChampsOctets.h"
#include "commun/Texte.h"

namespace {

constexpr size_t TailleBase = 7;  // up to tailleDonnees

// Each character takes two bits of a byte of codes that comes before every fourth one.
std::u16string DeplierNom(std::string_view nom, std::string_view differences)
{
    enum Code : uint8_t { OctetSeul, OctetHaut, DeuxOctets, Copie };
    constexpr unsigned corrigee = 0x80;

    ChampsOctets champs(differences);
    const auto haut = static_cast<char16_t>(champs.PetitBoutiste<uint8_t>() << 8);
    std::u16string texte;
    unsigned codes = 0;
    for (unsigned rang = 0; champs.Reste() > 0; ++rang, codes <<= 2) {
        if (rang % 4 == 0)
            codes = champs.PetitBoutiste<uint8_t>();
        const auto code = static_cast<Code>(codes >> 6 & 3);
        if (code == OctetSeul) {
            texte += champs.PetitBoutiste<uint8_t>();
        } else if (code == OctetHaut) {
            texte += static_cast<char16_t>(haut | champs.PetitBoutiste<uint8_t>());
        } else if (code == DeuxOctets) {
            texte += champs.PetitBoutiste<uint16_t>();
        } else {
            const unsigned longueur = champs.PetitBoutiste<uint8_t>();
            const unsigned ajout = longueur & corrigee ? champs.PetitBoutiste<uint8_t>() : 0;
            const unsigned partieHaute = longueur & corrigee ? haut : 0;
            const size_t fin = std::min(nom.size(), texte.size() + (longueur & ~corrigee) + 2);
            while (texte.size() < fin)
                texte += static_cast<char16_t>(((static_cast<unsigned char>(nom[texte.size()]) + ajout) & 0xFF) |
                                               partieHaute);
        }
    }
    return texte;
}

}  // namespace

bool BlocRar4::Lire(LecteurOctets& lecteur)
{
    octets.resize(TailleBase);
    if (!lecteur.Lire(octets.data(), TailleBase))
        return false;
    ChampsOctets base(octets);
    somme = base.PetitBoutiste<uint16_t>();
    type = base.PetitBoutiste<uint8_t>();
    drapeaux = base.PetitBoutiste<uint16_t>();
    taille = base.PetitBoutiste<uint16_t>();
    if (taille < TailleBase)
        return false;

    octets.resize(taille);
    if (!lecteur.Lire(octets.data() + TailleBase, taille - TailleBase))
        return false;
    ChampsOctets suite(std::string_view(octets).substr(TailleBase));
    tailleDonnees = drapeaux & AvecDonnees ? suite.PetitBoutiste<uint32_t>() : 0;
    return suite.Complets();
}

bool BlocRar4::SommeJuste(size_t couverts) const
{
    const bool ancien = type == Commentaire || type == Authenticite || type == SousBloc || type == Signature;
    if (ancien)
        return true;  // written with a CRC of other bytes, or of none
    return ::SommeJuste(std::string_view(octets).substr(sizeof somme, couverts - sizeof somme), somme, 0xFFFF);
}

bool PrincipalRar4::Lire(const BlocRar4& bloc)
{
    ChampsOctets champs(std::string_view(bloc.octets).substr(TailleBase));
    placeSignatureHaute = champs.PetitBoutiste<uint16_t>();
    placeSignature = champs.PetitBoutiste<uint32_t>();
    versionChiffre = bloc.drapeaux & AvecVersionChiffre ? champs.PetitBoutiste<uint8_t>() : 0;
    // An old comment lies inside the header but outside its CRC.
    const size_t hors = bloc.drapeaux & Commentaire ? champs.Reste() : 0;
    return champs.Complets() && bloc.SommeJuste(bloc.taille - hors);
}

bool MembreRar4::Lire(const BlocRar4& bloc)
{
    ChampsOctets champs(std::string_view(bloc.octets).substr(TailleBase));
    taillePaquet = champs.PetitBoutiste<uint32_t>();
    tailleReelle = champs.PetitBoutiste<uint32_t>();
    systeme = champs.PetitBoutiste<uint8_t>();
    sommeDonnees = champs.PetitBoutiste<uint32_t>();
    date = champs.PetitBoutiste<uint32_t>();
    version = champs.PetitBoutiste<uint8_t>();
    methode = champs.PetitBoutiste<uint8_t>();
    tailleNom = champs.PetitBoutiste<uint16_t>();
    attributs = champs.PetitBoutiste<uint32_t>();
    taillePaquetHaute = bloc.drapeaux & Grand ? champs.PetitBoutiste<uint32_t>() : 0;
    tailleReelleHaute = bloc.drapeaux & Grand ? champs.PetitBoutiste<uint32_t>() : 0;
    nom = champs.Octets(tailleNom);
    champs.Octets(bloc.drapeaux & Sel ? 8 : 0);
    const size_t hors = bloc.drapeaux & Commentaire ? champs.Reste() : 0;
    return champs.Complets() && bloc.SommeJuste(bloc.taille - hors);
}

std::string NomRar4(std::string_view nom, bool unicode)
{
    const size_t nul = nom.find('\0');
    const std::string_view simple = nom.substr(0, nul);
    if (!unicode || nul == nom.npos)
        return NomEnTexte(simple);
    const std::u16string deplie = DeplierNom(simple, nom.substr(nul + 1));
    return deplie.empty() || deplie.front() == 0 ? NomEnTexte(simple) : Utf16EnTexte(deplie);
}
