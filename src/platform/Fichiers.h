#pragma once

#include <string>
#include <string_view>

// Operations on the program's own files, by real path. All return false on failure and then leave the target as it was.

bool FichierExiste(const std::string& chemin);  // an ordinary file
bool DossierExiste(const std::string& chemin);

// Copies into a new file beside the target, syncs it and renames it over the target, so that the target is always
// either the old or the new file, whole.
bool CopierFichier(const std::string& source, const std::string& cible);

// Writes the bytes the same way. `prive`: readable by the owner only.
bool EcrireFichier(const std::string& chemin, std::string_view octets, bool prive = false);

// Whole content; leaves `octets` untouched when the file can't be read.
bool LireFichierEntier(const std::string& chemin, std::string& octets);

bool SupprimerFichier(const std::string& chemin);

// An advisory lock on a file, made if missing, held while the object lives.
class VerrouFichier {
public:
    VerrouFichier(const std::string& chemin, bool attendre);
    ~VerrouFichier();
    VerrouFichier(const VerrouFichier&) = delete;
    VerrouFichier& operator=(const VerrouFichier&) = delete;
    bool Pris() const { return descripteur_ >= 0; }

private:
    int descripteur_ = -1;
};
