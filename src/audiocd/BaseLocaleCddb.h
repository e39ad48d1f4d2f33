#pragma once

#include <string>
#include <string_view>

// A CDDB directory on disk in its Windows form: a folder per category, in it files of many entries, named by the first
// and last value of the first byte of their disc identities ("00to3f"). Folders are real paths; folder and file names
// are found without regard to case. Texts are the bytes of the files.

// Name of the category's file that may hold the disc; "" when there is none.
std::string ChercherFichierIndex(const std::string& dossier, std::string_view categorie, std::string_view identite);

// The entry from the line behind the one that holds the identity to the line that holds the mark, each line ended by
// CRLF, and "."; "" when no line holds the identity. The first line of a file is not looked at.
std::string LireEntree(const std::string& dossier, std::string_view categorie, const std::string& fichier,
                       std::string_view identite, std::string_view marqueFin);

// The same entry as a line of a list of discs: category, identity and title.
std::string LireTitreEntree(const std::string& dossier, std::string_view categorie, const std::string& fichier,
                            std::string_view identite, std::string_view marqueFin);

// The whole file, "" when it can't be read.
std::string LireFichierTexte(const std::string& chemin);

// The answer that a server would give to a query for the disc, from all categories.
std::string ReponseRequeteLocale(const std::string& dossier, std::string_view identite);
// And to a read; "" when the entry is not there.
std::string ReponseLectureLocale(const std::string& dossier, std::string_view categorie, std::string_view identite);
