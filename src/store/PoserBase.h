#pragma once

#include <functional>
#include <string>

#include "platform/OperationsFichiers.h"

// Whole base files put in a place. Paths are real ones. On failure (missing folder, full disk, unreadable source,
// target open in this process) the result is false and the target is as it was; else it is the new file, whole, with no
// journal of an older one beside it. For the thread that uses the store.

// Writes a base file from the pieces that `remplir` gives: a draft beside the target, on disk before it takes its
// place.
bool PoserBase(const std::string& cible, const std::function<bool(const Versement&)>& remplir);

// The bytes of a file that no one has open.
bool PoserCopie(const std::string& source, const std::string& cible);

// The bytes of a base, open here or not, after what a crash left undone has been undone. A file that is no base is
// copied as it stands; one that another process has open is not.
bool CopierBase(const std::string& source, const std::string& cible);

// Deletes a base and what a crash may have left beside it.
bool SupprimerBase(const std::string& chemin);
