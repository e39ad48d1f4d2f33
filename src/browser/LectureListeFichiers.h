#pragma once

#include <functional>
#include <string>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/ListeFichiers.h"

struct EcouteLecture {
    std::function<void(double part)> progression;          // 0 to 1
    std::function<void(const std::string& texte)> statut;  // " 12 Objet(s)"
};

// Reads what the selected node holds into the list, and the directories and archives among it into the tree. Stops when
// events that it let run have shown another node meanwhile.
void LectureListeFichiers(ArbreCatalogue& arbre, ListeFichiers& liste, IconesExtensions& icones,
                          const EcouteLecture& ecoute = {});
