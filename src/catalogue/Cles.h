#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Codes and keys by which media, directories, archives and files are found: their making and their taking apart. Keys
// hold a blank ahead of each number; what is taken out of a key is trimmed.

inline constexpr std::string_view CleRacine = "Root";
inline constexpr std::string_view CodeRacine = "000000001";  // of a media's top directory

// A directory's code: `nombre` with at least nine digits ("000000012").
std::string CodeRepertoire(int64_t nombre);
// The code of a folder inside an archive, "A 1234 8": `place` is that of its node in the archive's tree, from 1 on.
std::string CodeArchive(int64_t ligne, int64_t media, int64_t place);

// Keys of nodes: " 12-000000003", the same of a media's top, and "A 345 12" for the archive of a row.
std::string CleRepertoire(int64_t catalogue, std::string_view code);
std::string CleRepertoire(std::string_view catalogue, std::string_view code);
std::string CleMedia(int64_t catalogue);
std::string CleArchive(int64_t ligne, int64_t catalogue);
// Key of the node whose entries hold this code: an archive for a code of its top, else a directory or a folder inside
// an archive.
std::string CleContenant(std::string_view catalogue, std::string_view code);
// Key of a file in the list: " 12- 345".
std::string CleFichier(int64_t catalogue, int64_t ligne);
// Key of a search result: the key of its node, "#" and the number of its row behind a blank. `code` is that of the
// directory or archive that holds a file, a directory's own otherwise.
std::string CleResultatDe(int64_t catalogue, std::string_view code, int64_t ligne);

// What a node key says.
struct CleNoeud {
    bool valide = false;    // false for "Root" and anything that is no key
    bool archive = false;   // "A 345 12"
    std::string catalogue;  // media number, decimal
    std::string code;       // directory code; for an archive the number of its row

    // What the rows inside have as `Répertoire`: the code of a directory, the whole key of an archive.
    std::string contenu;
};
CleNoeud AnalyserCle(std::string_view cle);

// The first letter tells a node that is an archive; a letter anywhere one that is an archive or lies in one.
bool EstCleArchive(std::string_view cle);
bool EstCleDansArchive(std::string_view cle);

// Key of an item taken apart: media number, and directory code or row number.
struct CleItem {
    std::string catalogue, code;
};
CleItem AnalyserCleItem(std::string_view cle);

// Key of a result taken apart. The node of what is no directory is that of the directory or archive that holds it.
struct CleResultat {
    std::string noeud;  // " 12-000000003", "A 345 12", " 12-A 345 13"
    std::string item;   // key of the row in the browser's list, " 12- 345"
    std::string catalogue, ligne;
};
CleResultat AnalyserCleResultat(std::string_view cle);
