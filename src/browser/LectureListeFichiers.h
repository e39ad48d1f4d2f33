#pragma once

#include <atomic>
#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/IconesExtensions.h"
#include "catalogue/ListeFichiers.h"

struct TriListe {
    int colonne = ColTaille;
    bool decroissant = false;
};

// What a node holds, read on one thread to be shown by another.
struct Lecture {
    struct Noeud {
        std::string cle, texte;
        bool archive = false;
    };
    std::string cle;            // of the node
    ListeFichiers liste;        // its entries
    std::vector<Noeud> noeuds;  // the directories and archives among them, for the tree
    std::string statut;         // " 12 Objet(s)"; empty for the root
};

// Reads what the node of this key holds, sorted, and lets the base know of extensions that are new to it. Nothing for
// the root. `part` takes the share done, 0 to 1. One that was asked to stop comes back with what it has.
Lecture LectureListeFichiers(const std::string& cle, IconesExtensions& icones, const TriListe& tri,
                             const std::stop_token& arret, std::atomic<double>& part);

// Adds the directories and archives of a reading to the tree; those that are there already stay as they are.
void AjouterNoeuds(ArbreCatalogue& arbre, const Lecture& lecture);
