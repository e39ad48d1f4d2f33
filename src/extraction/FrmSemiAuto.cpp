#include "extraction/FrmSemiAuto.h"

#include <algorithm>
#include <utility>

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

#include "catalogue/Medias.h"
#include "commun/Formes.h"
#include "extraction/Animation.h"
#include "extraction/Extraction.h"
#include "extraction/FrmResultat.h"
#include "extraction/RangeeOnglets.h"
#include "fenetres/Etiquette.h"
#include "fenetres/ImagesLecteur.h"
#include "fenetres/Place.h"
#include "fenetres/TextesQt.h"
#include "fenetres/TravailFenetre.h"
#include "platform/Lecteurs.h"
#include "store/ClesReglages.h"
#include "store/CycleBase.h"

namespace {

constexpr int HauteurAvecDetails = 8750;  // twips
constexpr int HauteurSansDetails = 6390;
constexpr int LargeurInitiale = 700;  // pixels
constexpr int HauteurDuTitre = 40;    // that a desktop puts on top of a window, at most

}  // namespace

FrmSemiAuto::FrmSemiAuto(Dialogues& dialogues, Travail& travail, FabriqueCourseCD courseCD,
                         std::function<std::vector<LecteurVu>()> machine)
    : QWidget(nullptr, Qt::Window),
      dialogues_(dialogues),
      travail_(travail),
      courseCD_(std::move(courseCD)),
      machine_(std::move(machine)),
      lecteurs_(ReveilFenetre(this, [this] { lecteurs_.Livrer(); })),
      panneaux_(*this)
{
    setWindowTitle("Ajout des Médias");
    MontrerCatalogue();
    for (int indice = 0; indice < 4; ++indice)
        panneaux_.compression[indice]->setChecked(etat_.Compression(indice));
    panneaux_.listeExtensions->setCurrentIndex(etat_.Filtre());
    Relier();

    LibelleOK(false);
    ActiverOK();
    MontrerDetails();
    PlacerFenetre(*this, CleTopExtract, CleLeftExtract);
    panneaux_.identifiant->setFocus();
    ConsulterLecteurs(0);
}

FrmSemiAuto::~FrmSemiAuto()
{
    if (!course_)
        return;
    questionPosee_ = true;  // nobody is told of the end any more
    course_->Abandonner();
    travail_.Attendre();
    RetirerMediaAbandonne();
}

void FrmSemiAuto::MontrerCatalogue()
{
    GarantirBase(true);
    const std::string base = BaseCourante();
    panneaux_.catalogue->setText(EnQString(base));
    panneaux_.catalogue->setToolTip(EnBulle(base));
    Dire("");
}

void FrmSemiAuto::Reprendre()
{
    MontrerCatalogue();
    ConsulterLecteurs(etat_.Lettre());
}

void FrmSemiAuto::Relier()
{
    for (const auto& [onglets, rangee] : {std::pair{panneaux_.menu, 0}, std::pair{panneaux_.menuA, 1}})
        connect(onglets, &RangeeOnglets::Presse, this, [this, rangee = rangee](int numero) {
            PresserOnglet({rangee, numero});
        });
    connect(panneaux_.actualiser, &QPushButton::clicked, this, [this] { ConsulterLecteurs(0); });
    connect(panneaux_.dossier, &QPushButton::clicked, this, &FrmSemiAuto::ChoisirDossier);
    for (QLineEdit* boite : {panneaux_.identifiant, panneaux_.nom})
        connect(boite, &QLineEdit::returnPressed, this, [this] { panneaux_.ok->click(); });
    connect(panneaux_.ok, &QPushButton::clicked, this, &FrmSemiAuto::PresserOK);
    panneaux_.ok->installEventFilter(this);
    for (int indice = 0; indice < 4; ++indice)
        connect(panneaux_.compression[indice], &QCheckBox::clicked, this, [this, indice] {
            etat_.BasculerCompression(indice);
            panneaux_.compression[indice]->setChecked(etat_.Compression(indice));
        });
    connect(panneaux_.listeExtensions, &QComboBox::activated, this, [this](int rang) {
        etat_.ChoisirFiltre(rang);
        RemplirListe();
    });
    connect(panneaux_.etapes, &QPushButton::clicked, this, [this] {
        const OngletLecteur voulu = etat_.BasculerDetails();
        MontrerDetails();
        if (voulu != etat_.Onglet())
            PresserOnglet(voulu);
        RemplirListe();
    });
    connect(panneaux_.bouton, &QPushButton::clicked, this, [this] {
        Memoriser();
        emit catalogueVoulu();
    });
    connect(new QShortcut(QKeySequence("Ctrl+Q"), this), &QShortcut::activated, this, [this] {
        EnCours() ? Echapper() : emit sortieVoulue();
    });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &FrmSemiAuto::Echapper);
    suivi_.setInterval(50);
    connect(&suivi_, &QTimer::timeout, this, &FrmSemiAuto::Suivre);
}

