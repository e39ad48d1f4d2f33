#pragma once

#include <functional>

#include <QDialog>
#include <QPointer>

#include "commun/Travail.h"

// A dialog that reads and writes the base. Its actions run one at a time when the store is free; the dialog takes no
// input until then, so that no action ever drops an older one that still waits.
class DialogueBase : public QDialog {
public:
    DialogueBase(Travail& travail, QWidget* parent);

    // Waits until the action that is under way has run.
    void done(int resultat) override;

protected:
    void Agir(std::function<void()> action);

private:
    void Occuper(bool occupe);

    Travail& travail_;
    QPointer<QWidget> foyer_;  // had the keyboard before the wait
    bool occupe_ = false;
    bool aFermer_ = false;
    int resultat_ = 0;
};
