#include "listings/frmImpression.h"

#include <utility>

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include "commun/Formes.h"
#include "fenetres/Place.h"
#include "fenetres/TextesQt.h"
#include "listings/ImprimerListing.h"
#include "platform/Bureau.h"
#include "platform/FormesLocales.h"
#include "platform/OperationsFichiers.h"

namespace {

constexpr size_t LimiteApercu = size_t{1} << 18;  // bytes of the listing
constexpr size_t LimitePapier = size_t{1} << 23;  // some hundreds of pages

}  // namespace

struct frmImpression::Listing {
    DemandeListing demande;
    ResultatListing resultat;
    ApercuListing apercu;
};

frmImpression::frmImpression(Dialogues& dialogues, Travail& travail, const ArbreCatalogue& arbre, QWidget* parent)
    : QMainWindow(parent), dialogues_(dialogues), travail_(travail), arbre_(arbre), panneaux_(*this)
{
    setWindowTitle("Velourne - Listings");
    setContextMenuPolicy(Qt::NoContextMenu);
    Relier();
    PlacerFenetrePrincipale(*this);
    MontrerEtat();
    panneaux_.Vider();
    Liberer({});
}

// What was asked for this window stops.
frmImpression::~frmImpression()
{
    travail_.Arreter(Place::Listing);
    travail_.Attendre();
}

void frmImpression::Relier()
{
    for (int i = 0; i < NombreColonnesListing; ++i)
        connect(panneaux_.opt[i], &QCheckBox::clicked, this, [this, i](bool active) { etat_.ChangerOpt(i, active); });
    for (int i = 0; i < NombreFormatsListing; ++i)
        connect(panneaux_.optFormat[i], &QRadioButton::clicked, this, [this, i] { etat_.ChoisirFormat(i); });
    connect(panneaux_.lMedias, &QComboBox::activated, this, [this](int rang) { etat_.ChoisirMedia(rang); });
    connect(panneaux_.ok, &QPushButton::clicked, this, &frmImpression::PresserOK);
    connect(panneaux_.ouvrir, &QPushButton::clicked, this, &frmImpression::OuvrirListing);
    connect(panneaux_.imprimer, &QPushButton::clicked, this, &frmImpression::ImprimerPapier);
    connect(panneaux_.pdf, &QPushButton::clicked, this, &frmImpression::ImprimerPdf);
    connect(panneaux_.catalogue, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &frmImpression::Echapper);
    connect(new QShortcut(QKeySequence("Ctrl+Q"), this), &QShortcut::activated, this, &frmImpression::sortieVoulue);
    suivi_.setInterval(50);
    connect(&suivi_, &QTimer::timeout, this, [this] {
        const double part = part_ ? part_->load(std::memory_order_relaxed) : 0;
        panneaux_.barre->setValue(static_cast<int>(part * panneaux_.barre->maximum()));
    });
}

void frmImpression::MontrerEtat()
{
    for (int i = 0; i < NombreColonnesListing; ++i)
        panneaux_.opt[i]->setChecked(etat_.Opt(i));
    for (int i = 0; i < NombreFormatsListing; ++i)
        panneaux_.optFormat[i]->setChecked(etat_.OptFormat(i));
}

void frmImpression::Ouvrir()
{
    travail_.Executer(Place::Commande, [this] {
        etat_.ChargerMedias();
        panneaux_.lMedias->clear();
        for (const std::string& media : etat_.Medias())
            panneaux_.lMedias->addItem(EnQString(media));
        panneaux_.lMedias->setCurrentIndex(etat_.RangMedia());
    });
    panneaux_.ok->setFocus();
}

void frmImpression::Memoriser()
{
    EnregistrerPlacePrincipale(*this);
}

// Pressed again while something runs, the button gives it up.
void frmImpression::PresserOK()
{
    if (EnCours())
        Annuler();
    else
        Ecrire();
}

// A listing given up leaves the last one as it was.
void frmImpression::Annuler()
{
    travail_.Arreter(Place::Listing);
    Liberer("Abandonné");
}

void frmImpression::Ecrire()
{
    if (!etat_.UneColonne()) {
        dialogues_.Informer("Veuillez sélectionner au moins une information à éditer !");
        return;
    }
    Occuper("Listing en cours ...");
    const auto listing = std::make_shared<Listing>();
    listing->demande = etat_.Demande();
    travail_.Demander(
        Place::Listing,
        [this, listing, part = part_](const std::stop_token& arret) {
            listing->resultat = EcrireListing(arbre_, listing->demande, arret, *part);
            if (listing->resultat.ecrit)
                listing->apercu = LireApercu(arbre_, listing->demande, LimiteApercu, arret);
        },
        [this, listing] { Recevoir(*listing); });
}

