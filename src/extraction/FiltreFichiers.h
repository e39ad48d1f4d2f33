#pragma once

#include <string>
#include <string_view>
#include <vector>

// One row of the wizard's extension filter: what it is called and its patterns, separated by ";".
struct FiltreFichiers {
    std::string nom;
    std::string motifs;
};

// The rows, in an order that never changes: the settings remember a row by its number.
const std::vector<FiltreFichiers>& FiltresFichiers();

// True when the name matches one of the patterns, regardless of case. "*.*" matches every name, also one without ".".
bool CorrespondFiltre(std::string_view motifs, std::string_view nom);
