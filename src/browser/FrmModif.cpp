#include "browser/FrmModif.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "fenetres/Etiquette.h"
#include "fenetres/TextesQt.h"

FrmModif::FrmModif(Dialogues& dialogues, Mode mode, const char* titre, const std::string& invite, std::string_view nom,
                   QWidget* parent)
    : QDialog(parent), dialogues_(dialogues), mode_(mode), nom_(nom), saisie_(new QLineEdit)
{
    setWindowTitle(titre);
    auto* etiquette = new Etiquette;
    etiquette->setObjectName("invite");
    etiquette->setText(EnQString(invite + nom_));
    saisie_->setObjectName("Saisie");
    saisie_->setAccessibleName(titre);
    saisie_->setText(EnQString(nom_));
    saisie_->setCursorPosition(0);
    saisie_->selectAll();
    saisie_->setMinimumWidth(saisie_->fontMetrics().averageCharWidth() * 50);

    auto* boutons = new QDialogButtonBox;
    auto* ok = boutons->addButton("&OK", QDialogButtonBox::AcceptRole);
    ok->setObjectName("OK 0");
    ok->setDefault(true);
    boutons->addButton("&Annuler", QDialogButtonBox::RejectRole)->setObjectName("OK 1");
    connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* mise = new QVBoxLayout(this);
    mise->addWidget(etiquette);
    mise->addWidget(saisie_);
    mise->addWidget(boutons);
    mise->setSizeConstraint(QLayout::SetMinimumSize);
}

std::string FrmModif::Nom() const
{
    return saisie_->isModified() ? saisie_->text().toStdString() : nom_;
}

void FrmModif::accept()
{
    if (!saisie_->text().trimmed().isEmpty()) {
        QDialog::accept();
        return;
    }
    dialogues_.Informer(mode_ == NomMedia ? "Veuillez saisir un nom de média valable !"
                                          : "Veuillez saisir un nom de répertoire valable !");
    saisie_->setFocus();
}
