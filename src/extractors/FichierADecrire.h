#pragma once

#include <string_view>

#include "extractors/EtatExtracteurs.h"
#include "platform/Fichier.h"

// A file that is to be described.
struct FichierADecrire {
    const Fichier& fichier;      // not open when the system refused
    std::string_view chemin;     // "D:\dossier\fichier.mp3"
    std::string_view extension;  // lower case
    EtatExtracteurs& etat;
};
