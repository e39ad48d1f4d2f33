#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/LecteurOctets.h"

// The block headers of RAR 5 archives, after the published archive format. Numbers without a width of their own are of
// variable length.

inline constexpr std::string_view SignatureRar5("Rar!\x1A\x07\x01\x00", 8);

// What every block begins with, and the fields of its own that follow.
struct BlocRar5 {
    enum Type : uint64_t { Principal = 1, Membre = 2, Service = 3, Chiffrement = 4, Fin = 5 };
    static constexpr uint64_t AvecSupplement = 0x01, AvecDonnees = 0x02, SuiteAilleurs = 0x10;
    static constexpr uint64_t TailleMaximale = 2 * 1024 * 1024;

    uint32_t somme = 0;   // CRC-32 of what follows it
    uint64_t taille = 0;  // of the header, from the type on
    uint64_t type = 0;
    uint64_t drapeaux = 0;
    uint64_t tailleSupplement = 0;  // at the end of the header; there with AvecSupplement only
    uint64_t tailleDonnees = 0;     // behind the header; there with AvecDonnees only

    std::string_view champs;  // the block's own, in `octets`
    std::string octets;

    // Reads the header at the reader's place and leaves it behind. False when it is cut short, larger than the format
    // allows, or its CRC is wrong.
    bool Lire(LecteurOctets& lecteur);
};

// The archive's own header, up to its flags.
struct PrincipalRar5 {
    static constexpr uint64_t Volume = 0x01;

    uint64_t drapeaux = 0;

    bool Lire(const BlocRar5& bloc);
};

struct MembreRar5 {
    static constexpr uint64_t AvecDate = 0x02, AvecSomme = 0x04, TailleInconnue = 0x08;

    uint64_t drapeaux = 0;
    uint64_t tailleReelle = 0;
    uint64_t attributs = 0;
    uint32_t date = 0;          // 4 bytes; there with AvecDate only
    uint32_t sommeDonnees = 0;  // 4 bytes; there with AvecSomme only
    uint64_t compression = 0;
    uint64_t systeme = 0;
    uint64_t tailleNom = 0;
    std::string_view nom;  // UTF-8, "/" between elements; in the block's bytes, cut where the header ends

    // False when fields before the name are missing.
    bool Lire(const BlocRar5& bloc);
};
