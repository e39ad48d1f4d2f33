#pragma once

#include <array>

#include "browser/VueIcones.h"

class CadrePhoto;
class DelegueGrille;
class ModeleArbre;
class ModeleListe;
class QAbstractItemView;
class QFrame;
class QLabel;
class QMainWindow;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QToolButton;
class QTreeView;
class QWidget;
class Etiquette;
class TexteLong;
class VueArbre;

// The widgets of the browser window, laid out: the tree on the left; on the right a title strip, the list, and the
// picture and text of the description. They belong to the window.
struct PanneauxVue {
    PanneauxVue(QMainWindow& fenetre, ModeleArbre& modeleArbre, ModeleListe& modeleListe);

    // The one of the list's two views that is seen. Both follow one selection.
    QAbstractItemView* VueListe() const;
    void Afficher(int mode);
    // In the place of the list, while the catalogue has nothing to show: how to begin.
    void MontrerAccueil(bool vide);
    // Widens the column of types for those in the list, until somebody has chosen its width.
    void ElargirTypes();
    void GarderLargeurTypes() { largeurTypes_ = -1; }

    VueArbre* arbre;
    QTreeView* rapport;
    DelegueGrille* grille;
    VueIcones* icones;
    QStackedWidget* liste;
    QPushButton* ajouter;  // of what is shown in an empty catalogue
    QPlainTextEdit* description;
    TexteLong* texte;  // fills it
    QWidget* frPhoto;
    CadrePhoto* photo;
    std::array<QToolButton*, 2> modifDesc;  // edit, remove the picture
    QLabel* iconeTitre;
    QLabel* titre;
    Etiquette* commentaire;
    QProgressBar* barre;
    QSplitter* vertical;
    QSplitter* horizontal;

private:
    QWidget* CreerAccueil();
    void CreerArbre(ModeleArbre& modele);
    void CreerListe(ModeleListe& modele);
    void CreerDescription();
    QWidget* CreerPhoto();
    QFrame* CreerBandeau();
    void CreerStatut(QMainWindow& fenetre);

    QStackedWidget* contenu_;  // the list, or what stands in its place
    int largeurTypes_ = 0;     // as it was given last; -1 when it is not to be given any more
};
