#pragma once

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

// The names of a base's rows in one small file of the cache folder, so that looking for a word reads some megabytes in
// place of the whole table. It belongs to one state of the base file and is made anew when that has changed. Names,
// aliases and patterns are UTF-8, paths real ones. For the thread that uses the store.

// Deletes the indexes of bases that are no longer there.
void NettoyerIndexNoms();

// Makes the index of a base unless there is one of its present state. False when none can be had.
bool PreparerIndexNoms(const std::string& base, const std::stop_token& arret = {});

// Numbers, ascending, of the rows whose name or alias may match a pattern of `like`: all that do match are among them.
// None at all (no value) when the pattern has no fixed part to look for or there is no index of the base's present
// state.
std::optional<std::vector<int64_t>> CandidatsNoms(const std::string& base, std::string_view motif);
