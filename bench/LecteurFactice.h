#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "audiocd/ReponsesToc.h"
#include "platform/LecteurCD.h"

// A disc as a drive answers READ TOC with it. Everything that the drive says else follows from these bytes.
struct DisqueFactice {
    ReponseToc toc{};
    std::optional<ReponseCdText> cdTexte;

    DisqueFactice() = default;
    // Start frame of each track and of the lead-out; tracks count from `premiere`. `adrControle` of each descriptor is
    // the same: 0x10 audio, 0x14 data.
    explicit DisqueFactice(std::string_view texteToc, int premiere = 1, uint8_t adrControle = 0x10);

    // Begin of a descriptor in `toc`.
    static size_t Descripteur(int rang) { return 4 + static_cast<size_t>(rang) * 8; }
};

// A pack of CD-Text and the answer that is made of packs.
struct PaquetFactice {
    uint8_t type = 0x80, piste = 0;
    std::string texte;  // up to twelve bytes, filled up with NULs
    int sequence = -1;  // its place when it is negative
};
ReponseCdText ReponsePaquets(const std::vector<PaquetFactice>& paquets);

// An optical drive without hardware.
struct AppareilFactice {
    static constexpr char ToutesLettres = '*';
    char lettre = ToutesLettres;
    int adaptateur = 0, cible = 0, unite = 0, type = MachineCD::TypeCdRom;
    DisqueFactice disque;
    bool present = true;  // a disc lies in it
    bool tiroirOuvert = false;
    bool commandes = true;             // takes SCSI commands
    bool systeme = true;               // answers what the system asks
    PlaceLecture place;                // stands still while it plays
    std::vector<std::string> journal;  // what has reached it
};

// A machine with such drives.
class MachineFactice : public MachineCD {
public:
    MachineFactice() = default;
    explicit MachineFactice(const DisqueFactice& disque) { Ajouter().disque = disque; }

    AppareilFactice& Ajouter();
    AppareilFactice& operator[](size_t rang) { return *appareils_[rang]; }

    std::unique_ptr<LecteurCD> Ouvrir(std::string_view lecteur) override;
    int Adaptateurs() override;
    int TypeAppareil(int adaptateur, int cible, int unite) override;
    std::unique_ptr<LecteurCD> OuvrirAppareil(int adaptateur, int cible, int unite) override;

private:
    AppareilFactice* Chercher(int adaptateur, int cible, int unite);

    std::vector<std::unique_ptr<AppareilFactice>> appareils_;
};
