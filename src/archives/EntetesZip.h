#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/LecteurOctets.h"

// The records of a ZIP archive that tell of its members, after the published application note. Numbers are
// little-endian; sizes and places of 32 bits that are all ones stand in a ZIP64 record. Each record begins with its
// signature, which Lire expects too: it leaves the reader behind the record, or answers false when it is none or cut.

// A member in the central directory.
struct MembreZip {
    static constexpr std::string_view Signature = "PK\1\2";
    static constexpr uint16_t NomUtf8 = 0x0800;

    uint8_t versionAuteur = 0;
    uint8_t systeme = 0;  // that wrote the member
    uint16_t versionRequise = 0;
    uint16_t drapeaux = 0;
    uint16_t methode = 0;
    uint16_t heure = 0;
    uint16_t date = 0;
    uint32_t somme = 0;
    uint32_t taillePaquet = 0;
    uint32_t tailleReelle = 0;
    uint16_t tailleNom = 0;
    uint16_t tailleExtra = 0;
    uint16_t tailleCommentaire = 0;
    uint16_t volume = 0;
    uint16_t attributsInternes = 0;
    uint32_t attributsExternes = 0;
    uint32_t place = 0;

    std::string nom;
    std::string extra;  // cut where the file ends

    bool Lire(LecteurOctets& lecteur);
};

// What the archive ends with.
struct FinZip {
    static constexpr std::string_view Signature = "PK\5\6";

    uint16_t volume = 0;
    uint16_t volumeRepertoire = 0;
    uint16_t membresVolume = 0;
    uint16_t membres = 0;
    uint32_t tailleRepertoire = 0;
    uint32_t placeRepertoire = 0;
    uint16_t tailleCommentaire = 0;

    bool Lire(LecteurOctets& lecteur);
};

// Directly before the end of a large archive: where the record below lies.
struct RenvoiZip64 {
    static constexpr std::string_view Signature = "PK\6\7";
    static constexpr uint64_t Taille = 20;

    uint32_t volume = 0;
    uint64_t place = 0;
    uint32_t volumes = 0;

    bool Lire(LecteurOctets& lecteur);
};

struct FinZip64 {
    static constexpr std::string_view Signature = "PK\6\6";
    static constexpr uint64_t Taille = 56;

    uint64_t taille = 0;  // of what follows it
    uint16_t versionAuteur = 0;
    uint16_t versionRequise = 0;
    uint32_t volume = 0;
    uint32_t volumeRepertoire = 0;
    uint64_t membresVolume = 0;
    uint64_t membres = 0;
    uint64_t tailleRepertoire = 0;
    uint64_t placeRepertoire = 0;

    bool Lire(LecteurOctets& lecteur);
};

// The member's size, from its ZIP64 field where it takes more than 32 bits.
uint64_t TailleReelle(const MembreZip& membre);

// The member's name as text, up to its first NUL: UTF-8 where the member is marked so or brings such a name beside its
// own; else the code page of DOS, or of Western European ANSI, by the system that wrote it.
std::string NomZip(const MembreZip& membre);
