#include "extraction/FrmGetDrive.h"

#include <algorithm>
#include <memory>

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "commun/Formes.h"
#include "extraction/VerifierCatalogue.h"
#include "extraction/bsDrive.h"
#include "fenetres/IconeMedia.h"
#include "fenetres/ImagesLecteur.h"
#include "fenetres/TravailFenetre.h"

FrmGetDrive::FrmGetDrive(const MediaDemande& media, QWidget* parent)
    : QDialog(parent),
      identifiant_(media.identifiant),
      lecteurs_(ReveilFenetre(this, [this] { lecteurs_.Livrer(); })),
      liste_(new QTreeWidget)
{
    setWindowTitle("Insérer le média");
    auto* image = new QLabel;
    constexpr int Cote = 48;
    if (const QImage icone = LireIcone(media.icone, Cote); !icone.isNull())
        image->setPixmap(QPixmap::fromImage(icone.scaled(Cote, Cote, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    auto* demande = new QLabel("Veuillez insérer le média suivant :\n" +
                               QString::fromStdString(media.label + "  -  Identifiant : " + media.identifiant));
    demande->setTextFormat(Qt::PlainText);
    demande->setWordWrap(true);
    auto* tete = new QHBoxLayout;
    tete->addWidget(image);
    tete->addWidget(demande, 1);
    auto* mise = new QVBoxLayout(this);
    mise->addLayout(tete);
    if (!media.invite.empty()) {
        auto* invite = new QLabel(QString::fromStdString(media.invite));
        invite->setTextFormat(Qt::PlainText);
        mise->addWidget(invite);
    }

    liste_->setHeaderLabels({"Liste des supports", "Type"});
    liste_->setRootIsDecorated(false);
    liste_->setAccessibleName("Liste des supports");
    liste_->setToolTip("Cliquer ICI pour choisir un autre lecteur");
    liste_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    mise->addWidget(liste_, 1);

    auto* valider = new QPushButton("     &Valider");
    auto* annuler = new QPushButton("      &Annuler");
    valider->setDefault(true);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    boutons->addWidget(valider);
    boutons->addWidget(annuler);
    mise->addLayout(boutons);

    connect(valider, &QPushButton::clicked, this, &FrmGetDrive::Valider);
    connect(annuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(liste_, &QTreeWidget::itemDoubleClicked, this, &FrmGetDrive::Valider);
    liste_->setFocus();
    const auto vus = std::make_shared<std::vector<LecteurVu>>();
    lecteurs_.Demander([vus](const std::stop_token&) { *vus = RegarderLecteurs(); }, [this, vus] { Remplir(*vus); });
    resize(std::max(sizeHint().width(), fontMetrics().averageCharWidth() * 60), sizeHint().height());
}

void FrmGetDrive::Remplir(const std::vector<LecteurVu>& lecteurs)
{
    for (const LecteurVu& lecteur : lecteurs) {
        auto* ligne = new QTreeWidgetItem(
            liste_, {QString::fromStdString(lecteur.libelle), QString(NomTypeLecteur(lecteur.type))});
        ligne->setIcon(0, IconeLecteur(lecteur.type));
        lettres_.push_back(lecteur.lettre);
    }
    if (!lettres_.empty())
        liste_->setCurrentItem(liste_->topLevelItem(0));
}

void FrmGetDrive::Valider()
{
    const int rang = liste_->indexOfTopLevelItem(liste_->currentItem());
    if (rang < 0)
        return;
    lettre_ = LettreCapitale(lettres_[static_cast<size_t>(rang)]);
    ModifierCatalogueDisque(identifiant_, std::string(1, lettre_));
    accept();
}

char ChoixParFenetre::Choisir(const MediaDemande& media)
{
    FrmGetDrive fenetre(media, QApplication::activeWindow());
    fenetre.exec();
    return fenetre.Lettre();
}
