#pragma once

#include <array>

#include "commun/Dialogues.h"
#include "loans/DialogueBase.h"
#include "loans/Prets.h"

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

// Who borrows and what they hold. The fields of the selected borrower are written by Enter in any of them.
class FrmPret : public DialogueBase {
public:
    FrmPret(Dialogues& dialogues, Travail& travail, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void Disposer();
    void RechercherPersonnes();
    void MontrerPersonne();
    void MajPersonne();
    void SupprimerPersonne();
    void SupprimerPret();
    void Activer();

    Dialogues& dialogues_;
    QListWidget* personnes_;
    QListWidget* prets_;
    std::array<QLineEdit*, 4> saisies_{};
    QPushButton* supprimerPersonne_;
    QPushButton* supprimerPret_;
};
