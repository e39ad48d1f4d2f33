#include "browser/Commandes.h"

#include "catalogue/Cles.h"

namespace {

template <typename Choix>
constexpr unsigned Un(Choix choix)
{
    return static_cast<unsigned>(choix);
}

constexpr unsigned ToutNoeud = ~0U, ToutItem = ~0U;
constexpr unsigned Toujours = 1, SaufOccupe = 0;

// For which nodes and which items a command may be given, and whether also while the tree is being loaded.
struct Regle {
    unsigned noeuds = ToutNoeud;
    unsigned items = ToutItem;
    unsigned occupe = SaufOccupe;
    bool dejaVu = false;  // only when there is a node to go back to
};

constexpr unsigned SousLaRacine = Un(NoeudChoisi::Media) | Un(NoeudChoisi::Repertoire) | Un(NoeudChoisi::Archive);

constexpr Regle Regles[NombreCommandes] = {
    {},                                                                 // CreerCatalogue
    {},                                                                 // OuvrirCatalogue
    {~Un(NoeudChoisi::Aucun)},                                          // DupliquerCatalogue
    {},                                                                 // SupprimerCatalogue
    {SousLaRacine},                                                     // RetirerCatalogue
    {},                                                                 // AjouterMedia
    {SousLaRacine},                                                     // ModifierLabel
    {SousLaRacine},                                                     // ModifierIcone
    {SousLaRacine},                                                     // SupprimerMedia
    {Un(NoeudChoisi::Repertoire)},                                      // RenommerRepertoire
    {Un(NoeudChoisi::Repertoire)},                                      // SupprimerRepertoire
    {Un(NoeudChoisi::Archive)},                                         // RenommerArchive
    {Un(NoeudChoisi::Archive)},                                         // SupprimerArchive
    {SousLaRacine},                                                     // DecrireNoeud
    {SousLaRacine},                                                     // RechercherMedia
    {ToutNoeud, ~Un(ItemChoisi::Aucun)},                                // RenommerItem
    {ToutNoeud, ~Un(ItemChoisi::Aucun)},                                // RetirerItem
    {ToutNoeud, ~Un(ItemChoisi::Aucun)},                                // DecrireItem
    {ToutNoeud, Un(ItemChoisi::Fichier)},                               // LancerFichier
    {ToutNoeud, Un(ItemChoisi::Fichier) | Un(ItemChoisi::Repertoire)},  // OuvrirDossier
    {},                                                                 // Rechercher
    {},                                                                 // Prets
    {SousLaRacine},                                                     // ProprietesNoeud
    {ToutNoeud, ~Un(ItemChoisi::Aucun)},                                // ProprietesItem
    {},                                                                 // Imprimer
    {ToutNoeud, ToutItem, Toujours},                                    // Preferences
    {ToutNoeud, ToutItem, Toujours},                                    // Aide
    {ToutNoeud, ToutItem, Toujours},                                    // Quitter
    {SousLaRacine},                                                     // CopierNoeud
    {ToutNoeud, ~Un(ItemChoisi::Aucun)},                                // CopierItem
    {SousLaRacine},                                                     // Monter
    {ToutNoeud, ToutItem, SaufOccupe, true},                            // Reculer
    {},                                                                 // Actualiser
    {},                                                                 // BasesRecentes
    {},                                                                 // AjouterDepuis
    {SousLaRacine},                                                     // CategorieMedia
    {ToutNoeud, ToutItem, Toujours},                                    // PoliceDescription
};

}  // namespace

ContexteCommandes Contexte(const ArbreCatalogue& arbre, std::string_view cleItem, bool repertoire)
{
    ContexteCommandes contexte;
    const int32_t noeud = arbre.Selection();
    const std::string_view cle = arbre.CleSelection();
    if (arbre.Nombre() == 0)
        contexte.noeud = NoeudChoisi::Aucun;
    else if (noeud == ArbreCatalogue::Aucun || arbre[noeud].parent == ArbreCatalogue::Aucun)
        contexte.noeud = NoeudChoisi::Racine;
    else if (arbre.EstMedia(noeud))
        contexte.noeud = NoeudChoisi::Media;
    else
        contexte.noeud = EstCleDansArchive(cle) ? NoeudChoisi::Archive : NoeudChoisi::Repertoire;

    if (cleItem.empty())
        contexte.item = ItemChoisi::Aucun;
    else if (EstCleDansArchive(cle))
        contexte.item = ItemChoisi::DansArchive;
    else
        contexte.item = repertoire ? ItemChoisi::Repertoire : ItemChoisi::Fichier;
    return contexte;
}

bool CommandePermise(Commande commande, const ContexteCommandes& contexte)
{
    const Regle& regle = Regles[static_cast<size_t>(commande)];
    return (!contexte.occupe || regle.occupe == Toujours) && (regle.noeuds & Un(contexte.noeud)) != 0 &&
           (regle.items & Un(contexte.item)) != 0 && (!regle.dejaVu || contexte.dejaVu);
}
