#pragma once

#include <string>
#include <string_view>

#include "catalogue/ListeFichiers.h"
#include "store/Recordset.h"

// Rows of `Liste` as items: their cells, key and icon.

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

// "20031224" as "24/12/2003", in `place`; anything else than eight characters shows nothing.
std::string_view MontrerDate(std::string_view date, std::string& place);

// The extensions whose files stand in the tree.
bool EstExtensionArchive(std::string_view extension);
