#pragma once

#include <cstdint>
#include <string>
#include <string_view>

enum OngletRecherche { RechercheAvancee, RechercheIdentifiant, RechercheLabelMedia };

// What the search window asks for.
struct DemandeRecherche {
    int onglet = RechercheAvancee;
    int64_t media = 0;  // number of the chosen media; 0 for all
    bool noms = false, descriptions = false;
    std::string mot;  // as typed, "*" and "?" being wildcards
};

// The condition that the rows fulfil, and the whole select. The word stands in it as it was typed: a "'" makes it a
// text that no engine takes.
std::string CorpsRecherche(const DemandeRecherche& demande);
std::string TexteRecherche(const DemandeRecherche& demande);

// What of a row is looked at beside the word. The number of a mode: 1 for the extension, 2 for the dates, 3 for both.
enum ModeFiltre { FiltreAucun = 0, FiltreExtension = 1, FiltreDates = 2, FiltreExtensionEtDates = 3 };

struct FiltreRecherche {
    int mode = FiltreAucun;
    std::string extension;   // as chosen in the list
    std::string debut, fin;  // "yyyymmdd", both included
    bool sansType = true;    // files without a type and what lies in archives count too
};

// Why a search may have found nothing, for its user; empty when there is no more to say.
std::string ExpliquerRien(const DemandeRecherche& demande, const FiltreRecherche& filtre = {});

// The mode on a tab; only the advanced one filters.
int ChoisirMode(int onglet, bool parExtension, bool parDates);

// Whether a file's row passes, by its real name and its date text. Names without "." have no extension.
bool PasseFiltre(const FiltreRecherche& filtre, std::string_view nom, std::string_view date);
