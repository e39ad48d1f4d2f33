#pragma once

#include <string>
#include <vector>

#include <QDialog>

#include "commun/Consultation.h"
#include "extraction/ChoixLecteur.h"
#include "extraction/RegardLecteurs.h"

class QTreeWidget;

// The drive chooser: asks for a media and for the drive in which it now is.
class FrmGetDrive : public QDialog {
public:
    explicit FrmGetDrive(const MediaDemande& media, QWidget* parent = nullptr);

    // Capital letter of the chosen drive, 0 when none was.
    char Lettre() const { return lettre_; }

private:
    void Remplir(const std::vector<LecteurVu>& lecteurs);
    void Valider();

    std::string identifiant_;
    Consultation lecteurs_;
    QTreeWidget* liste_;
    std::vector<char> lettres_;
    char lettre_ = 0;
};

// Shows it over the active window.
class ChoixParFenetre : public ChoixLecteur {
public:
    char Choisir(const MediaDemande& media) override;
};
