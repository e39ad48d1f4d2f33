#include "store/ListeExtensions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <mutex>
#include <unordered_set>
#include <vector>

namespace {

// All parts of a text that grows, as the smallest automaton that takes them (a suffix automaton): a character more
// costs the same however long the text is, and a question costs the length of what is asked.
class Parties {
public:
    void Ajouter(char caractere)
    {
        const auto c = static_cast<uint8_t>(caractere);
        const uint32_t nouveau = Creer(etats_[dernier_].longueur + 1);
        uint32_t p = dernier_;
        for (; p != Aucun && !Fleche(p, c); p = etats_[p].lien)
            Relier(p, c, nouveau);
        if (p == Aucun) {
            etats_[nouveau].lien = 0;
        } else if (const uint32_t q = *Fleche(p, c); etats_[q].longueur == etats_[p].longueur + 1) {
            etats_[nouveau].lien = q;
        } else {
            const uint32_t jumeau = Creer(etats_[p].longueur + 1);
            etats_[jumeau].lien = etats_[q].lien;
            for (uint32_t f = etats_[q].premiere; f != Aucun; f = fleches_[f].suivante)
                Relier(jumeau, fleches_[f].caractere, fleches_[f].cible);
            for (uint32_t* cible; p != Aucun && (cible = Fleche(p, c)) && *cible == q; p = etats_[p].lien)
                *cible = jumeau;
            etats_[q].lien = etats_[nouveau].lien = jumeau;
        }
        dernier_ = nouveau;
    }

    bool Contient(std::string_view partie)
    {
        uint32_t etat = 0;
        for (const char c : partie) {
            const uint32_t* cible = Fleche(etat, static_cast<uint8_t>(c));
            if (!cible)
                return false;
            etat = *cible;
        }
        return true;
    }

private:
    static constexpr uint32_t Aucun = UINT32_MAX;
    // A state that many characters leave finds its transitions by a table: a list of them is long to walk. No more
    // than 64 MB of tables.
    static constexpr uint32_t Beaucoup = 12, PlusTables = 65536;

    struct Etat {
        uint32_t longueur, lien = Aucun, premiere = Aucun, table = Aucun, sorties = 0;
    };
    struct Transition {
        uint32_t cible, suivante;
        uint8_t caractere;
    };

    uint32_t Creer(uint32_t longueur)
    {
        etats_.push_back({longueur});
        return static_cast<uint32_t>(etats_.size() - 1);
    }

    // Target of a state for a character, null when there is none. The first state has so many that they have a table.
    uint32_t* Fleche(uint32_t etat, uint8_t c)
    {
        if (etat == 0)
            return debut_[c] != 0 ? &debut_[c] : nullptr;
        if (const uint32_t table = etats_[etat].table; table != Aucun) {
            const uint32_t f = tables_[table][c];
            return f != Aucun ? &fleches_[f].cible : nullptr;
        }
        for (uint32_t f = etats_[etat].premiere; f != Aucun; f = fleches_[f].suivante)
            if (fleches_[f].caractere == c)
                return &fleches_[f].cible;
        return nullptr;
    }

    void Relier(uint32_t etat, uint8_t c, uint32_t cible)
    {
        if (etat == 0) {
            debut_[c] = cible;
            return;
        }
        Etat& depart = etats_[etat];
        fleches_.push_back({cible, depart.premiere, c});
        depart.premiere = static_cast<uint32_t>(fleches_.size() - 1);
        if (depart.table != Aucun)
            tables_[depart.table][c] = depart.premiere;
        else if (++depart.sorties >= Beaucoup && tables_.size() < PlusTables)
            Dresser(depart);
    }

    void Dresser(Etat& etat)
    {
        etat.table = static_cast<uint32_t>(tables_.size());
        auto& table = tables_.emplace_back();
        table.fill(Aucun);
        for (uint32_t f = etat.premiere; f != Aucun; f = fleches_[f].suivante)
            table[fleches_[f].caractere] = f;
    }

    std::vector<Etat> etats_ = {Etat{0}};
    std::vector<Transition> fleches_;
    std::deque<std::array<uint32_t, 256>> tables_;  // of a character: its place in `fleches_`
    std::array<uint32_t, 256> debut_{};
    uint32_t dernier_ = 0;
};

class Extensions {
public:
    std::string Texte()
    {
        const std::lock_guard garde(verrou_);
        return texte_;
    }

    void Charger(std::string_view texte)
    {
        const std::lock_guard garde(verrou_);
        texte_ = texte;
        connues_.clear();
        parties_ = {};
        indexes_ = 0;
    }

    bool Ajouter(std::string_view extension)
    {
        const std::lock_guard garde(verrou_);
        if (extension.empty() || connues_.contains(extension))
            return false;
        const bool nouvelle = !Contient(extension);
        if (nouvelle)
            texte_.append("|").append(extension);
        connues_.emplace(extension);
        return nouvelle;
    }

private:
    struct Hachage : std::hash<std::string_view> {
        using is_transparent = void;
    };

    // No list of extensions in use comes near: what lies behind is searched as plain text, in place of memory without
    // end.
    static constexpr size_t PlusIndexes = size_t{2} << 20;

    bool Contient(std::string_view extension)
    {
        for (const size_t fin = std::min(texte_.size(), PlusIndexes); indexes_ < fin; ++indexes_)
            parties_.Ajouter(texte_[indexes_]);
        if (parties_.Contient(extension))
            return true;
        const size_t reste = indexes_ - std::min(indexes_, extension.size() - 1);
        return indexes_ < texte_.size() && texte_.find(extension, reste) != texte_.npos;
    }

    std::mutex verrou_;
    std::string texte_;
    std::unordered_set<std::string, Hachage, std::equal_to<>> connues_;  // asked for before: most questions end here
    Parties parties_;
    size_t indexes_ = 0;  // characters of the text that `parties_` holds
};

Extensions& LesExtensions()
{
    static Extensions extensions;
    return extensions;
}

}  // namespace

std::string ListeExtensions()
{
    return LesExtensions().Texte();
}

void ChargerListeExtensions(std::string_view texte)
{
    LesExtensions().Charger(texte);
}

bool AjouterExtension(std::string_view extension)
{
    return LesExtensions().Ajouter(extension);
}
