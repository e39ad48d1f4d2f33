#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/Cles.h"
#include "commun/TextesRanges.h"
#include "store/Recordset.h"

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
// the order in which they are shown.
class ListeFichiers {
public:
    void Vider();
    void Ajouter(const ItemListe& item);  // takes copies of the texts

    int32_t Nombre() const { return static_cast<int32_t>(ordre_.size()); }
    // By place on the screen. Its texts stay valid until Vider.
    ItemListe operator[](int32_t rang) const { return Deplier(items_[static_cast<size_t>(Indice(rang))]); }
    // Place in order of arrival of what stands at `rang` on the screen.
    int32_t Indice(int32_t rang) const { return ordre_[static_cast<size_t>(rang)]; }

    // Place on the screen of the item with a key; -1 when there is none.
    int32_t Chercher(std::string_view cle) const;

    // By the text of a column, in French order; equal texts stay in the order of arrival.
    void Trier(int colonne, bool decroissant);
    // The same with another text for some items, which `lire` gives for their place in order of arrival and the cell.
    void TrierSelon(const std::function<std::string_view(int32_t indice, std::string_view montre)>& lire, int colonne,
                    bool decroissant);

    // Key of the node whose entries these are.
    const std::string& CleLue() const { return cleLue_; }
    void FixerCleLue(std::string_view cle) { cleLue_ = cle; }
    uint64_t Generation() const { return generation_; }  // changes with each Vider

private:
    static ItemListe Deplier(const char* suite);

    std::deque<const char*> items_;  // icon, key and cells of each, the length ahead of each text
    std::deque<int32_t> ordre_;
    TextesRanges textes_;
    std::string tampon_;
    std::string cleLue_;
    uint64_t generation_ = 0;
};

// Icon values of file extensions: ImageGenerique for one that the desktop does not know.
class IconesExtensions {
public:
    static constexpr int32_t Premiere = 100;

    int32_t Chercher(const std::string& extension);
    // Extension behind an icon value from Premiere on.
    const std::string& Extension(int32_t icone) const { return extensions_[static_cast<size_t>(icone - Premiere)]; }

private:
    std::map<std::string, int32_t> icones_;
    std::vector<std::string> extensions_;
};

// Fields of `Liste` that an item shows, looked up once for many rows.
struct ChampsItem {
    explicit ChampsItem(Recordset& lignes);
    int num, catalogue, code, nom, alias, taille, type, date, heure, attribut, description;
};

// Cells and key of the current row; `date` lends its place to the date's text. All else stays in the row.
struct TextesItem {
    std::string cle, date;
};
ItemListe FaireItem(Recordset& lignes, const ChampsItem& champs, bool dansArchive, TextesItem& textes);

// The extensions whose files stand in the tree.
bool EstExtensionArchive(std::string_view extension);
