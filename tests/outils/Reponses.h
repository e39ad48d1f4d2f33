#pragma once

#include <string>
#include <vector>

#include "commun/Dialogues.h"

// Answers yes or no by itself and keeps what was said.
class Reponses : public Dialogues {
public:
    bool oui = true;
    std::string fichier;  // or folder; none: gives up
    std::vector<std::string> dites;
    size_t pertes = 0;  // of these, questions that Enter alone must not answer
    std::vector<DemandeFichier> demandes;

    void Informer(const std::string& texte) override { dites.push_back(texte); }
    bool Demander(const std::string& question, const std::string&) override
    {
        dites.push_back(question);
        return oui;
    }
    bool DemanderAvantPerte(const std::string& question, const std::string& titre) override
    {
        ++pertes;
        return Demander(question, titre);
    }
    std::string ChoisirFichier(const DemandeFichier& demande) override
    {
        demandes.push_back(demande);
        return fichier;
    }
    std::string ChoisirDossier(const std::string&) override { return fichier; }
};
