#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <stop_token>
#include <string>

#include "audiocd/ChoixCddb.h"
#include "audiocd/uFREEDB.h"
#include "extraction/CourseMedia.h"
#include "platform/LecteurCD.h"
#include "platform/Locale.h"

// Sets a client up from the settings; `haut` and `gauche`, pixels of the screen, are where its lists open.
void InitUFreedb(uFREEDB& freedb, long haut = 0, long gauche = 0);

// The audio CD to read: its media row stands in the base already (VerifierCatalogue).
struct DemandeCDAudio {
    std::string base;  // its path
    int64_t media = 0;
    char lettre = 0;
    long haut = 0, gauche = 0;               // for the lists
    std::function<void(uFREEDB&)> reglages;  // what is set otherwise than InitUFreedb does; may be empty
};

// Where discs are read and who chooses. Both outlive the run.
struct InterfacesCDAudio {
    MachineCD& machine;
    ChoixCddb& choix;
};

// What a window shows of the run, for any thread.
class SuiviCDAudio {
public:
    Avancement Lire() const;
    void Publier(Avancement avancement);

private:
    mutable std::mutex verrou_;
    Avancement publie_;
};

// Reads the disc's tracks, looks the disc up and writes the media, all or nothing: the root row, a row for each track,
// the visible flag; then compacts the base. Blocks, for minutes where drive and server are slow; any thread, beside no
// other work on the base. When it is stopped or can't write, nothing of the media is left.
FinExtraction CataloguerCDAudio(const DemandeCDAudio& demande, const InterfacesCDAudio& interfaces, SuiviCDAudio& suivi,
                                std::stop_token arret);

// The date of a track: year, day of the year, month, and day with two digits ("20263251121"): kept, particularité
// 47.
std::string DatePiste(const DateHeure& date);
