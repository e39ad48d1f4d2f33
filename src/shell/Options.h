#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "store/Reglages.h"

// The preferences. Each change is written at once; nothing takes it back.

// A switch of the preferences.
struct Option {
    std::string_view texte;
    std::string_view section, cle;
    // What shows as long as nothing was written; those who read the setting may go by another (kept, particularité
    // 7).
    bool defaut;

    bool Lire() const;
    void Ecrire(bool active) const;
};

// The kinds of files that descriptions are drawn from.
inline constexpr std::array<Option, 18> OptionsDescriptions = {{
    {"Information CD-Text Audio", SectionDescriptions, "CDText", false},
    {"Information des CD Audio via freedb", SectionDescriptions, "AudioCD", false},
    {"Windows OS/2 Bitmap Files (BMP)", SectionDescriptions, "BMP", true},
    {"Compuserve Bitmap Files (GIF)", SectionDescriptions, "GIF", true},
    {"JPEG Bitmap Files (JPG, JPEG)", SectionDescriptions, "JPG", true},
    {"ZSoft Painbrush Files (PCX)", SectionDescriptions, "PCX", false},
    {"PNG Bitmap Files (PNG)", SectionDescriptions, "PNG", true},
    {"TGA Bitmap Files (TGA)", SectionDescriptions, "TGA", false},
    {"Fichier File_id.diz", SectionDescriptions, "DIZ", true},
    {"Fichiers Infos (NFO)", SectionDescriptions, "NFO", true},
    {"Exécutables (Exe, Dll, Ocx, Ax, Tlb)", SectionDescriptions, "EXE", true},
    {"Fichiers Audio MP3 (MP3)", SectionDescriptions, "MP3", true},
    {"Fichiers Html (HTM, HTML)", SectionDescriptions, "HTM", true},
    {"Fichiers Infos bbs (BBS)", SectionDescriptions, "BBS", true},
    {"Fichiers Audio Ogg Vorbis (OGG)", SectionDescriptions, "OGG", false},
    {"Fichiers raccourcis (LNK)", SectionDescriptions, "LNK", false},
    {"Fichiers projet Visual basic (VBP)", SectionDescriptions, "VBP", false},
    {"Fichiers Acrobat Reader (PDF)", SectionDescriptions, "PDF", false},
}};

inline constexpr std::array<Option, 2> OptionsFreedb = {{
    {"Utiliser la base locale", SectionSettings, CleBaseLocale, false},
    {"Utiliser le proxy", SectionSettings, CleProxy, false},
}};

inline constexpr std::array<Option, 4> OptionsDivers = {{
    {"      Afficher la grille", SectionSettings, CleOptionsDivers[0], true},
    {"      Utiliser le dégradé des menus", SectionSettings, CleOptionsDivers[1], true},
    {"      Afficher les noms des fichiers lors de l'extraction", SectionSettings, CleOptionsDivers[2], true},
    {"      Afficher les info-bulles dans les recherches", SectionSettings, CleOptionsDivers[3], true},
}};

// Writes a switch of OptionsFreedb, and with it the one of OptionsDivers in the same place (kept, particularité
// 8).
void EcrireOptionFreedb(size_t rang, bool active);

// Row of OptionsDescriptions last clicked, from 0; kept counted from 1.
size_t LireRangDescription();
void EcrireRangDescription(size_t rang);

// Tab last shown, below `nombre`.
int LireOnglet(int nombre);
void EcrireOnglet(int onglet);
