#pragma once

#include <cstdint>
#include <string>

#include "commun/Dialogues.h"
#include "extraction/bsDrive.h"

// What the user typed and what is known of the drive.
struct DemandeMedia {
    std::string identifiant;
    std::string nom;
    std::string lecteur;  // capital letter
    InfosLecteur infos;
};

enum class ChampFautif { Aucun, Identifiant, Nom };

struct ReponseMedia {
    bool accepte = false;
    int64_t numero = 0;
    ChampFautif fautif = ChampFautif::Aucun;  // the box that is empty
    std::string base;                         // path of the base that holds the new row
    bool baseFermee = false;                  // it could not be opened
};

// The gate of every extraction: refuses a media without identifier or name, offers to replace one that is catalogued,
// and writes the new, still invisible row.
ReponseMedia VerifierCatalogue(const DemandeMedia& demande, Dialogues& dialogues);

// Keeps the letter (one character) in which a moved media is found from now on.
void ModifierCatalogueDisque(const std::string& identifiant, const std::string& lettre);
