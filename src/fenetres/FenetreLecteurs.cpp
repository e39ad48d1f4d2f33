#include "fenetres/FenetreLecteurs.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "fenetres/ImagesLecteur.h"
#include "fenetres/TravailFenetre.h"

namespace {

QString Nom(char lettre)
{
    return QString(QChar::fromLatin1(lettre)).toUpper() + ":";
}

}  // namespace

FenetreLecteurs::FenetreLecteurs(Dialogues& dialogues, QWidget* parent)
    : QWidget(parent),
      dialogues_(dialogues),
      consultation_(ReveilFenetre(this, [this] { consultation_.Livrer(); })),
      liste_(new QTreeWidget)
{
    liste_->setObjectName("ListeLecteurs");
    liste_->setAccessibleName("Lecteurs");
    liste_->setHeaderLabels({"Lecteur", "Emplacement"});
    liste_->setRootIsDecorated(false);
    liste_->setUniformRowHeights(true);
    liste_->setTextElideMode(Qt::ElideMiddle);
    liste_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    libres_ = new QComboBox;
    libres_->setObjectName("Libres");
    auto* etiquette = new QLabel("Le&ttre :");
    etiquette->setBuddy(libres_);
    donner_ = new QPushButton("Donner à un do&ssier…");
    donner_->setObjectName("Donner");
    donner_->setToolTip(" Cliquer ICI pour choisir un dossier comme lecteur ");
    retirer_ = new QPushButton("&Retirer la lettre");
    retirer_->setObjectName("Retirer");
    retirer_->setToolTip(" Cliquer ICI pour que la lettre choisie redevienne libre ");

    auto* rangee = new QHBoxLayout;
    rangee->addWidget(etiquette);
    rangee->addWidget(libres_);
    rangee->addWidget(donner_);
    rangee->addStretch(1);
    rangee->addWidget(retirer_);
    auto* mise = new QVBoxLayout(this);
    mise->addWidget(liste_, 1);
    mise->addLayout(rangee);
    setFocusProxy(liste_);

    connect(donner_, &QPushButton::clicked, this, &FenetreLecteurs::Donner);
    connect(retirer_, &QPushButton::clicked, this, &FenetreLecteurs::Retirer);
    connect(liste_, &QTreeWidget::currentItemChanged, this, &FenetreLecteurs::ActiverRetrait);
}

void FenetreLecteurs::showEvent(QShowEvent* evenement)
{
    QWidget::showEvent(evenement);
    const int rang = liste_->indexOfTopLevelItem(liste_->currentItem());
    Consulter(rang < 0 ? '\0' : lettres_[static_cast<size_t>(rang)].lettre);
}

void FenetreLecteurs::Consulter(char choisie)
{
    const auto vues = std::make_shared<std::vector<LettreDonnee>>();
    consultation_.Demander([vues](const std::stop_token&) { *vues = LettresDonnees(); },
                           [this, vues, choisie] {
                               lettres_ = std::move(*vues);
                               Remplir(choisie);
                           });
}

// With this letter as the current one, else the first.
void FenetreLecteurs::Remplir(char choisie)
{
    liste_->clear();
    libres_->clear();
    for (const LettreDonnee& donnee : lettres_) {
        const QString emplacement = QString::fromStdString(donnee.cible) + (donnee.presente ? "" : " (absent)");
        auto* ligne = new QTreeWidgetItem(liste_, {Nom(donnee.lettre), emplacement});
        ligne->setIcon(0, IconeLecteur(donnee.type));
        ligne->setToolTip(1, emplacement);
        if (donnee.lettre == choisie || donnee.lettre == lettres_.front().lettre)
            liste_->setCurrentItem(ligne);
    }
    // The first two are for diskettes, but the user may know better: they come last.
    for (const char lettre : std::string_view("defghijklmnopqrstuvwxyzab")) {
        const bool prise = std::any_of(lettres_.begin(), lettres_.end(),
                                       [&](const LettreDonnee& donnee) { return donnee.lettre == lettre; });
        if (!prise)
            libres_->addItem(Nom(lettre), QChar::fromLatin1(lettre));
    }
    libres_->setEnabled(libres_->count() > 0);
    donner_->setEnabled(libres_->count() > 0);
    ActiverRetrait();
}

void FenetreLecteurs::ActiverRetrait()
{
    const int rang = liste_->indexOfTopLevelItem(liste_->currentItem());
    retirer_->setEnabled(rang >= 0 && lettres_[static_cast<size_t>(rang)].retirable);
}

void FenetreLecteurs::Donner()
{
    const std::string dossier = dialogues_.ChoisirDossier("Dossier à voir comme lecteur");
    if (dossier.empty())
        return;
    const char lettre = libres_->currentData().toChar().toLatin1();
    if (!DonnerLettre(lettre, dossier))
        dialogues_.Informer("La lettre n'a pas pu être donnée à ce dossier !");
    Consulter(lettre);
    liste_->setFocus();
}

void FenetreLecteurs::Retirer()
{
    const int rang = liste_->indexOfTopLevelItem(liste_->currentItem());
    if (rang < 0)
        return;
    const LettreDonnee& donnee = lettres_[static_cast<size_t>(rang)];
    if (!dialogues_.DemanderAvantPerte("Voulez-vous réellement retirer la lettre " + Nom(donnee.lettre).toStdString() +
                                       " de : " + donnee.cible + " ?"))
        return;
    RetirerLettre(donnee.lettre);
    // The one that moves up takes its place in the list.
    const auto voisin = static_cast<size_t>(rang) + 1 < lettres_.size() ? rang + 1 : std::max(rang - 1, 0);
    Consulter(lettres_[static_cast<size_t>(voisin)].lettre);
    liste_->setFocus();
}
