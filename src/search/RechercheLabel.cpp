#include "search/RechercheLabel.h"

#include "platform/Ceder.h"
#include "shell/Textes.h"
#include "store/Base.h"
#include "store/CycleBase.h"

CleResultat AnalyserCleResultat(std::string_view cle)
{
    const size_t tiret = cle.find('-'), diese = cle.find('#');
    if (tiret == cle.npos || diese == cle.npos || diese < tiret)
        return {};
    CleResultat resultat;
    resultat.noeud = cle.substr(0, diese);
    if (EstCleArchive(cle.substr(tiret + 1)))
        resultat.noeud.erase(0, tiret + 1);
    resultat.item = std::string(cle.substr(0, tiret + 1)).append(cle.substr(diese + 1));
    resultat.catalogue = Trim(cle.substr(0, tiret));
    resultat.ligne = Trim(cle.substr(diese + 1));
    return resultat;
}

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

private:
    Recordset& lignes_;
    const FiltreRecherche& filtre_;
    IconesExtensions& icones_;
    ChampsItem champs_;
    int contenant_;
    TextesItem textes_;
    std::string cle_;
};

}  // namespace

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
