#pragma once

#include <QList>
#include <QString>

#include "search/ChoixRecherche.h"

class Infobulle;
class QAbstractItemModel;
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

    PanneauxRecherche(QMainWindow& fenetre, QAbstractItemModel& modele);

    // Says in the status line why nothing was found.
    void Expliquer(const QString& texte);

    // What is chosen from and switched, but for the words.
    QList<QWidget*> Choix() const;

    // The text of the chosen tab and the examples, readable on the palette's ground.
    void Colorer(int onglet);

    QStringListModel* historique;
    QToolButton* btn[NombreOnglets];
    QStackedWidget* pages;
    QLineEdit* saisie[NombreOnglets];
    QToolButton* anciens[NombreOnglets];  // show the former words
    QLabel* aide;
    QCheckBox* rec[NombreOptions];
    QCheckBox* sansType;
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
    QLabel* explication;
    QProgressBar* barre;
    Infobulle* infobulle;

private:
    QWidget* CreerOnglets();
    QWidget* CreerPages();
    QWidget* CreerPage(int onglet);
    QWidget* CreerSaisie(int onglet);
    QComboBox* CreerChoix(const char* nom, const QString& libelle);
    QWidget* CreerOptions();
    QCheckBox* CreerOption(int option, const char* texte);
    void CreerDates(QLayout& mise);
    void CreerCalendrier(QMainWindow& fenetre);
    void CreerListe(QAbstractItemModel& modele);
    QWidget* CreerCentre(QAbstractItemModel& modele);
    void CreerStatut(QMainWindow& fenetre);
};
