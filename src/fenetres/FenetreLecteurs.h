#pragma once

#include <string>
#include <vector>

#include <QWidget>

#include "commun/Consultation.h"
#include "commun/Dialogues.h"
#include "platform/Lecteurs.h"

class QComboBox;
class QPushButton;
class QTreeWidget;

// The drive letters and where they lead. A free letter can be given to a folder, which then is a drive, and be taken
// away again. The machine is looked at when this is shown.
class FenetreLecteurs : public QWidget {
public:
    explicit FenetreLecteurs(Dialogues& dialogues, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    void Consulter(char choisie);
    void Remplir(char choisie);
    void ActiverRetrait();
    void Donner();
    void Retirer();

    Dialogues& dialogues_;
    Consultation consultation_;
    std::vector<LettreDonnee> lettres_;
    QTreeWidget* liste_;
    QComboBox* libres_;
    QPushButton* donner_;
    QPushButton* retirer_;
};
