#include "lister.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <stdexcept>

#include <fmt/format.h>

#include "LireNombre.h"
#include "browser/ChargerArbre.h"
#include "listings/EtatImpression.h"
#include "listings/Listing.h"

namespace {

FormatListing LireFormat(const std::string& nom)
{
    if (nom == "texte")
        return FormatListing::Texte;
    if (nom == "html")
        return FormatListing::HTML;
    if (nom == "xml")
        return FormatListing::XML;
    throw std::runtime_error("format inconnu : " + nom);
}

ColonnesListing LireColonnes(const std::string& chiffres)
{
    ColonnesListing colonnes{};
    for (const char chiffre : chiffres) {
        if (chiffre < '0' || chiffre >= '0' + NombreColonnesListing)
            throw std::runtime_error("colonnes de 0 à 5 attendues : " + chiffres);
        colonnes[static_cast<size_t>(chiffre - '0')] = true;
    }
    return colonnes;
}

DemandeListing LireDemande(const std::vector<std::string>& arguments)
{
    DemandeListing demande;
    demande.format = LireFormat(arguments[2]);
    demande.chemin = std::filesystem::absolute(arguments[3]).string();
    demande.colonnes = LireColonnesListing();
    for (size_t i = 4; i < arguments.size(); i += 2) {
        if (i + 1 == arguments.size())
            throw std::runtime_error("valeur attendue derrière " + arguments[i]);
        if (arguments[i] == "--media")
            demande.media = LireNombre(arguments[i + 1]);
        else if (arguments[i] == "--colonnes")
            demande.colonnes = LireColonnes(arguments[i + 1]);
        else
            throw std::runtime_error("option inconnue : " + arguments[i]);
    }
    return demande;
}

}  // namespace

void MesurerListing(const std::vector<std::string>& arguments)
{
    const DemandeListing demande = LireDemande(arguments);
    const auto debut = std::chrono::steady_clock::now();
    IconesExtensions icones;
    std::atomic<double> part;
    const Navigateur navigateur = ChargerArbre(icones, {}, {}, part);
    const ResultatListing resultat = EcrireListing(navigateur.arbre, demande, {}, part);
    if (!resultat.ecrit)
        throw std::runtime_error(resultat.erreur);
    const std::chrono::duration<double> duree = std::chrono::steady_clock::now() - debut;
    fmt::print("secondes: {:.3f}\nrepertoires: {}\nlignes: {}\noctets: {}\n", duree.count(), resultat.bilan.repertoires,
               resultat.bilan.lignes, resultat.octets);
}
