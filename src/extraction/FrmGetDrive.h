#pragma once

#include <string>
#include <vector>

#include <QDialog>
#include <QTimer>

#include "commun/Consultation.h"
#include "extraction/ChoixLecteur.h"
#include "extraction/RegardLecteurs.h"

class QLabel;
class QPushButton;
class QTreeWidget;

// The drive chooser: asks for a media and for the drive in which it now is. It sees by itself when a medium comes, and
// takes only a drive that holds what is wanted.
class FrmGetDrive : public QDialog {
public:
    explicit FrmGetDrive(const MediaDemande& media, QWidget* parent = nullptr);

    // Capital letter of the chosen drive, 0 when none was.
    char Lettre() const { return lettre_; }

private:
    void Regarder();
    void Remplir(const std::vector<LecteurVu>& lecteurs);
    char Choisie() const;  // small letter, 0 for none
    void Choisir();
    void Valider();
    void Retenir(char lettre);

    const MediaDemande media_;
    Consultation lecteurs_, verification_;
    QTimer regard_;
    std::vector<LecteurVu> vus_;
    QTreeWidget* liste_;
    QLabel* avis_;
    QPushButton* valider_;
    char lettre_ = 0;
};

// Shows it over the active window.
class ChoixParFenetre : public ChoixLecteur {
public:
    char Choisir(const MediaDemande& media) override;
};