void FrmSemiAuto::ConsulterLecteurs(char voulue)
{
    const auto vus = std::make_shared<std::vector<LecteurVu>>();
    lecteurs_.Demander([vus, machine = machine_](const std::stop_token&) { *vus = machine(); },
                       [this, vus, voulue] {
                           etat_.RecevoirLecteurs(*vus);
                           if (panneaux_.RemplirOnglets(etat_.Lecteurs(0), etat_.Lecteurs(1)))
                               MontrerDetails();
                           OngletLecteur onglet = etat_.OngletDe(voulue);
                           if (!onglet.Choisi())
                               onglet = etat_.AChoisir();
                           if (onglet.rangee == 1 && onglet.Choisi() && !etat_.DetailsMontres()) {
                               etat_.BasculerDetails();
                               MontrerDetails();
                           }
                           if (onglet.Choisi())
                               PresserOnglet(onglet);
                           else
                               AfficherLecteur();
                       });
    ActiverOK();
}

void FrmSemiAuto::PresserOnglet(const OngletLecteur& onglet)
{
    etat_.Choisir(onglet);
    panneaux_.menu->Choisir(onglet.rangee == 0 ? onglet.numero : OngletLecteur::Aucun);
    panneaux_.menuA->Choisir(onglet.rangee == 1 ? onglet.numero : OngletLecteur::Aucun);
    const auto regarde = std::make_shared<LecteurRegarde>();
    const char lettre = etat_.Lettre();
    if (lettre == 0) {
        lecteurs_.Arreter();
        AfficherLecteur();
        return;
    }
    lecteurs_.Demander([regarde, lettre](const std::stop_token& arret) { *regarde = RegarderLecteur(lettre, arret); },
                       [this, regarde, onglet] {
                           regarde_ = std::move(*regarde);
                           const bsDrive& lecteur = regarde_.lecteur;
                           (onglet.rangee == 0 ? panneaux_.menu : panneaux_.menuA)
                               ->Renommer(onglet.numero,
                                          QString::fromStdString(lecteur.Drive() + " [" + lecteur.DriveLabel() + "]"));
                           AfficherLecteur();
                       });
    ActiverOK();
}

void FrmSemiAuto::AfficherLecteur()
{
    if (etat_.Lettre() == 0)
        regarde_ = {};
    const InfosLecteur& infos = regarde_.infos;
    const std::string* textes[] = {&infos.serie, &infos.standard, &infos.type,
                                   &infos.total, &infos.occupe,   &infos.libre};
    for (int rang = 0; rang < 6; ++rang)
        panneaux_.valeurs[rang]->setText(QString::fromStdString(*textes[rang]));
    const uint32_t type = regarde_.lecteur.DriveType();
    panneaux_.image->setPixmap(etat_.Lettre() == 0 ? QPixmap() : IconeLecteur(type).pixmap(panneaux_.image->size()));
    if (etat_.Lettre() != 0)
        EcrireIconeTemporaire(type);
    RemplirListe();
    ActiverOK();
}

void FrmSemiAuto::ChoisirDossier()
{
    const std::string dossier = dialogues_.ChoisirDossier("Dossier à cataloguer");
    if (dossier.empty())
        return;
    const char lettre = LettreDuDossier(dossier);
    if (lettre == 0)
        dialogues_.Informer("Aucune lettre de lecteur n'est libre pour ce dossier !");
    else
        ConsulterLecteurs(lettre);
}

