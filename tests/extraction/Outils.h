#pragma once

#include <map>
#include <string>
#include <vector>

#include "Environnement.h"
#include "extraction/Extraction.h"
#include "extraction/VerifierCatalogue.h"

// Answers by itself and keeps what was said.
class ReponsesToutesPretes : public Dialogues {
public:
    bool oui = true;
    std::vector<std::string> dites;

    void Informer(const std::string& texte) override { dites.push_back(texte); }
    bool Demander(const std::string& question, const std::string&) override
    {
        dites.push_back(question);
        return oui;
    }
};

// A test that reads folders of its own into a base.
class EnvironnementExtraction : public Environnement {
protected:
    EnvironnementExtraction();

    ReponseMedia Inscrire(const std::string& identifiant, const std::string& nom);
    FinExtraction Lire(int64_t media);
    // Rows of a table as "champ|champ|...", in the order of their numbers.
    std::vector<std::string> Lignes(const std::string& select, const std::vector<std::string>& champs);
    int64_t Compter(const std::string& select);

    std::filesystem::path disque_;  // top of the drive
    char lettre_ = 0;
    ReponsesToutesPretes dialogues_;
    CompteursExtraction compteurs_;
};
