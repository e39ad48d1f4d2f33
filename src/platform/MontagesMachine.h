#pragma once

#include <string>
#include <vector>

#include "platform/Montages.h"

// The mounts of this machine as they are now, in the order of mounting.
std::vector<Montage> MontagesMachine();

// The mount that a folder stands on; false when it can't be told.
bool MontageDuDossier(const std::string& dossier, Montage& montage);
