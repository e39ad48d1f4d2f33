#pragma once

#include <string_view>

#include "archives/ArbreArchive.h"

// Hangs the line of one member ("a/b/c.txt:12 b:20031224:14h05") in the tree: a folder node for each element of its
// path but the last, once each, and below them the member, whose text is what follows the line's last "/".
void ConstruireTv(std::string_view ligne, ArbreArchive& tv);
