#pragma once

#include "listings/Listing.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QMainWindow;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTextBrowser;
class QWidget;

// The widgets of the listing window, laid out: the choices above, what was written below. They belong to the window.
struct PanneauxImpression {
    explicit PanneauxImpression(QMainWindow& fenetre);

    // Shows the beginning of a listing: a page for HTML, letters as they stand for the others.
    void Montrer(FormatListing format, const ApercuListing& contenu);
    void Vider();

    QComboBox* lMedias;
    QCheckBox* opt[NombreColonnesListing];
    QRadioButton* optFormat[NombreFormatsListing];
    QPushButton* ok;
    QPushButton* ouvrir;
    QPushButton* imprimer;
    QPushButton* pdf;
    QPushButton* catalogue;
    QLabel* avis;  // that the preview is only a beginning
    QStackedWidget* apercu;
    QPlainTextEdit* texte;
    QTextBrowser* page;
    QLabel* commentaire;
    QProgressBar* barre;

private:
    QWidget* CreerChoix();
    QWidget* CreerBoutons();
    QWidget* CreerApercu();
    void CreerStatut(QMainWindow& fenetre);
};
