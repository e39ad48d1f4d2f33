#include "browser/CommandesBase.h"

#include "platform/OperationsFichiers.h"
#include "store/CycleBase.h"
#include "store/PoserBase.h"
#include "store/Reglages.h"

namespace {

DemandeFichier DemandeBase(const char* titre, bool ecrire)
{
    DemandeFichier demande;
    demande.titre = titre;
    demande.filtre = "Bases de Velourne (*.vlr)";
    demande.suffixe = "vlr";
    demande.depart = BaseCourante();
    demande.ecrire = ecrire;
    return demande;
}

void Basculer(const std::string& chemin)
{
    FixerArbreARecharger(true);
    SaveSetting(SectionSettings, CleBaseCourante, chemin);
    RelireBaseCourante();
    InitialiserBase();
}

}  // namespace

bool OuvrirCatalogue(Dialogues& dialogues)
{
    const std::string chemin = dialogues.ChoisirFichier(DemandeBase("Ouvrir un catalogue", false));
    if (chemin.empty())
        return false;
    Basculer(chemin);
    return true;
}

bool CreerCatalogue(Dialogues& dialogues)
{
    const std::string chemin = dialogues.ChoisirFichier(DemandeBase("Créer un nouveau catalogue", true));
    if (chemin.empty() ||
        (FichierExiste(chemin) && !dialogues.Demander("Ce fichier existe, voulez-vous vraiment l'écraser ?")))
        return false;
    CopierModele(chemin);
    Basculer(chemin);
    return true;
}

void DupliquerCatalogue(Dialogues& dialogues)
{
    DemandeFichier demande = DemandeBase("Sauvegarder le catalogue en cours", true);
    demande.confirmer = true;
    const std::string chemin = dialogues.ChoisirFichier(demande);
    if (chemin.empty())
        return;
    if (chemin == BaseCourante())
        dialogues.Informer("Veuillez saisir un autre nom différent que celui du catalogue courant !");
    else
        CopierBase(BaseCourante(), chemin);
}

bool SupprimerCatalogue(Dialogues& dialogues)
{
    if (!dialogues.Demander("Êtes-vous sur de vouloir supprimer la base actuelle : " + BaseCourante() + " ?",
                            "Suppression du catalogue en cours !"))
        return false;
    SupprimerBase(BaseCourante());
    PoserBaseParDefaut();
    Basculer(CheminBaseParDefaut());
    return true;
}
