#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Who borrows, and what they hold. Each operation opens the current base for itself and does nothing when that fails.
// Numbers of borrowers and media are decimal texts.

// A row of a list: "A" and the number of what it stands for, and the text shown.
struct LignePret {
    std::string cle, texte;

    std::string Numero() const { return cle.substr(1); }
};

// The fields that the user may change, in this order: Nom, PreNom, adresse, email.
using Personne = std::array<std::string, 4>;
inline constexpr std::array<std::string_view, 4> ChampsPersonne = {"Nom", "PreNom", "adresse", "email"};

// A text for a field: its first `longueur` characters; never empty, since one blank stands for nothing.
inline constexpr size_t LongueurChamp = 255;
std::string TexteDeChamp(std::string_view texte, size_t longueur = LongueurChamp);

std::vector<LignePret> RechercherPersonnes();                            // "first name, name", by first name
std::optional<Personne> RechercherUnePersonne(std::string_view numero);  // trimmed; none: no such borrower
std::vector<LignePret> RechercherPrets(std::string_view numero);         // labels of the media that a borrower holds

// Writes the fields; gives the text that the list now shows, none when nothing was written.
std::optional<std::string> MajPersonne(std::string_view numero, const Personne& personne);
// The media that the borrower holds stay as they are, lent to nobody: kept, particularité 51. False when there is
// no such borrower any more or the base can't be written.
bool DeletePersonne(std::string_view numero);
// Ends the loan of a media.
bool DeletePret(std::string_view media);
