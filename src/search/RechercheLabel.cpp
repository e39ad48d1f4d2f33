#include "search/RechercheLabel.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include <fmt/ranges.h>

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "platform/Ceder.h"
#include "store/Base.h"
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
        const bool repertoire = lignes_.Texte(champs_.attribut) == "D";
        if (repertoire && filtre_.mode != FiltreAucun)
            return false;
        const std::string_view nom = lignes_.Texte(champs_.nom);
        if (!repertoire &&
            (Trim(lignes_.Texte(champs_.type)).empty() || !PasseFiltre(filtre_, nom, lignes_.Texte(champs_.date))))
            return false;

        item = FaireItem(lignes_, champs_, false, textes_);
        cle_ = CleRepertoire(lignes_.Entier(champs_.catalogue), lignes_.Texte(repertoire ? champs_.code : contenant_));
        cle_.append("#").append(Str(lignes_.Entier(champs_.num)));
        item.cle = cle_;
        if (repertoire) {
            const std::string_view texte = item.cellules[ColNom];
            item.cellules = {};
            item.cellules[ColNom] = texte;
        } else {
            item.icone = icones_.Chercher(ExtensionFichier(nom));
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
void LireCandidats(std::vector<int64_t> candidats, const DemandeRecherche& demande, const FiltreRecherche& filtre,
                   ListeFichiers& liste, IconesExtensions& icones, const EcouteRecherche& ecoute)
{
    const Interruption interruption(ecoute.annulee);
    Base base = OpenDatabase(BaseCourante());
    const std::string corps = CorpsRecherche(demande);
    std::unordered_map<int32_t, std::string> nomsSousAlias;
    ItemListe item;
    for (size_t place = 0; place < candidats.size() && !interruption.Demandee(); place += CandidatsParRequete) {
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
        if (ecoute.progression)
            ecoute.progression(liste.Nombre());
        Ceder();
    }
    if (interruption.Demandee()) {
        liste.Vider();
        return;
    }
    std::vector<int64_t>().swap(candidats);  // sorting takes room of its own
    liste.TrierSelon(
        [&](int32_t indice, std::string_view montre) {
            const auto cache = nomsSousAlias.find(indice);
            return cache == nomsSousAlias.end() ? montre : std::string_view(cache->second);
        },
        ColNom, false);
}

}  // namespace

void RechercheLabel(const DemandeRecherche& demande, const FiltreRecherche& filtre, ListeFichiers& liste,
                    IconesExtensions& icones, const EcouteRecherche& ecoute)
{
    liste.Vider();
    // A "'" may change what the select means.
    const bool dansLesNoms = !demande.descriptions && demande.mot.find('\'') == std::string::npos;
    std::optional<std::vector<int64_t>> candidats;
    if (dansLesNoms) {
        const Interruption interruption(ecoute.annulee);
        if (PreparerIndexNoms(BaseCourante()))
            candidats = CandidatsNoms(BaseCourante(), demande.mot);
    }
    if (candidats)
        LireCandidats(std::move(*candidats), demande, filtre, liste, icones, ecoute);
    else
        RechercheLabel(TexteRecherche(demande), filtre, liste, icones, ecoute);
}

void RechercheLabel(const std::string& requete, const FiltreRecherche& filtre, ListeFichiers& liste,
                    IconesExtensions& icones, const EcouteRecherche& ecoute)
{
    liste.Vider();
    Base base = OpenDatabase(BaseCourante());
    const Interruption interruption(ecoute.annulee);
    Recordset lignes = base.OpenRecordset(requete);
    Resultats resultats(lignes, filtre, icones);
    ItemListe item;
    for (; !lignes.Eof() && !interruption.Demandee(); lignes.MoveNext()) {
        if (resultats.Lire(item)) {
            liste.Ajouter(item);
            if (ecoute.progression && liste.Nombre() % 256 == 1)
                ecoute.progression(liste.Nombre());
        }
        Ceder();
    }
    if (interruption.Demandee())
        liste.Vider();
}
