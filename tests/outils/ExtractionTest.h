#pragma once

#include <string>
#include <vector>

#include "extraction/Extraction.h"
#include "extraction/VerifierCatalogue.h"
#include "outils/Environnement.h"
#include "outils/Reponses.h"

// A test that reads folders of its own into a base.
class EnvironnementExtraction : public Environnement {
protected:
    EnvironnementExtraction();

    // So many empty files, a hundred in each directory.
    void Remplir(int fichiers) const;
    ReponseMedia Inscrire(const std::string& identifiant, const std::string& nom);
    FinExtraction Lire(int64_t media);
    // Rows of a table as "champ|champ|...", in the order of their numbers.
    std::vector<std::string> Lignes(const std::string& select, const std::vector<std::string>& champs);
    int64_t Compter(const std::string& select);

    std::filesystem::path disque_;  // top of the drive
    char lettre_ = 0;
    Reponses dialogues_;
    CompteursExtraction compteurs_;
};
