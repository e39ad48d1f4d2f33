#pragma once

#include <string>
#include <vector>

#include "platform/LecteurCD.h"

// Reaches a disc's identity by itself, and the line with which a server is asked for it.
class CCd {
public:
    explicit CCd(MachineCD& machine) : machine_(machine) {}

    // The identity, "" before a disc was read.
    const std::string& DiscID() const { return identite_; }
    // Opens the drive ("D:"), reads the disc if that goes, and closes it.
    void Init(std::string_view lecteur);
    void LoadCDInfo(LecteurCD& lecteur);
    std::string QueryString() const;

private:
    MachineCD& machine_;
    std::string lecteur_;
    std::string identite_;
    std::vector<Msf> entrees_;  // the tracks, then the lead-out; empty before a disc was read
};
