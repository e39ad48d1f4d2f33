#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

#include "extraction/AjouterFichier.h"
#include "extraction/TypesFichiers.h"

// What a window shows of a run: a copy, taken at any moment from any thread.
struct Avancement {
    CompteursExtraction compteurs;
    std::string pourcentage;     // "12,34 %", empty before the first
    double part = 0;             // 0 to 1, width of the bar
    std::string ligne;           // progress line: path at work
};

enum class FinExtraction { Complete, Abandonnee, Echec };

// One run: reads a drive into the current base under a media number that VerifierCatalogue gave. Executer may run on a
// worker thread; all else is for the thread of the window.
class Extraction {
public:
    Extraction(int64_t media, char lettre, double octetsTotal, bool lecteurVide);

    // Writes the rows, the tree and the visible flag, then compacts the base. A run that is abandoned or that can't be
    // written (full disk) leaves nothing of the media behind.
    FinExtraction Executer();

    // The walk ends at its next entry.
    void Abandonner();

    Avancement Lire() const;

    // Seconds spent so far: walk and rows, end of the transaction, compaction.
    struct Durees {
        double parcours = 0, validation = 0, compaction = 0;
    };
    const Durees& DureesEtapes() const { return durees_; }

private:
    struct Noeud;
    bool EcrireMedia();
    bool FindDirs(class Parcours& parcours, Recordset& enregistrements);
    void Publier();

    int64_t media_;
    char lettre_;
    double octetsTotal_;
    bool lecteurVide_;
    mutable std::mutex verrou_;
    Avancement publie_;
    Durees durees_;
};