void frmImpression::Recevoir(const Listing& listing)
{
    const ResultatListing& resultat = listing.resultat;
    if (!resultat.ecrit) {
        Liberer({});
        dialogues_.Informer(resultat.erreur);
        return;
    }
    ecrite_ = listing.demande;
    panneaux_.Montrer(listing.demande.format, listing.apercu);
    Liberer(QString("%1 :%2 fichier(s),%3 répertoire(s), %4")
                .arg(EnQString(listing.demande.chemin), EnQString(Str(resultat.bilan.lignes)),
                     EnQString(Str(resultat.bilan.repertoires)),
                     EnQString(FormatTaille(static_cast<double>(resultat.octets)))));
}

void frmImpression::OuvrirListing()
{
    if (!ecrite_)
        return;
    if (!FichierExiste(ecrite_->chemin) || !OuvrirAvecBureau(ecrite_->chemin))
        dialogues_.Informer("Le listing n'a pas pu être ouvert !");
}

void frmImpression::ImprimerPapier()
{
    if (!ecrite_)
        return;
    const auto imprimante = std::make_shared<QPrinter>();
    QPrintDialog dialogue(imprimante.get(), this);
    dialogue.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (dialogue.exec() == QDialog::Accepted)
        Imprimer(imprimante, imprimante->outputFileName().toStdString());
}

void frmImpression::ImprimerPdf()
{
    if (!ecrite_)
        return;
    DemandeFichier demande;
    demande.titre = "Enregistrer le listing";
    demande.filtre = "Fichiers PDF (*.pdf)";
    demande.suffixe = "pdf";
    demande.depart = ecrite_->chemin.substr(0, ecrite_->chemin.rfind('.')) + ".pdf";
    demande.ecrire = true;
    demande.confirmer = true;
    const std::string chemin = dialogues_.ChoisirFichier(demande);
    if (chemin.empty())
        return;
    const auto imprimante = std::make_shared<QPrinter>();
    imprimante->setOutputFormat(QPrinter::PdfFormat);
    imprimante->setOutputFileName(EnQString(chemin));
    Imprimer(imprimante, chemin);
}

// What is printed is the listing that was written, read anew; a very long one as far as paper makes sense.
void frmImpression::Imprimer(std::shared_ptr<QPrinter> imprimante, const std::string& chemin)
{
    Occuper("Impression en cours ...");
    struct Impression {
        bool reussie = false, entiere = true;
    };
    const auto impression = std::make_shared<Impression>();
    travail_.Demander(
        Place::Listing,
        [this, imprimante, impression, demande = *ecrite_](const std::stop_token& arret) {
            const ApercuListing contenu = LireApercu(arbre_, demande, LimitePapier, arret);
            if (arret.stop_requested())
                return;
            impression->entiere = contenu.entier;
            impression->reussie = ImprimerListing(*imprimante, demande.format, contenu);
        },
        [this, impression, chemin] {
            const bool reussie = impression->reussie && (chemin.empty() || FichierExiste(chemin));
            Liberer(!reussie              ? QString()
                    : impression->entiere ? QString("Listing imprimé")
                                          : QString("Seul le début du listing est imprimé."));
            if (!reussie)
                dialogues_.Informer("Le listing n'a pas pu être imprimé !");
        });
}

void frmImpression::Occuper(const char* texte)
{
    part_ = std::make_shared<std::atomic<double>>(0);
    panneaux_.ok->setText("Ann&uler");
    panneaux_.ok->setToolTip(" Abandonner ");
    for (QPushButton* bouton : {panneaux_.ouvrir, panneaux_.imprimer, panneaux_.pdf})
        bouton->setEnabled(false);
    panneaux_.commentaire->setText(texte);
    panneaux_.barre->setValue(0);
    panneaux_.barre->show();
    setCursor(Qt::BusyCursor);
    suivi_.start();
}

void frmImpression::Liberer(const QString& texte)
{
    part_.reset();
    suivi_.stop();
    panneaux_.ok->setText("&OK");
    panneaux_.ok->setToolTip(" Ecrire le listing ");
    for (QPushButton* bouton : {panneaux_.ouvrir, panneaux_.imprimer, panneaux_.pdf})
        bouton->setEnabled(ecrite_.has_value());
    panneaux_.commentaire->setText(texte);
    panneaux_.barre->hide();
    unsetCursor();
}

// One step back: the work first, then the window.
void frmImpression::Echapper()
{
    if (EnCours())
        Annuler();
    else
        close();
}

// The next base may be another one: nothing of this listing stays.
void frmImpression::closeEvent(QCloseEvent* evenement)
{
    evenement->ignore();
    if (EnCours())
        Annuler();
    Memoriser();
    ecrite_.reset();
    panneaux_.Vider();
    Liberer({});
    emit fermetureVoulue();
}
