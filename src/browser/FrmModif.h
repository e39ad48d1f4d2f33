#pragma once

#include <string>

#include <QDialog>

#include "commun/Dialogues.h"

class QLineEdit;

// Edits one name.
class FrmModif : public QDialog {
    Q_OBJECT

public:
    enum Mode { NomMedia, NomRep, NomRepLv };  // of a media; of a node or an item, directory or not

    // `invite` goes ahead of the present name.
    FrmModif(Dialogues& dialogues, Mode mode, const char* titre, const std::string& invite, std::string_view nom,
             QWidget* parent);

    // The name as the user leaves it; the present one, whatever it holds, when he has not touched it.
    std::string Nom() const;

    void accept() override;

private:
    Dialogues& dialogues_;
    const Mode mode_;
    const std::string nom_;
    QLineEdit* saisie_;
};
