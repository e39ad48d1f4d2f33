#include "loans/DialogueBase.h"

#include <utility>

DialogueBase::DialogueBase(Travail& travail, QWidget* parent) : QDialog(parent), travail_(travail)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void DialogueBase::Agir(std::function<void()> action)
{
    if (travail_.EnCours())
        Occuper(true);
    // A dialog that goes takes what waits with it.
    travail_.Executer(Place::Commande, [dialogue = QPointer<DialogueBase>(this), action = std::move(action)] {
        if (!dialogue)
            return;
        dialogue->Occuper(false);
        action();
        if (dialogue && std::exchange(dialogue->aFermer_, false))
            dialogue->QDialog::done(dialogue->resultat_);
    });
}

void DialogueBase::Occuper(bool occupe)
{
    if (occupe == occupe_)
        return;
    occupe_ = occupe;
    if (occupe) {
        foyer_ = focusWidget();
        setCursor(Qt::BusyCursor);
        setEnabled(false);
        return;
    }
    setEnabled(true);
    unsetCursor();
    if (foyer_)
        foyer_->setFocus();
}

void DialogueBase::done(int resultat)
{
    if (!occupe_) {
        QDialog::done(resultat);
        return;
    }
    aFermer_ = true;
    resultat_ = resultat;
}
