#pragma once

#include <array>
#include <span>
#include <stop_token>
#include <string_view>

#include "archives/ArbreArchive.h"
#include "platform/Fichier.h"

// A kind of archive whose members are listed.
struct SorteArchive {
    std::array<std::string_view, 2> extensions;  // lower case; the second may be empty
    std::string_view cle;                        // of its switch, in the section "Settings"
    int defaut;
    void (*lister)(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv);

    // The user wants it: the switch, read anew at each call, is 1.
    bool Voulue() const;
};

// All kinds, in the order of their switches. Whoever deals with archives takes what it needs from here.
std::span<const SorteArchive> SortesArchives();

// The kind of a lower-case extension; null when it is none of an archive.
const SorteArchive* ChoisirSorte(std::string_view extension);

// The tree of an archive's members, by the reader of its extension; the root alone for an extension without reader.
// A stop ends it at the next member. Any thread may call.
ArbreArchive ListerArchive(const Fichier& fichier, std::string_view extension, std::stop_token arret = {});
