#pragma once

#include <functional>

#include "browser/Commandes.h"
#include "browser/ImagesCatalogue.h"
#include "browser/ModeleArbre.h"
#include "browser/ModeleListe.h"
#include "browser/Navigateur.h"
#include "commun/Dialogues.h"

class QWidget;

// The commands of the browser window that change what is catalogued. Each asks, writes, and then adjusts the one node
// or item that stands for what was changed. For the window's thread while no other work uses the store.
class EditionVue {
public:
    EditionVue(QWidget& fenetre, Dialogues& dialogues, Navigateur& navigateur, ModeleArbre& modeleArbre,
               ModeleListe& modeleListe, ImagesCatalogue& images);

    // What the window has left to do.
    enum Suite {
        Rien,
        Montrer,  // what the navigator holds has changed
        Suivre,   // a node has gone, and another one is selected
    };
    // `rang`: place of the selected item, -1 without one.
    Suite Executer(Commande commande, int32_t rang);

    // Removes the link to the picture from the description shown.
    Suite SupprimerPhoto(int32_t rang);

private:
    // Asks for another name; false when the user gives up.
    bool DemanderNom(int mode, const char* titre, const std::string& invite, std::string& nom);

    Suite ModifierLabel();
    Suite ModifierIcone();
    Suite SupprimerMedia();
    Suite RenommerNoeud();
    Suite SupprimerNoeud(const char* question);
    Suite RenommerItem(int32_t rang);
    Suite RetirerItem(int32_t rang);
    Suite DecrireNoeud();
    Suite DecrireItem(int32_t rang);
    Suite Decrire(std::string_view nom, const std::function<bool(const Description&)>& enregistrer);
    bool EnregistrerItem(int32_t rang, const Description& description);

    QWidget& fenetre_;
    Dialogues& dialogues_;
    Navigateur& navigateur_;
    ModeleArbre& modeleArbre_;
    ModeleListe& modeleListe_;
    ImagesCatalogue& images_;
};
