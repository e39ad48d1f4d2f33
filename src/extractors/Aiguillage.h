#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "extractors/FichierADecrire.h"

// Draws a description out of a file; false, the text left alone, when there is none.
using Extracteur = bool (*)(const FichierADecrire& source, std::string& resultat);

// How files of some extensions are described.
struct Branche {
    std::array<std::string_view, 2> extensions;  // lower case; the second may be empty
    std::string_view cle;                        // of the setting that wants it, in the section "Descriptions"
    Extracteur extraire;
    uint64_t tailleMinimale;  // bytes; smaller files have no description and need not be opened

    // The user wants it: the setting, read anew at each call, is 1 or was never written.
    bool Voulue() const;
};

// The branch for a file, chosen by its lower-case extension alone; the last branch takes all that no other takes.
// Archives are not described: their extensions are not asked for here.
const Branche& ChoisirBranche(std::string_view extension);

// Conditions beside the extension: of the ".diz" files only "file_id.diz" counts, and the track files ".cda" (so
// spelled) of an audio CD are no executables.
bool BrancheAdmise(const Branche& branche, std::string_view nom, std::string_view chemin);

// Describes a file through the branch of its extension, wanted or not.
bool ExtraireDescription(const FichierADecrire& source, std::string& resultat);
