#pragma once

#include <optional>
#include <string>
#include <vector>

#include "browser/OuvrirFichier.h"
#include "outils/Environnement.h"
#include "outils/Reponses.h"

struct MediaTest {
    std::string label;
    std::string arbre;
    std::string type = "Lecteur DVD/CD-ROM";
    bool drapeau = true;
    std::string categorie = {};
    std::string icone = {};
    std::string unite = {}, disque = {}, serie = {}, total = {}, libre = {};
};

struct LigneTest {
    std::string repertoire, pere, nom, attribut;
    std::string taille = " ", type = " ", date = " ", heure = " ";
    std::optional<std::string> alias = {}, description = {};
};

// Rows written by hand into the current base; each returns the number of its row.
int64_t AjouterMediaTest(const MediaTest& media);
std::vector<int64_t> AjouterLignes(int64_t media, const std::vector<LigneTest>& lignes);

// A base of the test's own, current and empty.
class EnvironnementBase : public Environnement {
protected:
    EnvironnementBase();
    Reponses dialogues_;
};
