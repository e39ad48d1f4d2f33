#pragma once

#include <cstddef>
#include <string_view>

#include "catalogue/ArbreCatalogue.h"

// The commands of the browser, by name, and when each may be given.

enum class Commande {
    CreerCatalogue,
    OuvrirCatalogue,
    DupliquerCatalogue,
    SupprimerCatalogue,
    RetirerCatalogue,  // the same, on the tool bar
    AjouterMedia,
    ModifierLabel,
    ModifierIcone,
    SupprimerMedia,
    RenommerRepertoire,
    SupprimerRepertoire,
    RenommerArchive,
    SupprimerArchive,
    DecrireNoeud,
    RechercherMedia,
    RenommerItem,
    RetirerItem,
    DecrireItem,
    LancerFichier,
    OuvrirDossier,
    Rechercher,
    Prets,
    ProprietesNoeud,
    ProprietesItem,
    Imprimer,
    Preferences,
    Aide,
    Quitter,
    CopierNoeud,  // the path of the node, of the item
    CopierItem,
    Monter,
    Reculer,
    Actualiser,
    // These open menus of their own.
    BasesRecentes,
    AjouterDepuis,
    CategorieMedia,
    PoliceDescription,
};
inline constexpr size_t NombreCommandes = static_cast<size_t>(Commande::PoliceDescription) + 1;

// Aucun: the tree has no nodes at all. A tree of which none is selected stands as if its root were.
enum class NoeudChoisi : unsigned { Aucun = 1, Racine = 2, Media = 4, Repertoire = 8, Archive = 16 };
enum class ItemChoisi : unsigned { Aucun = 1, Repertoire = 2, Fichier = 4, DansArchive = 8 };

struct ContexteCommandes {
    NoeudChoisi noeud = NoeudChoisi::Aucun;
    ItemChoisi item = ItemChoisi::Aucun;
    bool occupe = false;  // the tree is being loaded
    bool dejaVu = false;  // another node was shown before
};

// What is selected: `cleItem` and `repertoire` tell of the list's item, no key when there is none.
ContexteCommandes Contexte(const ArbreCatalogue& arbre, std::string_view cleItem, bool repertoire);

bool CommandePermise(Commande commande, const ContexteCommandes& contexte);
