#pragma once

#include <string>
#include <vector>

// The command "lister": writes a listing of the current base, its tree loaded as the browser does, and prints what it
// took. `arguments`: the command, the base, the format, the file, options. Throws on what it can't do.
void MesurerListing(const std::vector<std::string>& arguments);
