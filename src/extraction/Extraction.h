#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

#include "extraction/CourseMedia.h"
#include "extraction/TypesFichiers.h"

// The run over a drive with a volume: its whole tree.
class Extraction : public CourseMedia {
public:
    // `octetsTotal`: bytes in use on the drive, for the percentage; 0 when not known. `lecteurVide`: a drive of
    // capacity 0, of which the root alone is written.
    Extraction(std::string base, int64_t media, char lettre, double octetsTotal, bool lecteurVide);

    FinExtraction Executer() override;
    Avancement Lire() const override;

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

    const char lettre_;
    const double octetsTotal_;
    const bool lecteurVide_;
    TypesFichiers types_;
    Durees durees_;

    mutable std::atomic<bool> demande_ = true;  // a window has looked: publish again
    mutable std::mutex verrou_;
    Avancement publie_;
};
