#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>

#include "extractors/EtatExtracteurs.h"
#include "platform/Parcours.h"
#include "store/Base.h"
#include "store/Recordset.h"

struct CompteursExtraction {
    int64_t repertoires = 0;
    int64_t fichiers = 0;
    int64_t archives = 0;  // files with an archive extension
    int64_t listees = 0;   // archives whose members were listed
    int64_t descriptions = 0;
};

// The arguments of one row. Texts as stored; `chemin` and `extension` empty for the root and directories.
struct LigneFichier {
    std::string_view nom;  // a trailing "\" is not stored
    int64_t code = 0;      // own directory code; 0 for a file
    std::string_view taille, type, date, heure, attribut;
    int64_t repertoire = 0;      // code of the containing directory
    std::string_view chemin;     // "D:\dossier\fichier\"
    std::string_view extension;  // lower case
    std::string_view description;
    std::string_view alias;  // a name shown instead; Null when empty
    // The walk, standing in the file's directory, and the entry there: read when a description is drawn from it.
    const Parcours* parcours = nullptr;
    const EntreeDossier* entree = nullptr;
};

// What all rows of one run share.
struct Course {
    Base& base;
    int64_t media;
    std::stop_token arret = {};  // ends the listing of an archive
    CompteursExtraction compteurs = {};
    EtatExtracteurs extracteurs = {};
};

// Writes one row, the root, a directory or a file, on the open record set of a run; for a file with a path it first
// draws out the description or lists the archive while the row is pending. False when the row could not be written.
bool AjouterFichier(Course& course, const LigneFichier& ligne, Recordset& enregistrements);
