#pragma once

#include <vector>

#include "audiocd/LecteurToc.h"

// Asks the system for the tracks, one by one. It knows no CD-Text.
class cMCI : public LecteurToc {
public:
    explicit cMCI(MachineCD& machine) : machine_(machine) {}
    bool InitMediaToc(std::string_view lecteur) override;

private:
    MachineCD& machine_;
};

// Start of each track of a disc and length of the last one, as the system tells them.
struct PistesDisque {
    std::vector<Msf> debuts;
    Msf dureeDerniere;  // from its first frame to its last, so one frame less than the lead-out lies behind its start
};
// False when the drive does not answer; `pistes` then holds those that were read.
bool LirePistes(LecteurCD& lecteur, PistesDisque& pistes);
