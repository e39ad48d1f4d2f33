#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Texts are UTF-8. Bytes read from files become text by one rule, here.

// One character per byte, Western European ANSI (Windows-1252; the five bytes it leaves open keep their own value).
std::string AnsiEnTexte(std::string_view octets);

// The same from the code page of DOS in Western Europe (850).
std::string DosEnTexte(std::string_view octets);

// The reverse of the first; false when a character has no byte.
bool TexteEnAnsi(std::string_view texte, std::string& octets);

// The byte of one character; -1 when it has none.
int OctetAnsi(char32_t caractere);

// A name as a volume holds it: valid UTF-8 as such, anything else as ANSI.
std::string NomEnTexte(std::string_view octets);
bool Utf8Valide(std::string_view octets);

// Half a surrogate pair becomes "?".
std::string Utf16EnTexte(std::u16string_view unites);

// Letters with their accents behind them become one character each, where there is one.
std::string Composer(std::string_view texte);

std::string Minuscules(std::string_view texte);
std::string Majuscules(std::string_view texte);

size_t NombreCaracteres(std::string_view texte);

// Takes the character at `position` and moves behind it; an invalid byte counts as one character of its own value.
char32_t CaractereSuivant(std::string_view texte, size_t& position);
void AjouterCaractere(std::string& texte, char32_t caractere);

// The letter in its one case for comparisons; é and É become the same, e and é do not.
char32_t SansCasse(char32_t caractere);

// French order: letters without case and accents first, accents then case break ties. Negative, 0, positive.
int ComparerFrancais(std::string_view gauche, std::string_view droite);

// The weights of a text's first letters, for sorting many texts: where two of these differ, ComparerFrancais gives the
// same order.
using DebutFrancais = std::array<uint64_t, 2>;
DebutFrancais PeserDebut(std::string_view texte);
