#include "browser/FrmIcone.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "browser/MessagesVue.h"
#include "catalogue/ArbreCatalogue.h"
#include "fenetres/Etiquette.h"
#include "fenetres/IconeMedia.h"
#include "fenetres/TextesQt.h"
#include "platform/OperationsFichiers.h"

namespace {

constexpr int Cote = 32;

}  // namespace

FrmIcone::FrmIcone(Dialogues& dialogues, std::string_view label, std::string_view icone, QWidget* parent)
    : QDialog(parent), dialogues_(dialogues), saisie_(new QLineEdit), picLecteur_(new QLabel)
{
    setWindowTitle(Messages[TitreIcone]);
    auto* invite = new Etiquette;
    invite->setObjectName("invite");
    invite->setText(EnQString("Nom du Média : " + std::string(label)));
    picLecteur_->setObjectName("PicLecteur");
    picLecteur_->setAccessibleName("Icône");
    picLecteur_->setFrameShape(QFrame::StyledPanel);
    picLecteur_->setAlignment(Qt::AlignCenter);
    picLecteur_->setFixedSize(Cote + 12, Cote + 12);
    saisie_->setObjectName("Saisie");
    saisie_->setAccessibleName("Fichier de l'icône");
    saisie_->setReadOnly(true);
    saisie_->setMinimumWidth(saisie_->fontMetrics().averageCharWidth() * 45);
    auto* recherche = new QPushButton("&Parcourir…");
    recherche->setObjectName("Recherche");
    recherche->setAutoDefault(false);
    connect(recherche, &QPushButton::clicked, this, &FrmIcone::Rechercher);

    auto* boutons = new QDialogButtonBox;
    ok_ = boutons->addButton("  &OK", QDialogButtonBox::AcceptRole);
    ok_->setObjectName("OK 0");
    ok_->setDefault(true);
    boutons->addButton("      &Annuler", QDialogButtonBox::RejectRole)->setObjectName("OK 1");
    connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* mise = new QGridLayout(this);
    mise->addWidget(picLecteur_, 0, 0, 2, 1, Qt::AlignTop);
    mise->addWidget(invite, 0, 1, 1, 2);
    mise->addWidget(saisie_, 1, 1);
    mise->addWidget(recherche, 1, 2);
    mise->addWidget(boutons, 2, 0, 1, 3);
    mise->setColumnStretch(1, 1);
    recherche->setFocus();
    MontrerIcone(icone);
}

bool FrmIcone::MontrerIcone(std::string_view octets)
{
    const QIcon icone = IconeDeMedia(octets);
    if (icone.isNull())
        return false;
    picLecteur_->setPixmap(icone.pixmap(QSize(Cote, Cote), devicePixelRatioF()));
    return true;
}

void FrmIcone::Rechercher()
{
    DemandeFichier demande;
    demande.titre = "Remplace l'icône du média";
    demande.filtre = "Tous les fichiers icônes (*.ico)";
    demande.depart = saisie_->text().toStdString();
    const std::string chemin = dialogues_.ChoisirFichier(demande);
    EtatFichier etat;
    std::string octets;
    // What shows no picture is no icon: what was there before stays.
    if (chemin.empty() || !LireEtatFichier(chemin, etat) || etat.taille > TailleIconeMaximale ||
        !LireFichier(chemin, octets) || !MontrerIcone(octets))
        return;
    choisie_ = octets;
    saisie_->setText(QString::fromStdString(chemin));
    ok_->setFocus();
}
