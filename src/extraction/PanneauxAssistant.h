#pragma once

#include <vector>

#include <QSize>

struct Avancement;
struct LecteurVu;
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
    // Fills the two rows of tabs; without a second row its frame goes too. True when that has changed the window's
    // room.
    bool RemplirOnglets(const std::vector<LecteurVu>& premiers, const std::vector<LecteurVu>& seconds) const;
    void Suivre(const Avancement& avancement) const;
    // Of the window, so that nothing has to be scrolled.
    QSize TailleVoulue() const;

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
    Etiquette* repertoires;
    Etiquette* fichiers;
    Etiquette* descriptions;
    QProgressBar* progression;
    QLabel* pourcentage;
    Etiquette* ligne;

private:
    void OrdonnerTouches() const;

    QWidget* contenu_;

    QWidget* CreerMedias();
    QWidget* CreerInformations();
    QWidget* CreerSaisies();
    QWidget* CreerAvancement();
    QWidget* CreerDetails();
    QWidget* CreerBarre();
};
