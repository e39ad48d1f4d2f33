#include "listings/RechercheListingXML.h"

namespace {

constexpr std::array<std::string_view, MediaLibre + 1> Elements = {
    "Identifiant", "Label", "Standard", "TypeMedia", "NumSerie", "CapaciteTotale", "CapaciteUtilisee", "CapaciteLibre",
};
constexpr std::array<std::string_view, NombreColonnesListing> ElementsFichier = {
    "Fichier", "Taille", "TypeFichier", "DateFichier", "HeureFichier", "Attribut",
};

void EcrireElement(SortieListing& sortie, std::string_view nom, std::string_view texte)
{
    sortie.Fixe("<").Fixe(nom).Fixe(">").Texte(texte).Fixe("</").Fixe(nom).Fixe(">").FinLigne();
}

}  // namespace

void RechercheListingXML::Debut()
{
    sortie_.Ligne("<?xml version='1.0' encoding='iso-8859-1' ?>");
    sortie_.Ligne("<body>");
}

void RechercheListingXML::Media(const TeteMedia& media, bool premier)
{
    sortie_.Ligne("  ");
    sortie_.Ligne("  ");
    if (!premier)
        sortie_.Ligne("</Identifiant>");
    // Open until the next media: all of its directories lie inside.
    sortie_.Fixe("<Identifiant>").Texte(media[MediaIdentifiant]).FinLigne();
    for (size_t i = MediaLabel; i < media.size(); ++i)
        EcrireElement(sortie_, Elements[i], media[i]);
}

void RechercheListingXML::Repertoire(std::string_view chemin)
{
    sortie_.Fixe("<Répertoire>").Texte(chemin).FinLigne();
}

void RechercheListingXML::Fichier(const LigneListing& ligne)
{
    sortie_.Fixe("<Fichier>").Texte(ligne[ListingNom]).FinLigne();
    for (int i = ListingTaille; i < NombreColonnesListing; ++i)
        if (Active(i))
            EcrireElement(sortie_, ElementsFichier[static_cast<size_t>(i)], ligne[static_cast<size_t>(i)]);
    sortie_.Ligne("</Fichier>");
}

void RechercheListingXML::FinRepertoire()
{
    sortie_.Ligne("</Répertoire>");
}

// Closes the last media, and one that never was in a base without any: kept, particularité 54.
void RechercheListingXML::Fin()
{
    sortie_.Ligne("</Identifiant>");
    sortie_.Ligne("</body>");
}
