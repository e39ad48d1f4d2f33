#pragma once

#include <QDialog>

#include "commun/Dialogues.h"

class QCheckBox;
class QListWidget;
class QTabWidget;

// The preferences. Each click is on disk at once, however the window is left.
class FrmOptions : public QDialog {
public:
    explicit FrmOptions(Dialogues& dialogues, QWidget* parent = nullptr);

private:
    QWidget* CreerDescriptions();
    static QWidget* CreerFreedb(Dialogues& dialogues);
    QWidget* CreerDivers();
    void MontrerDivers();

    QTabWidget* onglets_;
    QListWidget* descriptions_;
    QCheckBox* divers_[4];
};
