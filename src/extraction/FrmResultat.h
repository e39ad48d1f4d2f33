#pragma once

#include <QDialog>

#include "extraction/AjouterFichier.h"

// What a run has found: four counters and an OK button.
class FrmResultat : public QDialog {
public:
    explicit FrmResultat(const CompteursExtraction& compteurs, QWidget* parent = nullptr);
};
