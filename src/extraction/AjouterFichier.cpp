#include "extraction/AjouterFichier.h"

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "extraction/AjouterFichierZip.h"
#include "extractors/Aiguillage.h"

namespace {

// Runs the branch of the file's extension. Returns the description, empty when there is none.
std::string Aiguiller(int64_t media, const LigneFichier& ligne, std::string_view chemin, int64_t numero,
                      CompteursExtraction& compteurs)
{
    const Branche& branche = ChoisirBranche(ligne.extension);
    if (branche.archive)
        ++compteurs.archives;
    if ((!branche.extraire && !branche.archive) || !branche.Voulue() || !BrancheAdmise(branche, ligne.nom, chemin) ||
        !ligne.entree || !ligne.entree->ordinaire || ligne.entree->taille < branche.tailleMinimale)
        return {};

    const Fichier fichier = ligne.parcours->Ouvrir(*ligne.entree);
    std::string description;
    if (branche.archive) {
        AjouterFichierZip({fichier, ligne.extension, media, numero});
        ++compteurs.listees;
    } else if (!branche.extraire({fichier, chemin, ligne.extension}, description)) {
        description.clear();
    }
    return description;
}

}  // namespace

bool AjouterFichier(int64_t media, const LigneFichier& ligne, Recordset& enregistrements,
                    CompteursExtraction& compteurs)
{
    const bool dossier = ligne.attribut == "D";
    std::string_view chemin = ligne.chemin;
    if (!dossier && chemin.ends_with('\\'))
        chemin.remove_suffix(1);
    std::string_view nom = ligne.nom;
    if (nom.ends_with('\\'))
        nom.remove_suffix(1);

    enregistrements.AddNew();
    enregistrements.Poser("RepertoirePere", dossier ? CodeRepertoire(ligne.code) : std::to_string(ligne.code));
    enregistrements.Poser("Répertoire", CodeRepertoire(ligne.repertoire));
    enregistrements.Poser("Nom", nom);
    enregistrements.Poser("Taille", ligne.taille);
    enregistrements.Poser("TypeF", ligne.type);
    enregistrements.Poser("DateF", ligne.date);
    enregistrements.Poser("Heure", ligne.heure);
    enregistrements.Poser("attribut", ligne.attribut.substr(0, 10));
    if (!ligne.alias.empty())
        enregistrements.Poser("Alias", ligne.alias);

    std::string tiree;
    if (!chemin.empty())
        tiree = Aiguiller(media, ligne, chemin, enregistrements.Numero(), compteurs);
    const std::string_view description = tiree.empty() ? ligne.description : tiree;
    if (!description.empty()) {
        enregistrements.Poser("Description", description);
        ++compteurs.descriptions;
    }
    enregistrements.Poser("NCatalogue", media);
    if (!enregistrements.Update())
        return false;
    enregistrements.Bookmark(enregistrements.LastModified());
    return true;
}
