#pragma once

#include <string>
#include <vector>

#include "commun/Dialogues.h"

// Answers yes or no by itself and keeps what was said.
class Reponses : public Dialogues {
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
