#pragma once

#include <string_view>

#include "archives/ArbreArchive.h"
#include "platform/Fichier.h"

// The tree of an archive's members, by the reader of its extension; the root alone for an extension without reader.
ArbreArchive ListerArchive(const Fichier& fichier, std::string_view extension);
