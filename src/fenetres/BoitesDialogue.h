#pragma once

#include "commun/Dialogues.h"

// Message boxes over the active window. Their buttons are French whatever translations are installed.
class BoitesDialogue : public Dialogues {
public:
    void Informer(const std::string& texte) override;
    bool Demander(const std::string& question, const std::string& titre = "Velourne") override;
    bool DemanderAvantPerte(const std::string& question, const std::string& titre = "Velourne") override;
    std::string ChoisirFichier(const DemandeFichier& demande) override;
    std::string ChoisirDossier(const std::string& titre) override;
};
