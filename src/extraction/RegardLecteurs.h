#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

#include "extraction/bsDrive.h"

// Looks at the drives of the machine. A drive on a dead mount may keep them waiting for ever: they are asked beside the
// window's thread.

struct LecteurVu {
    char lettre = 0;  // small
    uint32_t type = 0;
    std::string libelle;      // "D [NOM]"
    std::string emplacement;  // folder or device that it leads to, as text

    // A disc that can be taken out.
    bool Amovible() const;
    bool operator==(const LecteurVu&) const = default;
};
std::vector<LecteurVu> RegarderLecteurs();

// One drive, with the names at its top in French order, a "\" behind those of directories.
struct LecteurRegarde {
    bsDrive lecteur;
    InfosLecteur infos;
    std::vector<std::string> noms;
};
LecteurRegarde RegarderLecteur(char lettre, const std::stop_token& arret);
