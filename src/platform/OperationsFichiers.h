#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class Fichier;

// Operations on the program's own files, by real path. All return false on failure and then leave the target as it was.

// What the system said to the last EcrireFichier or CopierFichier of this thread, in the user's language; empty when it
// had no objection.
std::string ErreurEcriture();

bool FichierExiste(const std::string& chemin);  // an ordinary file
bool DossierExiste(const std::string& chemin);

// Copies into a new file beside the target, syncs it and renames it over the target, so that the target is always
// either the old or the new file, whole.
bool CopierFichier(const std::string& source, const std::string& cible);

// Writes the bytes the same way. `prive`: readable by the owner only.
bool EcrireFichier(const std::string& chemin, std::string_view octets, bool prive = false);

// The same with the pieces that `remplir` gives to its argument, which is false when one can't be written.
using Versement = std::function<bool(std::string_view octets)>;
bool EcrireFichier(const std::string& chemin, const std::function<bool(const Versement&)>& remplir, bool prive);

// The same; `avant` runs with the real path of the target once the new file is whole and on disk, before it takes its
// place; false leaves the target as it was.
bool EcrireFichier(const std::string& chemin, const std::function<bool(const Versement&)>& remplir, bool prive,
                   const std::function<bool(const std::string& cible)>& avant);

// Gives the bytes of an open file in pieces.
bool VerserFichier(const Fichier& fichier, const Versement& verser);

// Renames a file unless something stands at the new path.
bool RenommerSansEcraser(const std::string& ancien, const std::string& nouveau);

// Deletes the drafts that processes which are gone left in a folder, and nothing else.
void NettoyerBrouillons(const std::string& dossier);

// What tells one state of a file from another.
struct EtatFichier {
    uint64_t taille = 0, numero = 0;  // bytes; number on its volume
    int64_t modification = 0;         // nanoseconds since 1970
    bool operator==(const EtatFichier&) const = default;
};
bool LireEtatFichier(const std::string& chemin, EtatFichier& etat);

// Whole content; leaves `octets` untouched when the file can't be read.
bool LireFichier(const std::string& chemin, std::string& octets);

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
