#pragma once

#include <string>
#include <vector>

// The bases that were current last, as the settings keep them.

inline constexpr size_t BasesRecentesMaximum = 8;

// Real paths, the newest first. Their files may have gone.
std::vector<std::string> BasesRecentes();

// Puts a base in front.
void RetenirBase(const std::string& chemin);
