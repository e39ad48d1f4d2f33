#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

// Finds numbered things by what they hold: open addressing over their numbers alone. What is compared stays with the
// owner, who lends `egal` (does this number stand for what is looked for?) and `empreinteDe` (the hash of what a number
// stands for).
class TableNumeros {
public:
    static constexpr int32_t Aucun = -1;

    template <typename Egal>
    int32_t Chercher(size_t empreinte, const Egal& egal) const
    {
        return cases_.empty() ? Aucun : cases_[Case(empreinte, egal)];
    }

    // False, and nothing changed, when there is one already.
    template <typename Egal, typename EmpreinteDe>
    bool Ajouter(size_t empreinte, int32_t numero, const Egal& egal, const EmpreinteDe& empreinteDe)
    {
        if (cases_.size() < (nombre_ + 1) * 2)
            Agrandir(empreinteDe);
        int32_t& libre = cases_[Case(empreinte, egal)];
        if (libre != Aucun)
            return false;
        libre = numero;
        ++nombre_;
        return true;
    }

    // The entries behind the one that goes move up, so that no search stops short at the gap.
    template <typename Egal, typename EmpreinteDe>
    void Retirer(size_t empreinte, const Egal& egal, const EmpreinteDe& empreinteDe)
    {
        if (cases_.empty())
            return;
        size_t trou = Case(empreinte, egal);
        if (cases_[trou] == Aucun)
            return;
        --nombre_;
        for (size_t place = Suivante(trou); cases_[place] != Aucun; place = Suivante(place)) {
            const size_t voulue = empreinteDe(cases_[place]) & Masque();
            if (((place - voulue) & Masque()) < ((place - trou) & Masque()))
                continue;
            cases_[trou] = cases_[place];
            trou = place;
        }
        cases_[trou] = Aucun;
    }

private:
    size_t Masque() const { return cases_.size() - 1; }
    size_t Suivante(size_t place) const { return (place + 1) & Masque(); }

    // Where it stands, else where it would.
    template <typename Egal>
    size_t Case(size_t empreinte, const Egal& egal) const
    {
        size_t place = empreinte & Masque();
        while (cases_[place] != Aucun && !egal(cases_[place]))
            place = Suivante(place);
        return place;
    }

    template <typename EmpreinteDe>
    void Agrandir(const EmpreinteDe& empreinteDe)
    {
        const std::vector<int32_t> anciennes = std::move(cases_);
        cases_.assign(anciennes.empty() ? 16 : anciennes.size() * 2, Aucun);
        for (const int32_t numero : anciennes)
            if (numero != Aucun)
                cases_[Case(empreinteDe(numero), [](int32_t) { return false; })] = numero;
    }

    std::vector<int32_t> cases_;  // a power of two
    size_t nombre_ = 0;
};
