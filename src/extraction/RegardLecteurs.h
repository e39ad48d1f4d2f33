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
    std::string libelle;  // "D [NOM]"

    // Discs that can be taken out have the first row of tabs, those that stay the second.
    bool Amovible() const;
};
std::vector<LecteurVu> RegarderLecteurs();

// One drive, with the names at its top in French order, a "\" behind those of directories.
struct LecteurRegarde {
    bsDrive lecteur;
    InfosLecteur infos;
    std::vector<std::string> noms;
};
LecteurRegarde RegarderLecteur(char lettre, const std::stop_token& arret);
