#include "extractors/RessourceVersion.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "extractors/AjouterTexte.h"
#include "platform/LecteurOctets.h"

namespace {

constexpr uint32_t TypeVersion = 16, NumeroVersion = 1;

constexpr uint64_t PlaceEnteteSuivant = 0x3C;  // the last field of the DOS header
constexpr uint16_t SignatureNe = 'N' | 'E' << 8, SignaturePe = 'P' | 'E' << 8;

// So many bytes from the reader's place, as far as the file goes; none of a block longer than any description.
std::string LireBloc(LecteurOctets& lecteur, uint64_t taille)
{
    return std::min(taille, lecteur.Reste()) <= DescriptionMaximale ? lecteur.Octets(taille) : std::string();
}

// PE

struct EnteteCoff {
    uint16_t machine = 0, nombreSections = 0;
    uint32_t date = 0, placeSymboles = 0, nombreSymboles = 0;
    uint16_t tailleOptionnel = 0, attributs = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(machine, nombreSections, date, placeSymboles, nombreSymboles, tailleOptionnel,
                                     attributs);
    }
};

struct Zone {
    uint32_t adresse = 0, taille = 0;
};

// The beginning of the optional header and, behind what it says of memory, its table of directories.
struct EnteteOptionnel {
    static constexpr uint16_t Pe32 = 0x10B, Pe32Plus = 0x20B;

    uint16_t magie = 0;
    uint32_t nombreRepertoires = 0;
    Zone exportations, importations, ressources;

    bool Lire(LecteurOctets& lecteur)
    {
        if (!lecteur.PetitBoutiste(magie) || (magie != Pe32 && magie != Pe32Plus))
            return false;
        lecteur.Sauter(magie == Pe32 ? 90 : 106);
        return lecteur.PetitBoutiste(nombreRepertoires, exportations.adresse, exportations.taille, importations.adresse,
                                     importations.taille, ressources.adresse, ressources.taille) &&
               nombreRepertoires >= 3;
    }
};

struct Section {
    uint64_t nom = 0;
    uint32_t tailleMemoire = 0, adresse = 0, taille = 0, place = 0;
    uint32_t placeRelocations = 0, placeLignes = 0;
    uint16_t nombreRelocations = 0, nombreLignes = 0;
    uint32_t attributs = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(nom, tailleMemoire, adresse, taille, place, placeRelocations, placeLignes,
                                     nombreRelocations, nombreLignes, attributs);
    }
};

struct TableSections {
    uint64_t place;
    uint16_t nombre;

    // Where in the file the byte of a memory address lies; Introuvable when no section brings it.
    uint64_t PlaceDe(LecteurOctets& lecteur, uint32_t adresse) const
    {
        lecteur.Aller(place);
        Section section;
        for (uint16_t i = 0; i < nombre && section.Lire(lecteur); ++i)
            if (adresse >= section.adresse && adresse - section.adresse < section.taille)
                return uint64_t{section.place} + (adresse - section.adresse);
        return Introuvable;
    }
};

struct RepertoireRessources {
    uint32_t attributs = 0, date = 0;
    uint16_t versionMajeure = 0, versionMineure = 0, nombreNommees = 0, nombreNumerotees = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(attributs, date, versionMajeure, versionMineure, nombreNommees, nombreNumerotees);
    }
};

struct EntreeRessources {
    static constexpr uint32_t Repertoire = 0x80000000;

    uint32_t numero = 0;       // with the high bit: where the name lies
    uint32_t destination = 0;  // from the root; with the high bit: a directory, else a data entry

    bool Lire(LecteurOctets& lecteur) { return lecteur.PetitBoutiste(numero, destination); }
};

struct DonneesRessource {
    uint32_t adresse = 0, taille = 0, pageCodes = 0, reserve = 0;

    bool Lire(LecteurOctets& lecteur) { return lecteur.PetitBoutiste(adresse, taille, pageCodes, reserve); }
};

// The entry with that number of the directory at that place, else its first one; false when it has none.
bool ChoisirEntree(LecteurOctets& lecteur, uint64_t place, uint32_t numero, EntreeRessources& choisie)
{
    lecteur.Aller(place);
    RepertoireRessources repertoire;
    if (!repertoire.Lire(lecteur))
        return false;
    const uint32_t nombre = uint32_t{repertoire.nombreNommees} + repertoire.nombreNumerotees;
    EntreeRessources entree;
    for (uint32_t i = 0; i < nombre && entree.Lire(lecteur); ++i) {
        if (i == 0 || entree.numero == numero)
            choisie = entree;
        if (entree.numero == numero)
            break;
    }
    return choisie.destination != 0;
}

// Goes down the three levels of the tree: type, number, language.
bool ChercherDonnees(LecteurOctets& lecteur, uint64_t racine, DonneesRessource& donnees)
{
    EntreeRessources type, version, langue;
    if (!ChoisirEntree(lecteur, racine, TypeVersion, type) || type.numero != TypeVersion)
        return false;
    const auto placeDe = [racine](const EntreeRessources& entree) {
        return racine + (entree.destination & ~EntreeRessources::Repertoire);
    };
    const auto estRepertoire = [](const EntreeRessources& entree) {
        return (entree.destination & EntreeRessources::Repertoire) != 0;
    };
    if (!estRepertoire(type) || !ChoisirEntree(lecteur, placeDe(type), NumeroVersion, version))
        return false;
    constexpr uint32_t langueNeutre = 0;
    if (!estRepertoire(version) || !ChoisirEntree(lecteur, placeDe(version), langueNeutre, langue))
        return false;
    if (estRepertoire(langue))
        return false;
    lecteur.Aller(placeDe(langue));
    return donnees.Lire(lecteur);
}

