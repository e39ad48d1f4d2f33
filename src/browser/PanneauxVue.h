#pragma once

#include <array>

class CadrePhoto;
class DelegueGrille;
class ModeleArbre;
class ModeleListe;
class QAbstractItemView;
class QFrame;
class QLabel;
class QListView;
class QMainWindow;
class QPlainTextEdit;
class QProgressBar;
class QSplitter;
class QStackedWidget;
class QToolButton;
class QTreeView;
class QWidget;
class TexteLong;

// The ways to show the list, as the settings number them.
enum Affichage { GrandesIcones, PetitesIcones, EnListe, Rapport };

// The widgets of the browser window, laid out: the tree on the left; on the right a title strip, the list, and the
// picture and text of the description. They belong to the window.
struct PanneauxVue {
    PanneauxVue(QMainWindow& fenetre, ModeleArbre& modeleArbre, ModeleListe& modeleListe);

    // The one of the list's two views that is seen. Both follow one selection.
    QAbstractItemView* VueListe() const;
    void Afficher(int mode);

    QTreeView* arbre;
    QTreeView* rapport;
    DelegueGrille* grille;
    QListView* icones;
    QStackedWidget* liste;
    QPlainTextEdit* description;
    TexteLong* texte;  // fills it
    QWidget* frPhoto;
    CadrePhoto* photo;
    std::array<QToolButton*, 2> modifDesc;  // edit, remove the picture
    QLabel* iconeTitre;
    QLabel* titre;
    QLabel* commentaire;
    QProgressBar* barre;
    QSplitter* vertical;
    QSplitter* horizontal;

private:
    void CreerArbre(ModeleArbre& modele);
    void CreerListe(ModeleListe& modele);
    void CreerDescription();
    QWidget* CreerPhoto();
    QFrame* CreerBandeau();
    void CreerStatut(QMainWindow& fenetre);
};
