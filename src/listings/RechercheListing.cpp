#include "listings/RechercheListing.h"

namespace {

constexpr std::array<std::string_view, MediaLibre + 1> Titres = {
    "Identifiant       : ", "Label             : ", "Standard          : ", "Type de Média     : ",
    "Numéro de Série   : ", "Capacité totale   : ", "Capacité utilisée : ", "Capacité libre    : ",
};

struct Largeur {
    size_t coupe, largeur;
};
constexpr std::array<Largeur, NombreColonnesListing> Largeurs = {
    {{39, 40}, {10, 10}, {30, 31}, {10, 11}, {10, 11}, {10, 11}}};

}  // namespace

void RechercheListing::Media(const TeteMedia& media, bool premier)
{
    if (!premier) {
        sortie_.FinLigne();
        sortie_.FinLigne();
    }
    for (size_t i = 0; i < media.size(); ++i) {
        sortie_.Fixe(Titres[i]).Texte(media[i]).FinLigne();
        if (i == MediaIdentifiant)
            sortie_.Ligne("---------------------------");
    }
    sortie_.Ligne(" ");
}

void RechercheListing::Repertoire(std::string_view chemin)
{
    sortie_.Fixe("Répertoire  : ").Texte(chemin).FinLigne();
    sortie_.Ligne("--------------");
}

void RechercheListing::Fichier(const LigneListing& ligne)
{
    sortie_.Fixe("     ");
    for (size_t i = 0; i < ligne.size(); ++i)
        sortie_.Colonne(ligne[i], Largeurs[i].coupe, Largeurs[i].largeur);
    sortie_.FinLigne();
}

void RechercheListing::FinRepertoire()
{
    sortie_.FinLigne();
}
