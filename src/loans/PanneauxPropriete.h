#pragma once

#include <array>

#include "loans/Proprietes.h"

class QComboBox;
class QDialog;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QScrollArea;
class QTabWidget;
class QWidget;

// The widgets of the properties, laid out: a tab each for media, directory and file. They belong to the window.
struct PanneauxPropriete {
    explicit PanneauxPropriete(QDialog& fenetre);

    // A directory or a file: what its tab shows.
    struct Page {
        QLineEdit* nom;
        std::array<QLineEdit*, 4> textes;  // time, date, size, attributes
        QPlainTextEdit* description;
        QPushButton* modifDesc;
    };

    QTabWidget* onglet;
    QScrollArea* zoneMedia;  // the media's page scrolls in it
    QLabel* image;
    std::array<QLineEdit*, NombreTextesMedia> medias;
    QLineEdit* categorie;
    QWidget* cadreTypes;  // the list of categories with its heading; hidden until it is wanted
    QListWidget* treeStyle;
    QPushButton* ajoutCat;
    QPushButton* couleur;
    QPushButton* deleteCat;
    QComboBox* pret;
    QPushButton* btnPret;
    Page repertoire, fichier;
    QPushButton* ok;

private:
    QWidget* CreerMedia();
    QWidget* CreerCategorie();
    QWidget* CreerPret();
    static QWidget* CreerPage(Page& page, const char* nom);
};
