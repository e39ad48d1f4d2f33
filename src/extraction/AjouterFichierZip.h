#pragma once

#include <cstdint>
#include <stop_token>
#include <string_view>

#include "platform/Fichier.h"
#include "store/Base.h"

// An archive met by a run, whose own row is still pending.
struct ArchiveOuverte {
    Base& base;                  // the run's
    const Fichier& fichier;      // not open when the system refused
    std::string_view extension;  // lower case
    int64_t media;
    int64_t numero;  // of the archive's row
    std::stop_token arret = {};
};

// Lists the members of an archive of any kind and writes a row for each, folders among them, into the run's open base.
// A stop ends it between two members.
void AjouterFichierZip(const ArchiveOuverte& archive);