void FrmSemiAuto::MontrerDetails()
{
    const bool montrer = etat_.DetailsMontres();
    panneaux_.details->setVisible(montrer);
    panneaux_.etapes->setText(montrer ? " Cacher &Détails " : " Montrer &Détails ");
    panneaux_.etapes->setToolTip(montrer ? " Cliquer ICI pour cacher les détails "
                                         : " Cliquer ICI pour accéder aux détails ");
    if (isMaximized() || isFullScreen())
        return;
    const int hauteur = static_cast<int>((montrer ? HauteurAvecDetails : HauteurSansDetails) / TwipsParPixel);
    const QSize voulue = panneaux_.TailleVoulue().expandedTo({isVisible() ? width() : LargeurInitiale, hauteur});
    const QSize place = screen()->availableSize() - QSize(0, HauteurDuTitre);
    const int defilement = voulue.height() > place.height() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    resize((voulue + QSize(defilement, 0)).boundedTo(place));
}

void FrmSemiAuto::RemplirListe()
{
    panneaux_.liste->clear();
    QStringList textes;
    for (const std::string& nom : regarde_.noms)
        if (etat_.Montre(nom))
            textes.append(QString::fromStdString(nom));
    panneaux_.liste->addItems(textes);
}

void FrmSemiAuto::PresserOK()
{
    panneaux_.ok->setChecked(false);
    if (phase_ == Phase::Course)
        Abandonner();
    else if (phase_ == Phase::Repos)
        Lancer();
}

void FrmSemiAuto::Echapper()
{
    if (phase_ == Phase::Course && !questionPosee_)
        Abandonner();
    else if (phase_ == Phase::Repos)
        close();
}

void FrmSemiAuto::Lancer()
{
    phase_ = Phase::Verification;
    panneaux_.Activer(false);
    panneaux_.ok->setEnabled(false);
    panneaux_.animation->Demarrer();
    panneaux_.liste->clear();
    panneaux_.ligne->clear();
    avis_.clear();

    const DemandeMedia demande{panneaux_.identifiant->text().toStdString(), panneaux_.nom->text().toStdString(),
                               regarde_.lecteur.Drive(), regarde_.infos};
    travail_.Executer(Place::Commande, [this, demande] {
        const ReponseMedia reponse = VerifierCatalogue(demande, dialogues_);
        if (reponse.accepte) {
            DemarrerCourse(reponse);
            return;
        }
        ExitRecherche();
        if (reponse.baseFermee)
            Dire("La base n'a pas pu être ouverte : le média n'a pas été ajouté au catalogue.");
        (reponse.fautif == ChampFautif::Nom ? panneaux_.nom : panneaux_.identifiant)->setFocus();
    });
}

void FrmSemiAuto::DemarrerCourse(const ReponseMedia& media)
{
    const InfosLecteur& infos = regarde_.infos;
    const bool vide = infos.total == " 0 Bytes";
    if (vide && courseCD_ && regarde_.lecteur.DriveType() == LecteurOptique)
        course_ = courseCD_(media.base, media.numero, etat_.Lettre(), this);
    else
        course_ = std::make_unique<Extraction>(media.base, media.numero, etat_.Lettre(), infos.octetsOccupes, vide);
    finie_ = false;
    phase_ = Phase::Course;
    LibelleOK(true);
    panneaux_.ok->setEnabled(true);
    panneaux_.ok->setFocus();
    panneaux_.MontrerAvancement(true);
    setCursor(Qt::BusyCursor);
    Suivre();
    travail_.Demander(
        Place::Course, [this](const std::stop_token&) { fin_ = course_->Executer(); },
        [this] {
            finie_ = true;
            if (!questionPosee_)
                Terminer();
        });
    suivi_.start();
}

// The run goes on behind the question; it may even end there.
void FrmSemiAuto::Abandonner()
{
    questionPosee_ = true;
    const bool oui = dialogues_.DemanderAvantPerte("Voulez-vous réellement abandonner la recherche ?");
    questionPosee_ = false;
    if (oui) {
        phase_ = Phase::Finissant;
        course_->Abandonner();
        LibelleOK(false);
        panneaux_.ok->setEnabled(false);
        panneaux_.liste->clear();
        panneaux_.ligne->clear();
    } else {
        fermerEnsuite_ = false;
    }
    if (finie_)
        Terminer();
}

