#pragma once

#include "audiocd/LecteurToc.h"

// Walks all SCSI devices of the machine and takes the drive whose tracks begin where cMCI says that they do: a device
// address tells nothing of drive letters.
class cASPI : public LecteurToc {
public:
    explicit cASPI(MachineCD& machine) : machine_(machine) {}

    // After a failure GetTOC holds what the last drive tried has answered.
    bool InitMediaToc(std::string_view lecteur) override;

private:
    bool Essayer(int adaptateur, int cible, int unite, std::string_view reference);

    MachineCD& machine_;
};
