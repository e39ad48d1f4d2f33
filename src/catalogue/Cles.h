#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Codes and keys by which directories, archives and files are found: their making and their taking apart.

// A directory's code: `nombre` with at least nine digits ("000000012").
std::string CodeRepertoire(int64_t nombre);

// What a node key says.
struct CleNoeud {
    bool valide = false;    // false for "Root" and anything that is no key
    bool archive = false;   // "A 345 12"
    std::string catalogue;  // media number, decimal
    std::string code;       // directory code; for an archive the number of its row
};

CleNoeud AnalyserCle(std::string_view cle);

// The first letter tells a node that is an archive; a letter anywhere one that lies in an archive.
bool EstCleArchive(std::string_view cle);
bool EstCleDansArchive(std::string_view cle);

std::string CleRepertoire(int64_t catalogue, std::string_view code);
std::string CleArchive(int64_t ligne, int64_t catalogue);

// Key of an item taken apart: media number, and directory code or row number.
struct CleItem {
    std::string catalogue, code;
};
CleItem AnalyserCleItem(std::string_view cle);

// Key of a result: the key of its node in the tree, "#" and the number of its row behind a blank. The node of a file
// is that of the directory or archive that holds it; an archive's key stands behind "12-".
struct CleResultat {
    std::string noeud;  // " 12-000000003", "A 345 12"
    std::string item;   // key of the row in the browser's list, " 12- 345"
    std::string catalogue, ligne;
};
CleResultat AnalyserCleResultat(std::string_view cle);