void FrmSemiAuto::Suivre()
{
    if (phase_ != Phase::Course)
        return;
    panneaux_.Suivre(course_->Lire());
}

void FrmSemiAuto::Terminer()
{
    suivi_.stop();
    Suivre();
    const bool abandonnee = phase_ == Phase::Finissant || fin_ == FinExtraction::Abandonnee;
    RetirerMediaAbandonne();
    unsetCursor();
    if (!abandonnee && fin_ == FinExtraction::Complete)
        Conclure();

    course_.reset();
    ExitRecherche();
    if (!abandonnee && fin_ == FinExtraction::Echec)
        Dire("La base n'a pas pu être écrite : le média n'a pas été ajouté au catalogue.");
    panneaux_.identifiant->setFocus();
    if (fermerEnsuite_)
        close();
}

// The answer came when the last row was already written: the media goes all the same.
void FrmSemiAuto::RetirerMediaAbandonne()
{
    if (phase_ == Phase::Finissant && fin_ == FinExtraction::Complete)
        SupprimerMedia(Str(course_->Media()), course_->CheminBase());
}

void FrmSemiAuto::Conclure()
{
    panneaux_.pourcentage->setText("100 %");
    panneaux_.progression->setRange(0, PanneauxAssistant::PleineBarre);
    panneaux_.progression->setValue(PanneauxAssistant::PleineBarre);
    FixerIconesARecharger(true);
    FixerArbreARecharger(true);
    panneaux_.animation->Arreter();
    panneaux_.ok->setEnabled(false);
    FrmResultat(course_->Lire().compteurs, this).exec();
    panneaux_.identifiant->clear();
}

void FrmSemiAuto::LibelleOK(bool enCours)
{
    panneaux_.ok->setText(enCours ? "&Abandon" : "&Recherche");
    panneaux_.ok->setToolTip(enCours ? " Cliquer ICI pour annuler l'extraction "
                                     : " Cliquer ICI pour commencer l'extraction ");
}

// A drive can be read once it is known.
void FrmSemiAuto::ActiverOK()
{
    panneaux_.ok->setEnabled(etat_.Lettre() != 0 && !EnConsultation());
}

void FrmSemiAuto::ExitRecherche()
{
    phase_ = Phase::Repos;
    panneaux_.MontrerAvancement(false);
    Dire("");
    panneaux_.animation->Arreter();
    LibelleOK(false);
    panneaux_.Activer(true);
    ActiverOK();
    RemplirListe();
}

// What came of the last press and, once, what became of the bases.
void FrmSemiAuto::Dire(const QString& texte)
{
    avis_ = avis_.isEmpty() ? QString::fromStdString(ReprendreAvis()) : avis_;
    panneaux_.ligne->setText(texte.isEmpty() ? avis_ : texte + (avis_.isEmpty() ? "" : "  " + avis_));
}

void FrmSemiAuto::Memoriser()
{
    EnregistrerPlace(*this, CleTopExtract, CleLeftExtract);
}

void FrmSemiAuto::closeEvent(QCloseEvent* evenement)
{
    evenement->ignore();
    if (EnCours()) {
        if (phase_ == Phase::Course && !questionPosee_) {
            fermerEnsuite_ = true;
            Abandonner();
        }
        return;
    }
    Memoriser();
    emit fermetureVoulue();
}

// The colour of the button's text follows the pointer. Enter held down does not start a run and give it up again.
bool FrmSemiAuto::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() == QEvent::Enter || evenement->type() == QEvent::Leave) {
        QPalette couleurs;
        if (evenement->type() == QEvent::Enter)
            couleurs.setColor(QPalette::ButtonText, palette().color(QPalette::Link));
        panneaux_.ok->setPalette(couleurs);
    }
    if (evenement->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evenement)->isAutoRepeat())
        return true;
    return QWidget::eventFilter(objet, evenement);
}
