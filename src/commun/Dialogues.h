#pragma once

#include <string>

// What logic asks of the user. Windows answer with message boxes, tests by themselves.
class Dialogues {
public:
    virtual ~Dialogues() = default;
    virtual void Informer(const std::string& texte) = 0;
    virtual bool Demander(const std::string& question, const std::string& titre = "Velourne") = 0;
};
