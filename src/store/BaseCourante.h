#pragma once

#include <string>

// Path of the current base, process-wide, and of the base for which it stands in. Copies are handed out; any thread may
// call all of this.

std::string BaseCourante();
void FixerBaseCourante(const std::string& chemin);

// The current base stands in, until the program ends, for the one of the settings, which is not there.
void FixerRemplacante(const std::string& chemin, const std::string& remplacee);
// Empty when the current base stands in for none.
std::string BaseRemplacee();

// Why the current base could not be opened when that was last tried, in French; empty when it could.
std::string RefusBaseCourante();
void NoterRefus(const std::string& refus);

// What the user should be told of his bases, in French: given out once, then empty.
std::string ReprendreAvis();
void LaisserAvis(const std::string& avis);
