#include "browser/LectureListeFichiers.h"

#include <unordered_set>

#include "catalogue/Cles.h"
#include "catalogue/ItemsListe.h"
#include "catalogue/Lignes.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "store/CycleBase.h"

namespace {

// Adds the extensions of one reading to those known in the base, and the base is told once.
class ExtensionsLues {
public:
    explicit ExtensionsLues(Base& base) : base_(base) {}
    ~ExtensionsLues()
    {
        if (accrue_)
            EnregistrerExtensions(base_);
    }
    void Noter(const std::string& extension)
    {
        if (vues_.insert(extension).second && AjouterExtension(extension))
            accrue_ = true;
    }

private:
    std::unordered_set<std::string> vues_;
    Base& base_;
    bool accrue_ = false;
};

}  // namespace

Lecture LectureListeFichiers(const std::string& cle, IconesExtensions& icones, const TriListe& tri,
                             const std::stop_token& arret, std::atomic<double>& part)
{
    Lecture lecture;
    lecture.cle = cle;
    lecture.liste.FixerCleLue(cle);
    const CleNoeud noeud = AnalyserCle(cle);
    if (!noeud.valide)
        return lecture;

    Base base = OuvrirBase(arret);
    Recordset lignes = LignesContenu(base, noeud);
    const int64_t nombre = lignes.RecordCount();
    lecture.statut = Str(nombre) + " Objet(s)";

    const ChampsItem champs(lignes);
    const bool dansArchive = EstCleDansArchive(cle);
    TextesItem textes;
    ExtensionsLues extensions(base);
    for (int64_t i = 0; !lignes.Eof() && !arret.stop_requested(); lignes.MoveNext(), ++i) {
        part.store(static_cast<double>(i) / static_cast<double>(nombre), std::memory_order_relaxed);
        ItemListe item = FaireItem(lignes, champs, dansArchive, textes);
        if (item.EstRepertoire()) {
            lecture.liste.Ajouter(item);
            lecture.noeuds.push_back({std::string(item.cle), std::string(lignes.Texte(champs.nom)), false});
            continue;
        }
        const std::string extension = ExtensionFichier(lignes.Texte(champs.nom));
        extensions.Noter(extension);
        item.icone = icones.Chercher(extension);
        lecture.liste.Ajouter(item);
        if (EstExtensionArchive(extension))
            lecture.noeuds.push_back({CleArchive(lignes.Entier(champs.num), lignes.Entier(champs.catalogue)),
                                      std::string(item.cellules[ColNom]), true});
    }
    lecture.liste.Ordonner(lecture.liste.Trier(tri.colonne, tri.decroissant, arret));
    return lecture;
}

void AjouterNoeuds(ArbreCatalogue& arbre, const Lecture& lecture)
{
    const int32_t parent = arbre.Chercher(lecture.cle);
    if (parent == ArbreCatalogue::Aucun)
        return;
    for (const Lecture::Noeud& noeud : lecture.noeuds) {
        if (noeud.archive)
            arbre.Ajouter(parent, noeud.cle, noeud.texte);
        else
            arbre.Ajouter(parent, noeud.cle, noeud.texte, ImageRepertoire, ImageRepertoireOuvert);
    }
}
