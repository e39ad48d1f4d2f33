#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What the search window offers to choose from. The first entry of each list, "Tous ", stands for all.

inline constexpr std::string_view Tous = "Tous ";

// Extensions met in the current base, sorted.
std::vector<std::string> ChargerExtension();

struct ChoixMedias {
    std::vector<std::string> textes;
    std::vector<int64_t> numeros;  // of the media at the text's place less one

    // Number of the media at a row of the list; 0 for the first row and rows that are not there.
    int64_t Numero(int rang) const;
};
// By identifier and by label, both in the order of the labels.
ChoixMedias ChargerIdentifiant();
ChoixMedias ChargerLabel();

// The words searched so far, in the order of their first use, without limit.
std::vector<std::string> LireSaisies();
// Adds a word unless it is empty or known.
void NoterSaisie(const std::string& mot);

// One of the four options: names, descriptions, extensions, dates.
enum OptionRecherche { OptionNoms, OptionDescriptions, OptionExtensions, OptionDates, NombreOptions };
bool OptionActive(int option);
void FixerOption(int option, bool active);
