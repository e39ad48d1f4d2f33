#include "browser/CommandesBase.h"

#include "platform/OperationsFichiers.h"
#include "store/CycleBase.h"
#include "store/PoserBase.h"
#include "store/Reglages.h"

bool OuvrirCatalogue(const std::string& chemin)
{
    FixerArbreARecharger(true);
    SaveSetting(SectionSettings, CleBaseCourante, chemin);
    RelireBaseCourante();
    InitialiserBase();
    return true;
}

bool CreerCatalogue(const std::string& chemin, Dialogues& dialogues)
{
    if (FichierExiste(chemin) && !dialogues.Demander("Ce fichier existe, voulez-vous vraiment l'écraser ?"))
        return false;
    CopierModele(chemin);
    return OuvrirCatalogue(chemin);
}

void DupliquerCatalogue(const std::string& chemin, Dialogues& dialogues)
{
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
    return OuvrirCatalogue(CheminBaseParDefaut());
}