// The reader stands behind "PE".
std::string LireBlocPe(LecteurOctets& lecteur)
{
    uint16_t finSignature = 0;
    EnteteCoff coff;
    if (!lecteur.PetitBoutiste(finSignature) || finSignature != 0 || !coff.Lire(lecteur))
        return {};
    const TableSections sections{lecteur.Position() + coff.tailleOptionnel, coff.nombreSections};
    EnteteOptionnel optionnel;
    if (!optionnel.Lire(lecteur) || optionnel.ressources.adresse == 0)
        return {};

    const uint64_t racine = sections.PlaceDe(lecteur, optionnel.ressources.adresse);
    DonneesRessource donnees;
    if (racine == Introuvable || !ChercherDonnees(lecteur, racine, donnees))
        return {};
    lecteur.Aller(sections.PlaceDe(lecteur, donnees.adresse));
    return LireBloc(lecteur, donnees.taille);
}

// NE

struct EnteteNe {  // behind its signature
    uint8_t versionLieur = 0, revisionLieur = 0;
    uint16_t placeEntrees = 0, tailleEntrees = 0;
    uint32_t controle = 0;
    uint16_t attributs = 0, donneesAutomatiques = 0, tas = 0, pile = 0;
    uint32_t depart = 0, sommetPile = 0;
    uint16_t nombreSegments = 0, nombreModules = 0, tailleNomsNonResidents = 0;
    uint16_t placeSegments = 0, placeRessources = 0, placeNomsResidents = 0;  // from the header

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(versionLieur, revisionLieur, placeEntrees, tailleEntrees, controle, attributs,
                                     donneesAutomatiques, tas, pile, depart, sommetPile, nombreSegments, nombreModules,
                                     tailleNomsNonResidents, placeSegments, placeRessources, placeNomsResidents);
    }
};

constexpr uint16_t Numerique = 0x8000;  // marks types and numbers that are no names

struct TypeNe {
    uint16_t type = 0, nombre = 0;
    uint32_t reserve = 0;

    bool Lire(LecteurOctets& lecteur) { return lecteur.PetitBoutiste(type, nombre, reserve); }
};

struct RessourceNe {
    static constexpr uint64_t Taille = 12;

    uint16_t place = 0, taille = 0;  // in units of the table
    uint16_t attributs = 0, numero = 0, poignee = 0, usage = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(place, taille, attributs, numero, poignee, usage);
    }
};

// Finds the type's resources in the table; the reader is left at the first of them.
bool ChercherTypeNe(LecteurOctets& lecteur, TypeNe& type)
{
    // What follows the table is found by a 16-bit offset too, so the table is no longer than that.
    const uint64_t fin = lecteur.Position() + 0x10000;
    while (lecteur.Position() < fin && type.Lire(lecteur) && type.type != 0) {
        if (type.type == (Numerique | TypeVersion))
            return true;
        lecteur.Sauter(type.nombre * RessourceNe::Taille);
    }
    return false;
}

// The reader stands behind "NE".
std::string LireBlocNe(LecteurOctets& lecteur)
{
    const uint64_t debut = lecteur.Position() - sizeof SignatureNe;
    EnteteNe entete;
    if (!entete.Lire(lecteur) || entete.placeRessources == entete.placeNomsResidents)
        return {};
    lecteur.Aller(debut + entete.placeRessources);
    uint16_t decalage = 0;  // the unit is 1 << this
    TypeNe type;
    if (!lecteur.PetitBoutiste(decalage) || decalage >= 32 || !ChercherTypeNe(lecteur, type))
        return {};

    RessourceNe choisie, ressource;
    for (uint16_t i = 0; i < type.nombre && ressource.Lire(lecteur); ++i) {
        if (i == 0 || ressource.numero == (Numerique | NumeroVersion))
            choisie = ressource;
        if (ressource.numero == (Numerique | NumeroVersion))
            break;
    }
    lecteur.Aller(uint64_t{choisie.place} << decalage);
    return LireBloc(lecteur, uint64_t{choisie.taille} << decalage);
}

}  // namespace

bool LireRessourceVersion(const Fichier& fichier, std::string& bloc)
{
    // Every file of an unknown kind comes here: most leave at these two bytes.
    std::array<char, 2> signature{};
    if (fichier.Lire(0, signature.data(), signature.size()) != signature.size() || signature[0] != 'M' ||
        signature[1] != 'Z')
        return false;

    LecteurOctets lecteur(fichier, PlaceEnteteSuivant);
    uint32_t placeEntete = 0;
    uint16_t signatureSuivante = 0;
    if (!lecteur.PetitBoutiste(placeEntete))
        return false;
    lecteur.Aller(placeEntete);
    if (!lecteur.PetitBoutiste(signatureSuivante))
        return false;
    std::string lu;
    if (signatureSuivante == SignaturePe)
        lu = LireBlocPe(lecteur);
    else if (signatureSuivante == SignatureNe)
        lu = LireBlocNe(lecteur);
    if (lu.empty())
        return false;
    bloc = std::move(lu);
    return true;
}
