#include "extraction/AjouterFichier.h"

#include "archives/ListerArchive.h"
#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "extraction/AjouterFichierZip.h"
#include "extractors/Aiguillage.h"

namespace {

bool EstLisible(const LigneFichier& ligne)
{
    return ligne.parcours && ligne.entree && ligne.entree->ordinaire;
}

void Lister(const SorteArchive& sorte, Course& course, const LigneFichier& ligne, int64_t numero)
{
    ++course.compteurs.archives;
    if (!sorte.Voulue() || !EstLisible(ligne))
        return;
    const Fichier fichier = ligne.parcours->Ouvrir(*ligne.entree);
    AjouterFichierZip({course.base, fichier, ligne.extension, course.media, numero, course.arret});
    ++course.compteurs.listees;
}

// The description of the file, empty when there is none or it is not wanted.
std::string Decrire(Course& course, const LigneFichier& ligne, std::string_view chemin)
{
    const Branche& branche = ChoisirBranche(ligne.extension);
    if (!branche.Voulue() || !BrancheAdmise(branche, ligne.nom, chemin) || !EstLisible(ligne) ||
        ligne.entree->taille < branche.tailleMinimale)
        return {};
    const Fichier fichier = ligne.parcours->Ouvrir(*ligne.entree);
    std::string description;
    branche.extraire({fichier, chemin, ligne.extension, course.extracteurs}, description);
    return description;
}

}  // namespace

bool AjouterFichier(Course& course, const LigneFichier& ligne, Recordset& enregistrements)
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
    if (const SorteArchive* sorte = chemin.empty() ? nullptr : ChoisirSorte(ligne.extension))
        Lister(*sorte, course, ligne, enregistrements.Numero());
    else if (!chemin.empty())
        tiree = Decrire(course, ligne, chemin);
    const std::string_view description = tiree.empty() ? ligne.description : tiree;
    if (!description.empty()) {
        enregistrements.Poser("Description", description);
        ++course.compteurs.descriptions;
    }
    enregistrements.Poser("NCatalogue", course.media);
    if (!enregistrements.Update())
        return false;
    enregistrements.Bookmark(enregistrements.LastModified());
    return true;
}
