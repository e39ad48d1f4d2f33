#pragma once

#include <string>
#include <vector>

#include "audiocd/ChoixCddb.h"

// Chooses the row that it is told to, and keeps what it was shown.
class ChoixTest : public ChoixCddb {
public:
    int rang = 0;
    std::vector<std::string> montrees;
    bool soumission = false;

    int ChoisirDisque(const std::vector<std::string>& titres, bool permise, long, long, std::stop_token) override
    {
        montrees = titres;
        soumission = permise;
        return rang;
    }
    int ChoisirServeur(const std::vector<std::string>& rangees, std::stop_token) override
    {
        montrees = rangees;
        return rang;
    }
};
