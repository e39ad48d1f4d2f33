#include "browser/LectureListeFichiers.h"

#include <unordered_set>

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "platform/Ceder.h"
#include "store/Base.h"
#include "store/CycleBase.h"

namespace {

// Adds the extensions of one reading to those known in the base, and the base is told once.
class ExtensionsLues {
public:
    ~ExtensionsLues()
    {
        if (accrue_)
            EnregistrerExtensions();
    }
    void Noter(const std::string& extension)
    {
        if (vues_.insert(extension).second && AjouterExtension(extension))
            accrue_ = true;
    }

private:
    std::unordered_set<std::string> vues_;
    bool accrue_ = false;
};

std::string TexteRequete(std::string_view cle)
{
    const CleNoeud noeud = AnalyserCle(cle);
    if (!noeud.valide)
        return {};
    return "Select * from Liste where Répertoire= '" + (noeud.archive ? std::string(cle) : noeud.code) +
           "' and NCatalogue = " + noeud.catalogue + " order by nom asc";
}

}  // namespace

void LectureListeFichiers(ArbreCatalogue& arbre, ListeFichiers& liste, IconesExtensions& icones,
                          const EcouteLecture& ecoute)
{
    liste.Vider();
    const int32_t noeud = arbre.Selection();
    const std::string cle(arbre.CleSelection());
    liste.FixerCleLue(cle);
    const std::string requete = TexteRequete(cle);
    if (requete.empty())
        return;

    const uint64_t lecture = liste.Generation(), chargement = arbre.Generation();
    Base base = OpenDatabase(BaseCourante());
    Recordset lignes = base.OpenRecordset(requete);
    const int64_t nombre = lignes.RecordCount();
    if (ecoute.statut)
        ecoute.statut(Str(nombre) + " Objet(s)");

    const ChampsItem champs(lignes);
    TextesItem textes;
    ExtensionsLues extensions;
    for (int64_t i = 0; !lignes.Eof(); lignes.MoveNext(), ++i) {
        Ceder();
        if (liste.Generation() != lecture || arbre.Generation() != chargement || arbre.CleSelection() == arbre.Tag())
            return;
        if (ecoute.progression && i % 256 == 0)
            ecoute.progression(static_cast<double>(i) / static_cast<double>(nombre));

        ItemListe item = FaireItem(lignes, champs, EstCleDansArchive(cle), textes);
        if (item.EstRepertoire()) {
            liste.Ajouter(item);
            arbre.Ajouter(noeud, item.cle, lignes.Texte(champs.nom), ImageRepertoire, ImageRepertoireOuvert);
            continue;
        }
        const std::string extension = ExtensionFichier(lignes.Texte(champs.nom));
        extensions.Noter(extension);
        item.icone = icones.Chercher(extension);
        liste.Ajouter(item);
        if (EstExtensionArchive(extension))
            arbre.Ajouter(noeud, CleArchive(lignes.Entier(champs.num), lignes.Entier(champs.catalogue)),
                          item.cellules[ColNom]);
    }
}
