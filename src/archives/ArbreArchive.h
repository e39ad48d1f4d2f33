#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "commun/TableNumeros.h"

// The members of one archive as its reader leaves them, for the rows of the catalogue to be made of: nodes numbered
// from 1, the first of which is the archive itself, "Root". A node's text without ":" is a folder; any other is a
// member, its fields separated by ":" (name, size, date, time).
class ArbreArchive {
public:
    struct Noeud {
        int32_t parent;  // 0 for the first node
        std::string texte;
    };
    static constexpr int32_t Racine = 1;

    ArbreArchive();

    int32_t Nombre() const { return static_cast<int32_t>(noeuds_.size()); }
    const Noeud& operator[](int32_t indice) const { return noeuds_[static_cast<size_t>(indice) - 1]; }

    // The folder of that name under `parent`, made when it is new.
    int32_t Dossier(int32_t parent, std::string_view nom);

    // The folders that lead to the last element of a path; `dernier` becomes that element, empty behind a final
    // separator. Every element counts, empty ones too.
    int32_t Dossiers(std::string_view chemin, char separateur, std::string_view& dernier);

    void Membre(int32_t parent, std::string texte);

private:
    static size_t Empreinte(int32_t parent, std::string_view nom);

    std::deque<Noeud> noeuds_;
    std::string derniers_;        // the folders that the last path led through, with their separator
    int32_t dernier_ = Racine;    // where they ended: most paths lead where the one before did
    TableNumeros dossiers_;     // by parent and name
};
