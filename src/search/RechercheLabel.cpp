#include "search/RechercheLabel.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include <fmt/ranges.h>

#include "catalogue/Cles.h"
#include "catalogue/ItemsListe.h"
#include "catalogue/Lignes.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "store/CycleBase.h"
#include "store/IndexNoms.h"

namespace {

// The item of the current row with the key of a result; empty when the row is not to be shown.
class Resultats {
public:
    Resultats(Recordset& lignes, const FiltreRecherche& filtre, IconesExtensions& icones)
        : lignes_(lignes), filtre_(filtre), icones_(icones), champs_(lignes), contenant_(lignes.Indice("Répertoire"))
    {
    }

    bool Lire(ItemListe& item)
    {
        const std::string_view attribut = lignes_.Texte(champs_.attribut);
        const bool repertoire = EstRepertoire(attribut);
        const bool sansType = Trim(lignes_.Texte(champs_.type)).empty();
        const bool dossier = repertoire || (sansType && EstRepertoireOuDansArchive(attribut));
        if (dossier && filtre_.mode != FiltreAucun)
            return false;
        const std::string_view nom = lignes_.Texte(champs_.nom);
        if (!repertoire && ((sansType && !filtre_.sansType) || !PasseFiltre(filtre_, nom, lignes_.Texte(champs_.date))))
            return false;

        item = FaireItem(lignes_, champs_, EstCleArchive(lignes_.Texte(contenant_)), textes_);
        cle_ = CleResultatDe(lignes_.Entier(champs_.catalogue), lignes_.Texte(repertoire ? champs_.code : contenant_),
                             lignes_.Entier(champs_.num));
        item.cle = cle_;
        if (repertoire) {
            const std::string_view texte = item.cellules[ColNom];
            item.cellules = {};
            item.cellules[ColNom] = texte;
        } else {
            // A folder inside an archive looks like one but is reached as what its archive holds.
            item.icone = dossier ? ImageRepertoireOuvert : icones_.Chercher(ExtensionFichier(nom));
            if (!sansType)
                item.cellules[ColType] = lignes_.Texte(champs_.type);
        }
        return true;
    }

    // The name that a result is ordered by, when the user has given it another.
    std::string_view NomSousAlias() const
    {
        return lignes_.EstNul(champs_.alias) ? std::string_view() : lignes_.Texte(champs_.nom);
    }

private:
    Recordset& lignes_;
    const FiltreRecherche& filtre_;
    IconesExtensions& icones_;
    ChampsItem champs_;
    int contenant_;
    TextesItem textes_;
    std::string cle_;
};

constexpr size_t CandidatsParRequete = 500;

std::string TexteParNumeros(const std::string& corps, const int64_t* debut, const int64_t* fin)
{
    return fmt::format("select * from Liste where Num in ({}) and ({})", fmt::join(debut, fin, ","), corps);
}

// Rows come by number here: what the select's order is in, name and then number, is made up for at the end.
ListeFichiers LireCandidats(std::vector<int64_t> candidats, const DemandeRecherche& demande,
                            const FiltreRecherche& filtre, IconesExtensions& icones, const std::stop_token& arret,
                            std::atomic<int32_t>& nombre)
{
    ListeFichiers liste;
    Base base = OuvrirBase(arret);
    const std::string corps = CorpsRecherche(demande);
    std::unordered_map<int32_t, std::string> nomsSousAlias;
    ItemListe item;
    for (size_t place = 0; place < candidats.size() && !arret.stop_requested(); place += CandidatsParRequete) {
        const int64_t* debut = candidats.data() + place;
        const int64_t* fin = debut + std::min(CandidatsParRequete, candidats.size() - place);
        Recordset lignes = base.OpenRecordset(TexteParNumeros(corps, debut, fin));
        Resultats resultats(lignes, filtre, icones);
        for (; !lignes.Eof(); lignes.MoveNext()) {
            if (!resultats.Lire(item))
                continue;
            if (const std::string_view nom = resultats.NomSousAlias(); !nom.empty())
                nomsSousAlias.emplace(liste.Nombre(), nom);
            liste.Ajouter(item);
        }
        nombre = liste.Nombre();
    }
    std::vector<int64_t>().swap(candidats);  // sorting takes room of its own
    liste.Ordonner(liste.Trier(ColNom, false, arret, [&](int32_t indice, std::string_view montre) {
        const auto cache = nomsSousAlias.find(indice);
        return cache == nomsSousAlias.end() ? montre : std::string_view(cache->second);
    }));
    return liste;
}

}  // namespace

ListeFichiers RechercheLabel(const DemandeRecherche& demande, const FiltreRecherche& filtre, IconesExtensions& icones,
                             const std::stop_token& arret, std::atomic<int32_t>& nombre)
{
    // A "'" may change what the select means.
    const bool dansLesNoms = !demande.descriptions && demande.mot.find('\'') == std::string::npos;
    std::optional<std::vector<int64_t>> candidats;
    if (dansLesNoms && PreparerIndexNoms(BaseCourante(), arret))
        candidats = CandidatsNoms(BaseCourante(), demande.mot);
    if (!candidats)
        return RechercheLabel(TexteRecherche(demande), filtre, icones, arret, nombre);
    ListeFichiers liste = LireCandidats(std::move(*candidats), demande, filtre, icones, arret, nombre);
    return arret.stop_requested() ? ListeFichiers() : std::move(liste);
}

ListeFichiers RechercheLabel(const std::string& requete, const FiltreRecherche& filtre, IconesExtensions& icones,
                             const std::stop_token& arret, std::atomic<int32_t>& nombre)
{
    ListeFichiers liste;
    Base base = OuvrirBase(arret);
    Recordset lignes = base.OpenRecordset(requete);
    Resultats resultats(lignes, filtre, icones);
    ItemListe item;
    for (; !lignes.Eof(); lignes.MoveNext()) {
        if (resultats.Lire(item))
            liste.Ajouter(item);
        nombre.store(liste.Nombre(), std::memory_order_relaxed);
    }
    return arret.stop_requested() ? ListeFichiers() : std::move(liste);
}
