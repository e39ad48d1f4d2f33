#include "listings/ParcoursListing.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <unordered_map>
#include <vector>

#include "catalogue/CheminCatalogue.h"
#include "catalogue/Cles.h"
#include "catalogue/ItemsListe.h"
#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"

namespace {

constexpr std::string_view ColonneEteinte = " ";
constexpr std::string_view TypeDansArchive = "Fichier Compressé";

// Number of the media that a key tells; 0 for the root and what is no key.
int64_t MediaDeCle(std::string_view cle)
{
    const CleNoeud analyse = AnalyserCle(cle);
    int64_t numero = 0;
    const char* fin = analyse.catalogue.data() + analyse.catalogue.size();
    const auto [reste, erreur] = std::from_chars(analyse.catalogue.data(), fin, numero);
    return analyse.valide && erreur == std::errc() && reste == fin && numero > 0 ? numero : 0;
}

struct NoeudsMedia {
    int64_t media = 0;
    std::vector<int32_t> noeuds;
};

// The nodes to be listed, each media's together, since clicks add nodes behind those of other media.
std::vector<NoeudsMedia> RangerParMedia(const ArbreCatalogue& arbre, int64_t voulu)
{
    std::vector<NoeudsMedia> groupes;
    std::unordered_map<int64_t, size_t> rangs;
    arbre.Parcourir([&](int32_t place, const ArbreCatalogue::Noeud& noeud) {
        const int64_t media = MediaDeCle(noeud.cle);
        if (media == 0 || (voulu != 0 && media != voulu))
            return;
        const auto [rang, nouveau] = rangs.try_emplace(media, groupes.size());
        if (nouveau)
            groupes.push_back({media, {}});
        groupes[rang->second].noeuds.push_back(place);
    });
    return groupes;
}

// A number is padded to seven digits, anything else stands as it is.
std::string FormaterIdentifiant(std::string_view identifiant)
{
    const bool nombre = !identifiant.empty() && std::all_of(identifiant.begin(), identifiant.end(),
                                                            [](char c) { return c >= '0' && c <= '9'; });
    const size_t manque = nombre && identifiant.size() < 7 ? 7 - identifiant.size() : 0;
    return std::string(manque, '0').append(identifiant);
}

TeteMedia LireTete(Base& base, const std::string& numero)
{
    Recordset media = MediaListe(base, numero);
    const auto texte = [&](const char* champ) { return std::string(media.Texte(champ)); };
    const auto capacite = [&](const char* champ) { return std::string(Trim(media.Texte(champ))); };
    return {FormaterIdentifiant(media.Texte("Identifiant")),
            texte("Label"),
            texte("Standard"),
            texte("typed"),
            texte("NSerie"),
            capacite("Total"),
            capacite("Occupe"),
            capacite("Libre")};
}

// The files of a directory or an archive, as long as `continuer` says so.
template <typename Continuer>
int64_t ListerFichiers(Recordset lignes, bool dansArchive, const ColonnesListing& colonnes, EcrivainListing& ecrivain,
                       const Continuer& continuer)
{
    if (lignes.Eof())
        return 0;
    const ChampsItem champs(lignes);
    std::string date;
    int64_t nombre = 0;
    for (; !lignes.Eof() && continuer(); lignes.MoveNext(), ++nombre) {
        const std::string_view alias = lignes.Texte(champs.alias);
        LigneListing ligne = {
            alias.empty() ? lignes.Texte(champs.nom) : alias,
            lignes.Texte(champs.taille),
            dansArchive ? TypeDansArchive : lignes.Texte(champs.type),
            MontrerDate(lignes.Texte(champs.date), date),
            lignes.Texte(champs.heure),
            lignes.Texte(champs.attribut),
        };
        for (size_t colonne = ListingTaille; colonne < ligne.size(); ++colonne)
            if (!colonnes[colonne])
                ligne[colonne] = ColonneEteinte;
        ecrivain.Fichier(ligne);
    }
    return nombre;
}

}  // namespace

bool ParcourirListing(const ArbreCatalogue& arbre, int64_t media, const ColonnesListing& colonnes,
                      EcrivainListing& ecrivain, const SortieListing& sortie, const std::stop_token& arret,
                      std::atomic<double>& part, BilanParcours& bilan)
{
    Base base = OuvrirBase(arret);
    if (!base.Ouverte())
        return false;
    const std::vector<NoeudsMedia> groupes = RangerParMedia(arbre, media);
    double total = 0, faits = 0;
    for (const NoeudsMedia& groupe : groupes)
        total += static_cast<double>(groupe.noeuds.size());

    const auto continuer = [&] { return !arret.stop_requested() && sortie.Reussie(); };
    ecrivain.Debut();
    for (const NoeudsMedia& groupe : groupes) {
        const std::string numero = std::to_string(groupe.media);
        ecrivain.Media(LireTete(base, numero), &groupe == groupes.data());
        const std::optional<std::string> racine = NomRacine(base, numero);
        for (const int32_t noeud : groupe.noeuds) {
            if (!continuer())
                return false;
            const std::string_view cle = arbre[noeud].cle;
            ecrivain.Repertoire(CheminCatalogue(arbre, noeud, racine));
            bilan.lignes += ListerFichiers(LignesFichiers(base, AnalyserCle(cle)), EstCleDansArchive(cle), colonnes,
                                           ecrivain, continuer);
            ecrivain.FinRepertoire();
            ++bilan.repertoires;
            part.store(++faits / total, std::memory_order_relaxed);
        }
    }
    ecrivain.Fin();
    return continuer();
}
