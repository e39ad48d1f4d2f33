#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/LecteurOctets.h"

// The block headers of RAR 1.5 to 4 archives, after the published technical note. Numbers are little-endian.

inline constexpr std::string_view SignatureRar4("Rar!\x1A\x07\x00", 7);

// What every block begins with, and the bytes of its whole header.
struct BlocRar4 {
    enum Type : uint8_t {
        Principal = 0x73,
        Membre = 0x74,
        Commentaire = 0x75,
        Authenticite = 0x76,
        SousBloc = 0x77,
        Signature = 0x79,
        Service = 0x7A,
        Fin = 0x7B,
    };
    static constexpr uint16_t AvecDonnees = 0x8000;

    uint16_t somme = 0;  // low half of the CRC-32 of what follows it
    uint8_t type = 0;
    uint16_t drapeaux = 0;
    uint16_t taille = 0;         // of the header, from its first byte
    uint32_t tailleDonnees = 0;  // behind the header; there with AvecDonnees only

    std::string octets;

    // Reads the header at the reader's place and leaves it behind. False when it is no header or cut short.
    bool Lire(LecteurOctets& lecteur);
    // Whether the CRC is right for so many bytes from the header's first; old blocks without a sound one pass.
    bool SommeJuste(size_t couverts) const;
};

// The archive's own header.
struct PrincipalRar4 {
    static constexpr uint16_t Volume = 0x0001, Commentaire = 0x0002, Chiffre = 0x0080, AvecVersionChiffre = 0x0200;

    uint16_t placeSignatureHaute = 0;
    uint32_t placeSignature = 0;
    uint8_t versionChiffre = 0;  // there with AvecVersionChiffre only

    // False when fields are missing or the CRC is wrong.
    bool Lire(const BlocRar4& bloc);
};

// A member, or a block of the archive's service, which has the same form.
struct MembreRar4 {
    static constexpr uint16_t SuiteAilleurs = 0x0002, Commentaire = 0x0008, Grand = 0x0100, Unicode = 0x0200,
                              Sel = 0x0400;

    uint32_t taillePaquet = 0;
    uint32_t tailleReelle = 0;
    uint8_t systeme = 0;
    uint32_t sommeDonnees = 0;
    uint32_t date = 0;
    uint8_t version = 0;
    uint8_t methode = 0;
    uint16_t tailleNom = 0;
    uint32_t attributs = 0;
    uint32_t taillePaquetHaute = 0;  // these two with Grand only
    uint32_t tailleReelleHaute = 0;
    std::string_view nom;  // in the block's bytes; cut where the header ends

    // False when fields before the name are missing or the CRC is wrong.
    bool Lire(const BlocRar4& bloc);
};

// A member's name as text. With `unicode` its bytes are UTF-8 or, when they hold a NUL, a plain name followed by the
// differences that make UTF-16 of it.
std::string NomRar4(std::string_view nom, bool unicode);
