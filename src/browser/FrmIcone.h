#pragma once

#include <string>

#include <QDialog>

#include "commun/Dialogues.h"

class QLabel;
class QLineEdit;
class QPushButton;

// Changes the icon of a media.
class FrmIcone : public QDialog {
    Q_OBJECT

public:
    // `icone`: the bytes of the icon file that the media has; empty without one.
    FrmIcone(Dialogues& dialogues, std::string_view label, std::string_view icone, QWidget* parent);

    // Bytes of the file chosen; empty when there is none.
    const std::string& Icone() const { return choisie_; }

private:
    void Rechercher();
    bool MontrerIcone(std::string_view octets);

    Dialogues& dialogues_;
    std::string choisie_;
    QLineEdit* saisie_;
    QLabel* picLecteur_;
    QPushButton* ok_;
};
