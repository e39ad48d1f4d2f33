#include "listings/Listing.h"

#include <algorithm>
#include <array>
#include <memory>

#include "commun/Texte.h"
#include "listings/RechercheListing.h"
#include "listings/RechercheListingHTML.h"
#include "listings/RechercheListingXML.h"
#include "platform/Chemins.h"

namespace {

std::unique_ptr<EcrivainListing> CreerEcrivain(const DemandeListing& demande, SortieListing& sortie)
{
    switch (demande.format) {
        case FormatListing::HTML: return std::make_unique<RechercheListingHTML>(sortie, demande.colonnes);
        case FormatListing::XML: return std::make_unique<RechercheListingXML>(sortie, demande.colonnes);
        case FormatListing::Texte: break;
    }
    return std::make_unique<RechercheListing>(sortie, demande.colonnes);
}

}  // namespace

std::string CheminListing(FormatListing format)
{
    constexpr std::array<const char*, NombreFormatsListing> noms = {"/fic.txt", "/fic.html", "/fic.xml"};
    return DossierProgramme() + noms[static_cast<size_t>(format)];
}

ResultatListing EcrireListing(const ArbreCatalogue& arbre, const DemandeListing& demande, const std::stop_token& arret,
                              std::atomic<double>& part)
{
    const auto forme = demande.format == FormatListing::Texte ? SortieListing::Interrogation : SortieListing::Reference;
    ResultatListing resultat;
    const auto remplir = [&](const Versement& verser) {
        SortieListing sortie(forme, verser);
        const bool parcouru = ParcourirListing(arbre, demande.media, demande.colonnes, *CreerEcrivain(demande, sortie),
                                               sortie, arret, part, resultat.bilan);
        const bool verse = sortie.Terminer();
        resultat.octets = sortie.Octets();
        return parcouru && verse;
    };
    resultat.ecrit = EcrireFichier(demande.chemin, remplir, false);
    if (resultat.ecrit || arret.stop_requested())
        return resultat;
    resultat.erreur = ErreurEcriture();
    if (resultat.erreur.empty())
        resultat.erreur = "Le catalogue n'a pas pu être lu !";
    return resultat;
}

ApercuListing LireApercu(const ArbreCatalogue& arbre, const DemandeListing& demande, size_t limite,
                         const std::stop_token& arret)
{
    constexpr std::string_view fins[] = {"\r\n", "</tr>\r\n", "\r\n"};  // where each format may be cut
    const auto forme = demande.format == FormatListing::Texte  ? SortieListing::Interrogation
                       : demande.format == FormatListing::HTML ? SortieListing::ReferenceEchappee
                                                               : SortieListing::Reference;
    std::string octets;
    SortieListing sortie(forme, [&](std::string_view morceau) {
        octets += morceau;
        return octets.size() < limite;
    });
    std::atomic<double> part;
    BilanParcours bilan;
    ParcourirListing(arbre, demande.media, demande.colonnes, *CreerEcrivain(demande, sortie), sortie, arret, part,
                     bilan);
    sortie.Terminer();
    ApercuListing apercu;
    apercu.entier = octets.size() <= limite && sortie.Reussie();
    if (!apercu.entier) {
        const std::string_view fin = fins[static_cast<size_t>(demande.format)];
        octets.resize(std::min(octets.size(), limite));
        const size_t coupure = octets.rfind(fin);
        octets.resize(coupure == octets.npos ? 0 : coupure + fin.size());
    }
    apercu.texte = AnsiEnTexte(octets);
    return apercu;
}
