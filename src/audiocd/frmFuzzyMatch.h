#pragma once

#include "audiocd/FenetreChoix.h"

// The choice among several discs that may be the one in the drive.
class frmFuzzyMatch : public FenetreChoix {
public:
    explicit frmFuzzyMatch(const std::vector<std::string>& titres, QWidget* parent = nullptr);
};
