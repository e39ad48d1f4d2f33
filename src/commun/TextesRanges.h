#pragma once

#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

// Keeps many small texts in large blocks, so that a million names cost little more than their letters. The views that
// Ranger gives stay valid until Vider.
class TextesRanges {
public:
    std::string_view Ranger(std::string_view texte)
    {
        if (texte.empty())
            return {};
        if (texte.size() > libre_)
            AjouterBloc(texte.size());
        char* place = suivant_;
        std::memcpy(place, texte.data(), texte.size());
        suivant_ += texte.size();
        libre_ -= texte.size();
        return {place, texte.size()};
    }

    void Vider()
    {
        blocs_.clear();
        suivant_ = nullptr;
        libre_ = 0;
    }

private:
    static constexpr size_t TailleBloc = 256 * 1024;

    void AjouterBloc(size_t besoin)
    {
        libre_ = besoin > TailleBloc ? besoin : TailleBloc;
        blocs_.push_back(std::make_unique_for_overwrite<char[]>(libre_));
        suivant_ = blocs_.back().get();
    }

    std::vector<std::unique_ptr<char[]>> blocs_;
    char* suivant_ = nullptr;
    size_t libre_ = 0;
};
