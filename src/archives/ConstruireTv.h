#pragma once

#include <string>
#include <vector>

#include "archives/ArbreArchive.h"

// Makes the tree of the member lines of an archive ("a/b/c.txt:12 b:20031224:14h05"): a folder node for each element of
// a path but the last, once each, and below them the members, whose text is what follows the line's last "/".
void ConstruireTv(const std::vector<std::string>& lignes, ArbreArchive& tv);
