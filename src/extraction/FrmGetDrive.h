#pragma once

#include <string>
#include <vector>

#include <QDialog>

class QTreeWidget;

// The media that must be put in.
struct MediaAInserer {
    std::string label, identifiant;
    std::string icone;   // bytes of its icon file; may be empty
    std::string invite;  // what is said of the present drive; may be empty
};

// The drive chooser: asks for a media and for the drive in which it now is.
class FrmGetDrive : public QDialog
{
public:
    explicit FrmGetDrive(const MediaAInserer& media, QWidget* parent = nullptr);

    // Capital letter of the chosen drive, 0 when none was.
    char Lettre() const { return lettre_; }

private:
    void RemplirListe();
    void Valider();

    std::string identifiant_;
    QTreeWidget* liste_;
    std::vector<char> lettres_;
    char lettre_ = 0;
};

// Shows it modally; the letter chosen is kept for the media. Returns the capital letter, 0 when the user gave up.
char DemanderLecteur(const MediaAInserer& media, QWidget* parent);
