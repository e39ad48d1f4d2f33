#pragma once

#include <stop_token>

#include "store/Base.h"

// Opens the current base. Not open, and every operation on it without effect, when that fails, which RefusBaseCourante
// then tells of. A request to stop ends
// its long selects as if they had no more rows.
Base OuvrirBase(const std::stop_token& arret = {});
