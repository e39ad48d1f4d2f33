#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/Fichier.h"
#include "store/Base.h"

struct CompteursExtraction {
    int64_t repertoires = 0;
    int64_t fichiers = 0;
    int64_t archives = 0;      // files with an archive extension
    int64_t listees = 0;       // archives whose members were listed
    int64_t descriptions = 0;
};

// The arguments of one row. Texts as stored; `chemin` and `extension` empty for the root and directories.
struct LigneFichier {
    std::string_view nom;        // a trailing "\" is not stored
    int64_t code = 0;            // own directory code; 0 for a file
    std::string_view taille, type, date, heure, attribut;
    int64_t repertoire = 0;      // code of the containing directory
    std::string_view chemin;     // "D:\dossier\fichier\"
    std::string_view extension;  // lower case
    std::string_view description;
};
