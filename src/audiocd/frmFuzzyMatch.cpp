#include "audiocd/frmFuzzyMatch.h"

frmFuzzyMatch::frmFuzzyMatch(const std::vector<std::string>& titres, QWidget* parent)
    : FenetreChoix("Liste des disques", "Sélectionner parmis les résultats ...", titres, parent)
{
}
