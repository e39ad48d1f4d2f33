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
#include "fenetres/TextesQt.h"
#include "fenetres/TravailFenetre.h"

namespace {

constexpr int EntreDeuxRegards = 1500;  // milliseconds

}  // namespace

FrmGetDrive::FrmGetDrive(const MediaDemande& media, QWidget* parent)
    : QDialog(parent),
      media_(media),
      lecteurs_(ReveilFenetre(this, [this] { lecteurs_.Livrer(); })),
      verification_(ReveilFenetre(this, [this] { verification_.Livrer(); })),
      liste_(new QTreeWidget),
      avis_(new QLabel),
      valider_(new QPushButton("     &Valider"))
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
    avis_->setObjectName("Avis");
    mise->addWidget(avis_);

    auto* annuler = new QPushButton("      &Annuler");
    valider_->setDefault(true);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    boutons->addWidget(valider_);
    boutons->addWidget(annuler);
    mise->addLayout(boutons);

    connect(valider_, &QPushButton::clicked, this, &FrmGetDrive::Valider);
    connect(annuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(liste_, &QTreeWidget::itemSelectionChanged, this, &FrmGetDrive::Choisir);
    connect(liste_, &QTreeWidget::itemDoubleClicked, this, &FrmGetDrive::Valider);
    liste_->setFocus();
    Choisir();
    regard_.setInterval(EntreDeuxRegards);
    connect(&regard_, &QTimer::timeout, this, &FrmGetDrive::Regarder);
    regard_.start();
    Regarder();
    resize(std::max(sizeHint().width(), fontMetrics().averageCharWidth() * 60), sizeHint().height());
}

void FrmGetDrive::Regarder()
{
    if (lecteurs_.EnCours())
        return;
    const auto vus = std::make_shared<std::vector<LecteurVu>>();
    lecteurs_.Demander([vus](const std::stop_token&) { *vus = RegarderLecteurs(); }, [this, vus] { Remplir(*vus); });
}

// None is chosen but by the user.
void FrmGetDrive::Remplir(const std::vector<LecteurVu>& lecteurs)
{
    if (lecteurs == vus_)
        return;
    const char choisie = Choisie();
    vus_ = lecteurs;
    {
        const QSignalBlocker silence(liste_);
        liste_->clear();
        for (const LecteurVu& lecteur : lecteurs) {
            auto* ligne =
                new QTreeWidgetItem(liste_, {EnQString(lecteur.libelle), QString(NomTypeLecteur(lecteur.type))});
            ligne->setIcon(0, IconeLecteur(lecteur.type));
            ligne->setToolTip(0, EnBulle(lecteur.emplacement));
            if (lecteur.lettre == choisie)
                liste_->setCurrentItem(ligne);
        }
    }
    if (Choisie() != choisie)
        Choisir();
}

char FrmGetDrive::Choisie() const
{
    const auto choisis = liste_->selectedItems();
    return choisis.isEmpty() ? '\0' : vus_[static_cast<size_t>(liste_->indexOfTopLevelItem(choisis.first()))].lettre;
}

void FrmGetDrive::Choisir()
{
    verification_.Arreter();
    avis_->clear();
    valider_->setEnabled(Choisie() != 0);
}

void FrmGetDrive::Valider()
{
    const char lettre = Choisie();
    if (lettre == 0 || verification_.EnCours())
        return;
    if (!media_.contient) {
        Retenir(lettre);
        return;
    }
    const QString lecteur = "Le lecteur " + QString(QChar::fromLatin1(LettreCapitale(lettre))) + ": ";
    avis_->setText(lecteur + "est interrogé ...");
    const auto trouve = std::make_shared<bool>(false);
    verification_.Demander(
        [trouve, lettre, contient = media_.contient](const std::stop_token&) { *trouve = contient(lettre); },
        [this, trouve, lettre, lecteur] {
            if (*trouve)
                Retenir(lettre);
            else
                avis_->setText(lecteur + "ne contient pas l'élément demandé !");
        });
}

void FrmGetDrive::Retenir(char lettre)
{
    lettre_ = LettreCapitale(lettre);
    ModifierCatalogueDisque(media_.identifiant, std::string(1, lettre_));
    accept();
}

char ChoixParFenetre::Choisir(const MediaDemande& media)
{
    FrmGetDrive fenetre(media, QApplication::activeWindow());
    fenetre.exec();
    return fenetre.Lettre();
}
