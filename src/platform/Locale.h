#pragma once

#include <cstdint>
#include <string>

// Forms of the user's locale.

// "1 234,50": fixed decimals, thousands grouped when asked, halves rounded away from zero.
std::string FormatNombre(double valeur, int decimales, bool groupes);

const std::string& SeparateurDecimal();

struct DateHeure {
    int annee = 0, mois = 0, jour = 0, heure = 0, minute = 0, seconde = 0;
};

// A moment since 1970 in 100 ns units since 1601; the nearest that can be told when it lies too far off.
int64_t TempsDepuis1601(int64_t secondes, uint32_t nanosecondes);
int64_t Maintenant();

// From 100 ns units since 1 January 1601 UTC to local date and time, in the years 1 to 9999.
DateHeure EnDateLocale(int64_t temps);

// The short date as France writes it, whatever the locale, as the lists of files show theirs; and back, false for a
// text that is no such date.
std::string DateCourteEntiere(const DateHeure& date);
bool LireDateCourte(const std::string& texte, DateHeure& date);
DateHeure Aujourdhui();

// Long time text, without a time zone ("14:05:33").
const std::string& HeureLongue(int heure, int minute, int seconde);
