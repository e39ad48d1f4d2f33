#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <stop_token>
#include <string>

#include "extraction/AjouterFichier.h"
#include "extraction/TypesFichiers.h"

// What a window shows of a run: a copy, taken at any moment.
struct Avancement {
    CompteursExtraction compteurs;
    std::string pourcentage;  // "12,34 %", empty before the first
    double part = 0;          // width of the bar, 0 to 1
    std::string ligne;        // progress line: the path at work
};

enum class FinExtraction { Complete, Abandonnee, Echec };

// One run: reads a drive into a base under the number that VerifierCatalogue gave. Executer may run on a
// worker thread; all else is for the window's thread.
class Extraction {
public:
    // `base`: its path. `octetsTotal`: bytes in use on the drive, for the percentage. `lecteurVide`: a drive of
    // capacity 0, of which the root alone is written.
    Extraction(std::string base, int64_t media, char lettre, double octetsTotal, bool lecteurVide);

    const std::string& CheminBase() const { return base_; }
    int64_t Media() const { return media_; }

    // Writes the rows, the directory tree and the visible flag, all or nothing, then compacts the base. After an
    // abandoned run or one that can't be written (full disk) nothing of the media is left.
    FinExtraction Executer();

    // The walk ends at its next entry.
    void Abandonner();

    Avancement Lire() const;

    struct Durees {
        double parcours = 0, validation = 0, compaction = 0;  // seconds
    };
    // Of a run that has ended.
    const Durees& DureesEtapes() const { return durees_; }

private:
    struct Repertoire;
    struct Etat;

    FinExtraction EcrireMedia();
    static bool AjouterRacine(Etat& etat);
    void FindDirs(Etat& etat);
    void ParcourirRepertoire(Etat& etat, Repertoire& repertoire);
    void TraiterRepertoire(Etat& etat, Repertoire& parent, const EntreeDossier& entree);
    void TraiterFichier(Etat& etat, const Repertoire& repertoire, const EntreeDossier& entree);
    void Publier(const Etat& etat);

    const std::string base_;
    const std::stop_token arret_;
    const int64_t media_;
    const char lettre_;
    const double octetsTotal_;
    const bool lecteurVide_;
    TypesFichiers types_;
    Durees durees_;

    mutable std::atomic<bool> demande_ = true;  // a window has looked: publish again
    mutable std::mutex verrou_;
    Avancement publie_;
};
