#pragma once

#include <string>
#include <string_view>
#include <vector>

// The text in the one case in which patterns are compared, as UTF-8.
void Plier(std::string_view texte, std::string& plie);

// The longest part of a pattern without wildcards, so folded: every text that matches holds it. Empty without one.
std::string PartieFixe(std::string_view motif);

// A pattern of `like`, made ready for many texts: "*" any run of characters, "?" exactly one, all else itself.
class Motif {
public:
    explicit Motif(std::string_view motif);
    bool Correspond(std::string_view texte) const;

private:
    bool ContientMorceau(std::string_view texte) const;

    std::u32string caracteres_;  // in the case for comparisons; wildcards as values that no character has
    std::string morceau_;        // of "*morceau*", in lower case, when it is plain ASCII
    bool simple_ = false;
};

// `like` for once: case does not count, accents do.
bool CorrespondMotif(std::string_view motif, std::string_view texte);
