#pragma once

#include <atomic>
#include <stop_token>

#include "browser/Navigateur.h"
#include "catalogue/IconesExtensions.h"

// The current base's media and their folders as a new tree. A media without a tree text is shown at once, as a click on
// it would, so that list, title and description may be filled too. `part` takes the share done, 0 to 1. One that was
// asked to stop comes back with what it has.
Navigateur ChargerArbre(IconesExtensions& icones, const TriListe& tri, const std::stop_token& arret,
                        std::atomic<double>& part);
