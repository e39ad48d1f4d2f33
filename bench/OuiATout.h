#pragma once

#include <stdexcept>
#include <string>

#include "commun/Dialogues.h"

// Answers yes to every question; a refusal of the program is the bench's failure.
class OuiATout : public Dialogues {
public:
    void Informer(const std::string& texte) override { throw std::runtime_error(texte); }
    bool Demander(const std::string&, const std::string&) override { return true; }
    std::string ChoisirFichier(const DemandeFichier&) override { return {}; }
    std::string ChoisirDossier(const std::string&) override { return {}; }
};
