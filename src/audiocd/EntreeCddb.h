#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Answers of a CDDB server (protocol level 5), as far as the system reads them. Answers are bytes, one ANSI character
// each; all that is taken from them is UTF-8. Lines end in CRLF, a lone "." ends the answer, and an answer without it
// ends where it ends.

enum EtatCddb : int { MATCH_NONE = 0, MATCH_INEXACT = 1, MATCH_EXACT = 2 };

// The lines of an answer, the head line first.
std::vector<std::string_view> LignesReponse(std::string_view reponse);

// The number that the first three characters are.
int CodeReponse(std::string_view reponse);

// A line of a list of discs: category, identity and title, each up to a blank.
struct DisqueTrouve {
    std::string categorie, identite, titre;
};
DisqueTrouve LireDisqueTrouve(std::string_view ligne);

// True for a text that may stand in a request or a path: letters, digits and "-", at least one.
bool MotSur(std::string_view mot);

struct EntreeCddb {
    std::string artiste, album, genre, annee, notes;
    int16_t revision = 0;
    std::vector<std::string> noms, notesPistes;
};

// Reads the lines of an entry behind the head line into the fields that they tell of.
void LireEntreeCddb(const std::vector<std::string_view>& lignes, EntreeCddb& entree);
