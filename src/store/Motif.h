#pragma once

#include <string>
#include <string_view>
#include <vector>

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
