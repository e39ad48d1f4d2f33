#pragma once

#include <string>

// A file that the user is to choose. Texts as shown; `filtre` in the form "Bases de X (*.vlr)".
struct DemandeFichier {
    std::string titre;
    std::string filtre;
    std::string suffixe;     // for a name typed without one
    std::string depart;      // file or folder at which the choice begins
    bool ecrire = false;     // a file to be written, which need not be there
    bool confirmer = false;  // ask before a file that is there is chosen for writing
};

// What logic asks of the user. Windows answer with message boxes and file dialogs, tests by themselves.
class Dialogues {
public:
    virtual ~Dialogues() = default;
    virtual void Informer(const std::string& texte) = 0;
    virtual bool Demander(const std::string& question, const std::string& titre = "Velourne") = 0;
    // The same before something is deleted or replaced: Enter alone does not say yes.
    virtual bool DemanderAvantPerte(const std::string& question, const std::string& titre = "Velourne")
    {
        return Demander(question, titre);
    }
    // Real path; empty when the user gives up.
    virtual std::string ChoisirFichier(const DemandeFichier& demande) = 0;
    virtual std::string ChoisirDossier(const std::string& titre) = 0;
};
