#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/ArbreCatalogue.h"
#include "commun/TextesRanges.h"

enum ColonneListe { ColNom, ColTaille, ColType, ColDate, ColHeure, ColAttribut, ColDescription, NombreColonnes };

struct EnTeteColonne {
    const char* cle;
    const char* titre;
    int largeur;  // twips
};

inline constexpr std::array<EnTeteColonne, NombreColonnes> EnTetesListe = {{
    {"nam", "Nom Fichier", 5000},
    {"siz", "Taille", 1100},
    {"typ", "Type", 1400},
    {"mod", "Date", 1000},
    {"tim", "Heure", 1100},
    {"atr", "Atribut", 1000},
    {"Desc", "Description", 1500},
}};

// One entry as shown. A directory is what has the icon ImageRepertoire, and nothing else.
struct ItemListe {
    std::string_view cle;
    std::array<std::string_view, NombreColonnes> cellules;
    int32_t icone = ImageGenerique;

    bool EstRepertoire() const { return icone == ImageRepertoire; }
};

// The entries of one directory or one search, in one compact array (some 22 bytes beside the letters for each), with
// the order in which they are shown. May be filled by one thread and handed to another; several may read it at once.
class ListeFichiers {
public:
    // Places in order of arrival, one for each place on the screen.
    using Ordre = std::deque<int32_t>;
    // Gives a text to sort by in place of the cell shown, for a place in order of arrival.
    using TexteDeTri = std::function<std::string_view(int32_t indice, std::string_view montre)>;

    void Ajouter(const ItemListe& item);  // takes copies of the texts
    void Retirer(int32_t rang);
    void Remplacer(int32_t rang, const ItemListe& item);

    int32_t Nombre() const { return static_cast<int32_t>(ordre_.size()); }
    // By place on the screen. Its texts stay valid as long as the list.
    ItemListe operator[](int32_t rang) const { return Deplier(items_[static_cast<size_t>(Indice(rang))]); }
    // Place in order of arrival of what stands at `rang` on the screen.
    int32_t Indice(int32_t rang) const { return ordre_[static_cast<size_t>(rang)]; }

    // Place on the screen of the item with a key; -1 when there is none.
    int32_t Chercher(std::string_view cle) const;

    // The order by the text of a column, in French order; equal texts stay in the order of arrival. Empty when it was
    // asked to stop, or for no such column.
    Ordre Trier(int colonne, bool decroissant, const std::stop_token& arret = {}, const TexteDeTri& lire = {}) const;
    // Shows the items in an order that Trier gave, unless the list has changed since.
    void Ordonner(Ordre ordre);

    // Key of the node whose entries these are.
    const std::string& CleLue() const { return cleLue_; }
    void FixerCleLue(std::string_view cle) { cleLue_ = cle; }

private:
    static ItemListe Deplier(const char* suite);
    const char* Ranger(const ItemListe& item);

    std::deque<const char*> items_;  // icon, key and cells of each, the length ahead of each text
    Ordre ordre_;
    TextesRanges textes_;
    std::string tampon_;
    std::string cleLue_;
};
