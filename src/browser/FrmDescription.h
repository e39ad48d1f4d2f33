#pragma once

#include <functional>
#include <string>

#include <QDialog>

#include "browser/CadrePhoto.h"
#include "catalogue/Descriptions.h"
#include "commun/Dialogues.h"

class QLabel;
class QPlainTextEdit;
class TexteLong;

// Edits a description: its text, and the picture that it links to.
class FrmDescription : public QDialog {
    Q_OBJECT

public:
    // `enregistrer` writes what the user wants to keep; the window stays open while that fails.
    FrmDescription(Dialogues& dialogues, std::string_view nom, const Description& description,
                   std::function<bool(const Description&)> enregistrer, QWidget* parent);

    void accept() override;

private:
    void ChoisirPhoto();
    void OuvrirPhoto();
    void MontrerPhoto();

    Dialogues& dialogues_;
    Description description_;
    const std::function<bool(const Description&)> enregistrer_;
    QPlainTextEdit* saisie_;
    TexteLong* texte_;
    CadrePhoto* cadre_;
    QLabel* erreur_;  // seen once it could not be written
};
