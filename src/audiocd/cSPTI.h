#pragma once

#include "audiocd/LecteurToc.h"

// Sends the SCSI commands through the drive's own device.
class cSPTI : public LecteurToc {
public:
    explicit cSPTI(MachineCD& machine) : machine_(machine) {}
    bool InitMediaToc(std::string_view lecteur) override;

private:
    MachineCD& machine_;
};
