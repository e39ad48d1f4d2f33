#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "extractors/FichierADecrire.h"

// Draws a description out of a file; false, the text left alone, when there is none.
using Extracteur = bool (*)(const FichierADecrire& source, std::string& resultat);

// What is done with the content of files of some extensions. A branch without function does nothing.
struct Branche {
    std::array<std::string_view, 2> extensions;
    std::string_view section;  // of the setting that wants it, with its default
    std::string_view cle;
    int defaut;
    bool archive;  // its members are listed, nothing is described
    Extracteur extraire = nullptr;
    uint64_t tailleMinimale = 0;  // bytes; smaller files have no description and are not opened

    // The user wants it: the setting, read anew at each call, is 1.
    bool Voulue() const;
};

// The branch for a file, chosen by its lower-case extension alone; the last branch takes all that no other takes.
const Branche& ChoisirBranche(std::string_view extension);

// Conditions beside the extension: of the ".diz" files only "file_id.diz" counts, and the track files ".cda" (so
// spelled) of an audio CD are no executables.
bool BrancheAdmise(const Branche& branche, std::string_view nom, std::string_view chemin);
