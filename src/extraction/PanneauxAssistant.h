#pragma once

class Animation;
class Etiquette;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QWidget;
class RangeeOnglets;

// The widgets of the extraction wizard, laid out: the drives, what is known of the chosen one, the two boxes with the
// button, the progress and the details. They belong to the window.
struct PanneauxAssistant {
    static constexpr int PleineBarre = 10000;

    explicit PanneauxAssistant(QWidget& fenetre);

    // What is seen during a run only, and what can be used only when there is none.
    void MontrerAvancement(bool montrer) const;
    void Activer(bool actif) const;

    RangeeOnglets* menu;
    RangeeOnglets* menuA;
    QPushButton* actualiser;
    QPushButton* dossier;
    QGroupBox* medias;
    QGroupBox* disques;
    QGroupBox* compressions;
    QWidget* details;
    QWidget* barre;
    QLabel* image;
    Etiquette* catalogue;
    QLabel* valeurs[6];
    QLineEdit* identifiant;
    QLineEdit* nom;
    QPushButton* ok;
    QPushButton* etapes;
    QPushButton* bouton;
    QCheckBox* compression[4];
    QComboBox* listeExtensions;
    QListWidget* liste;
    Animation* animation;
    QLabel* repertoires;
    QLabel* fichiers;
    QLabel* descriptions;
    QProgressBar* progression;
    QLabel* pourcentage;
    Etiquette* ligne;

private:
    QWidget* CreerMedias();
    QWidget* CreerInformations();
    QWidget* CreerSaisies();
    QWidget* CreerAvancement();
    QWidget* CreerDetails();
    QWidget* CreerBarre();
};
