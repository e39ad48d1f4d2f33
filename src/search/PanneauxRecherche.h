#pragma once

#include <QString>

#include "search/ChoixRecherche.h"

class Infobulle;
class ModeleListe;
class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLayout;
class QLineEdit;
class QMainWindow;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QStringListModel;
class QToolButton;
class QTreeView;
class QWidget;

// The widgets of the search window, laid out: the tabs with what each asks for, the results and the calendar over them.
// They belong to the window.
struct PanneauxRecherche {
    static constexpr int NombreOnglets = 3;

    PanneauxRecherche(QMainWindow& fenetre, ModeleListe& modele);

    // The text of the chosen tab and the examples, readable on the palette's ground.
    void Colorer(int onglet);

    QStringListModel* historique;
    QToolButton* btn[NombreOnglets];
    QStackedWidget* pages;
    QLineEdit* saisie[NombreOnglets];
    QLabel* aide;
    QCheckBox* rec[NombreOptions];
    QComboBox* lExt;
    QComboBox* lIdent;
    QComboBox* lLables;
    QPushButton* infoDate[2];
    QFrame* cadreCalendrier;
    QCalendarWidget* calendrier;
    QPushButton* ok;
    QPushButton* catalogue;
    QLabel* titre;
    QTreeView* lvListView;
    QLabel* commentaire;
    QProgressBar* barre;
    Infobulle* infobulle;

private:
    QWidget* CreerOnglets();
    QWidget* CreerPages();
    QWidget* CreerPage(int onglet);
    QLineEdit* CreerSaisie(int onglet);
    QComboBox* CreerChoix(const char* nom, const QString& libelle);
    QWidget* CreerOptions();
    QCheckBox* CreerOption(int option, const char* texte);
    void CreerDates(QLayout& mise);
    void CreerCalendrier(QMainWindow& fenetre);
    void CreerListe(ModeleListe& modele);
    QWidget* CreerCentre(ModeleListe& modele);
    void CreerStatut(QMainWindow& fenetre);
};
