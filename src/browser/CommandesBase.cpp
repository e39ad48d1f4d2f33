#include "browser/CommandesBase.h"

#include "browser/MessagesVue.h"
#include "platform/OperationsFichiers.h"
#include "store/CycleBase.h"
#include "store/PoserBase.h"
#include "store/Reglages.h"

namespace {

DemandeFichier DemandeBase(const char* titre, bool ecrire)
{
    DemandeFichier demande;
    demande.titre = titre;
    demande.filtre = std::string(Messages[FiltreBases]) + "Velourne (*.vlr)";
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
    const std::string chemin = dialogues.ChoisirFichier(DemandeBase(Messages[TitreOuvrir], false));
    if (chemin.empty())
        return false;
    Basculer(chemin);
    return true;
}

bool OuvrirBaseRecente(const std::string& chemin)
{
    if (!FichierExiste(chemin))
        return false;
    Basculer(chemin);
    return true;
}

bool CreerCatalogue(Dialogues& dialogues)
{
    const std::string chemin = dialogues.ChoisirFichier(DemandeBase(Messages[TitreCreer], true));
    if (chemin.empty() || (FichierExiste(chemin) && !dialogues.DemanderAvantPerte(Messages[EcraserLeFichier])))
        return false;
    if (!CopierModele(chemin)) {
        LaisserAvis("Le catalogue n'a pas pu être créé : " + chemin);
        return false;
    }
    Basculer(chemin);
    return true;
}

void DupliquerCatalogue(Dialogues& dialogues)
{
    DemandeFichier demande = DemandeBase(Messages[TitreSauvegarder], true);
    demande.confirmer = true;
    const std::string chemin = dialogues.ChoisirFichier(demande);
    if (chemin.empty())
        return;
    if (chemin == BaseCourante())
        dialogues.Informer(Messages[MemeNomDeBase]);
    else if (!CopierBase(BaseCourante(), chemin))
        LaisserAvis("Le catalogue n'a pas pu être copié : " + chemin);
}

bool SupprimerCatalogue(Dialogues& dialogues)
{
    if (!dialogues.DemanderAvantPerte(Messages[SupprimerLaBase] + BaseCourante() + " ?",
                                      "Suppression du catalogue en cours !"))
        return false;
    const std::string chemin = BaseCourante();
    const bool supprimee = SupprimerBase(chemin);
    PoserBaseParDefaut();
    if (!supprimee)
        LaisserAvis("Le catalogue n'a pas pu être supprimé : " + chemin);
    Basculer(CheminBaseParDefaut());
    return true;
}
