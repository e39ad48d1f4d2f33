#include "extraction/FrmSemiAuto.h"

#include <algorithm>

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include "archives/ListerArchive.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "extraction/Animation.h"
#include "extraction/FiltreFichiers.h"
#include "extraction/FrmResultat.h"
#include "extraction/RangeeOnglets.h"
#include "extraction/VerifierCatalogue.h"
#include "fenetres/Etiquette.h"
#include "fenetres/ImagesLecteur.h"
#include "fenetres/Place.h"
#include "platform/Lecteurs.h"
#include "platform/Parcours.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

constexpr const char* CacherDetails = " Cacher Détails ";
constexpr const char* MontrerLesDetails = " Montrer Détails ";
constexpr const char* AucunOnglet = "A99";
constexpr int HauteurAvecDetails = 8750;  // twips
constexpr int HauteurSansDetails = 6390;
constexpr int LargeurInitiale = 700;  // pixels
constexpr int PleineBarre = 10000;

struct TexteCompression {
    const char* libelle;
    const char* bulle;
};
constexpr TexteCompression Compressions[] = {
    {"Lecture des fichiers .&ZIP", " Inclure l'extraction des informations contenues dans les fichiers .ZIP "},
    {"Lecture des fichiers .AR&J", " Inclure l'extraction des informations contenues dans les fichiers .ARJ "},
    {"Lecture des fichiers .&LHA,.LZH",
     " Inclure l'extraction des informations contenues dans les fichiers .LHA et .LZH "},
    {"Lecture des &fichiers .RAR", " Inclure l'extraction des informations contenues dans les fichiers .RAR "},
};

std::string_view CleCompression(int indice)
{
    return SortesArchives()[static_cast<size_t>(indice)].cle;
}

// Discs that can be taken out have the first row of tabs, those that stay the second.
bool EstAmovible(uint32_t type)
{
    return type == LecteurAmovible || type == LecteurOptique;
}

void Garder(QWidget* controle)
{
    // Keeps its place while it is hidden, so that nothing jumps when a run starts or ends.
    QSizePolicy politique = controle->sizePolicy();
    politique.setRetainSizeWhenHidden(true);
    controle->setSizePolicy(politique);
    controle->hide();
}

}  // namespace

FrmSemiAuto::FrmSemiAuto(Dialogues& dialogues, QWidget* parent) : QWidget(parent, Qt::Window), dialogues_(dialogues)
{
    GarantirBase(true);
    setWindowTitle("Ajout des Médias");

    auto* corps = new QHBoxLayout;
    corps->setSpacing(16);
    corps->addWidget(CreerInformations(), 3);
    corps->addWidget(CreerSaisies(), 2);
    auto* mise = new QVBoxLayout(this);
    mise->addWidget(CreerMedias());
    mise->addLayout(corps);
    mise->addWidget(CreerAvancement());
    mise->addWidget(CreerDetails(), 1);
    mise->addStretch();
    mise->addWidget(CreerBarre());

    suivi_.setInterval(50);
    connect(&suivi_, &QTimer::timeout, this, &FrmSemiAuto::Suivre);
    auto* raccourci = new QShortcut(QKeySequence::Quit, this);
    connect(raccourci, &QShortcut::activated, this, [this] {
        if (!EnCours() && quitter)
            quitter();
    });

    LibelleOK(false);
    ok_->setEnabled(false);
    MontrerDetails(GetSetting(SectionSettings, "Methode", CacherDetails) != MontrerLesDetails);
    RemplirOnglets();
    Actualiser();
    PlacerFenetre(*this, "TopExtract", "LeftExtract");
    identifiant_->setFocus();
}

FrmSemiAuto::~FrmSemiAuto()
{
    if (!fil_.joinable())
        return;
    extraction_->Abandonner();
    fil_.join();
    QApplication::restoreOverrideCursor();
}

QWidget* FrmSemiAuto::CreerMedias()
{
    medias_ = new QGroupBox("Médias");
    menu_ = new RangeeOnglets("Aucun support amovible");
    menu_->setObjectName("Menu");
    connect(menu_, &RangeeOnglets::Presse, this, [this](int numero) { PresserOnglet(menu_, numero); });
    auto* actualiser = new QPushButton("Act&ualiser");
    actualiser->setObjectName("Actualiser");
    connect(actualiser, &QPushButton::clicked, this, [this] {
        RemplirOnglets();
        Actualiser();
    });
    auto* dossier = new QPushButton("Dos&sier…");
    dossier->setObjectName("Dossier");
    dossier->setToolTip(" Cliquer ICI pour choisir un dossier comme lecteur ");
    connect(dossier, &QPushButton::clicked, this, &FrmSemiAuto::ChoisirDossier);

    auto* mise = new QHBoxLayout(medias_);
    mise->addWidget(menu_, 1);
    mise->addWidget(actualiser);
    mise->addWidget(dossier);
    return medias_;
}

QWidget* FrmSemiAuto::CreerInformations()
{
    auto* cadre = new QWidget;
    auto* grille = new QGridLayout(cadre);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->setHorizontalSpacing(12);
    grille->setColumnStretch(2, 1);
    image_ = new QLabel;
    image_->setFixedSize(56, 56);
    grille->addWidget(image_, 0, 0, 3, 1, Qt::AlignTop);

    grille->addWidget(new QLabel("Catalogue :"), 0, 1);
    auto* catalogue = new Etiquette;
    catalogue->setText(QString::fromStdString(BaseCourante()));
    catalogue->setToolTip(catalogue->text());
    grille->addWidget(catalogue, 0, 2);
    const char* textes[] = {"N° de série", "Standard", "Type", "Capacité total ", "Espace occupé ", "Espace libre "};
    for (int rang = 0; rang < 6; ++rang) {
        valeurs_[rang] = new QLabel;
        valeurs_[rang]->setObjectName(QString("Information%1").arg(rang));
        valeurs_[rang]->setTextFormat(Qt::PlainText);
        grille->addWidget(new QLabel(textes[rang]), rang + 1, 1);
        grille->addWidget(valeurs_[rang], rang + 1, 2);
    }
    return cadre;
}

QWidget* FrmSemiAuto::CreerSaisies()
{
    auto* cadre = new QWidget;
    auto* mise = new QVBoxLayout(cadre);
    mise->setContentsMargins(0, 0, 0, 0);
    const auto ajouter = [&](const char* texte, const char* nom) {
        auto* etiquette = new QLabel(texte);
        auto* boite = new QLineEdit;
        boite->setObjectName(nom);
        boite->setAccessibleName(QString(texte).remove('&'));
        etiquette->setBuddy(boite);
        connect(boite, &QLineEdit::returnPressed, this, [this] { ok_->click(); });
        mise->addWidget(etiquette);
        mise->addWidget(boite);
        return boite;
    };
    identifiant_ = ajouter("&Identifiant", "Identifiant");
    identifiant_->setMaxLength(255);
    nom_ = ajouter("&Nom", "Label");
    nom_->setMaxLength(254);  // a number as a name is stored with "_" in front

    ok_ = new QPushButton;
    ok_->setObjectName("OK");
    ok_->setCheckable(true);
    ok_->setMinimumHeight(40);
    connect(ok_, &QPushButton::clicked, this, &FrmSemiAuto::PresserOK);
    mise->addStretch(1);
    mise->addWidget(ok_);
    return cadre;
}

QWidget* FrmSemiAuto::CreerAvancement()
{
    auto* cadre = new QWidget;
    auto* grille = new QGridLayout(cadre);
    grille->setContentsMargins(0, 0, 0, 0);
    animation_ = new Animation;
    grille->addWidget(animation_, 0, 0, 2, 1);
    repertoires_ = new QLabel;
    repertoires_->setObjectName("Repertoires");
    fichiers_ = new QLabel;
    fichiers_->setObjectName("Fichiers");
    descriptions_ = new QLabel;
    descriptions_->setObjectName("Descriptions");
    int colonne = 1;
    for (QLabel* compteur : {repertoires_, fichiers_, descriptions_}) {
        // Room for large numbers from the start, so that the window does not grow while they do.
        const QString etalon =
            compteur == descriptions_ ? " 9999999 description(s) extraite(s)" : " 9999999 Répertoire(s) ...";
        compteur->setMinimumWidth(compteur->fontMetrics().horizontalAdvance(etalon));
        grille->addWidget(compteur, 0, colonne);
        grille->setColumnStretch(colonne++, 1);
        Garder(compteur);
    }

    progression_ = new QProgressBar;
    progression_->setRange(0, PleineBarre);
    progression_->setTextVisible(false);
    progression_->setAccessibleName("Progression");
    grille->addWidget(progression_, 1, 1, 1, 3);
    pourcentage_ = new QLabel("100,00 %");
    pourcentage_->setObjectName("Pourcentage");
    pourcentage_->setMinimumWidth(pourcentage_->sizeHint().width());
    pourcentage_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grille->addWidget(pourcentage_, 1, 4);
    Garder(progression_);
    Garder(pourcentage_);
    ligne_ = new Etiquette;
    ligne_->setObjectName("Ligne");
    grille->addWidget(ligne_, 2, 0, 1, 5);
    return cadre;
}

QWidget* FrmSemiAuto::CreerDetails()
{
    details_ = new QWidget;
    details_->setObjectName("Details");
    disques_ = new QGroupBox("Disques ...");
    menuA_ = new RangeeOnglets("Aucun disque");
    menuA_->setObjectName("MenuA");
    connect(menuA_, &RangeeOnglets::Presse, this, [this](int numero) { PresserOnglet(menuA_, numero); });
    auto* rangee = new QHBoxLayout(disques_);
    rangee->addWidget(menuA_);

    compressions_ = new QGroupBox("Les options de compression");
    auto* colonne = new QVBoxLayout(compressions_);
    for (int indice = 0; indice < 4; ++indice) {
        auto* choix = new QCheckBox(Compressions[indice].libelle);
        choix->setObjectName(QString("Compression%1").arg(indice));
        choix->setToolTip(Compressions[indice].bulle);
        const std::string etat = GetSetting(SectionSettings, CleCompression(indice), "0");
        choix->setProperty("tag", QString::fromStdString(etat));
        choix->setChecked(etat == "1");
        connect(choix, &QCheckBox::clicked, this, [this, indice] { PresserCompression(indice); });
        colonne->addWidget(choix);
        compression_[indice] = choix;
    }
    colonne->addStretch(1);

    listeExtensions_ = new QComboBox;
    listeExtensions_->setObjectName("ListeExtensions");
    listeExtensions_->setAccessibleName("Filtre des fichiers");
    for (const FiltreFichiers& filtre : FiltresFichiers())
        listeExtensions_->addItem(QString::fromStdString(filtre.nom));
    const int rang = static_cast<int>(GetSettingNombre(SectionSettings, "Extension", 0));
    listeExtensions_->setCurrentIndex(rang >= 0 && rang < listeExtensions_->count() ? rang : 0);
    connect(listeExtensions_, &QComboBox::activated, this, [this](int choisi) {
        SaveSetting(SectionSettings, "Extension", std::to_string(choisi));
        RemplirListe();
    });
    liste_ = new QListWidget;
    liste_->setObjectName("Liste");
    liste_->setAccessibleName("Contenu du média");
    liste_->setUniformItemSizes(true);
    liste_->setMinimumHeight(3 * fontMetrics().lineSpacing());

    auto* grille = new QGridLayout(details_);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->addWidget(disques_, 0, 0, 1, 2);
    grille->addWidget(compressions_, 1, 0, 2, 1);
    grille->addWidget(listeExtensions_, 1, 1);
    grille->addWidget(liste_, 2, 1);
    grille->setColumnStretch(1, 1);
    grille->setRowStretch(2, 1);
    return details_;
}

QWidget* FrmSemiAuto::CreerBarre()
{
    barre_ = new QWidget;
    etapes_ = new QPushButton;
    etapes_->setObjectName("Etapes");
    connect(etapes_, &QPushButton::clicked, this, &FrmSemiAuto::BasculerEtapes);
    auto* bouton = new QPushButton("&Catalogue");
    bouton->setObjectName("Bouton");
    bouton->setToolTip(" Cliquer ICI pour visualiser les médias mémorisés ");
    connect(bouton, &QPushButton::clicked, this, [this] {
        EnregistrerPlace(*this, "TopExtract", "LeftExtract");
        if (voirCatalogue)
            voirCatalogue();
    });
    auto* mise = new QHBoxLayout(barre_);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(etapes_);
    mise->addStretch(1);
    mise->addWidget(bouton);
    return barre_;
}

void FrmSemiAuto::RemplirOnglets()
{
    std::vector<char> amovibles;
    std::vector<char> fixes;
    for (const char lettre : LettresMachine())
        (EstAmovible(TypeDuLecteur(lettre)) ? amovibles : fixes).push_back(lettre);
    menu_->Remplir(amovibles);
    menuA_->Remplir(fixes);
    lettre_ = 0;
    ok_->setEnabled(false);
}

// Presses the remembered tab; the first one there is when it has gone.
void FrmSemiAuto::Actualiser()
{
    std::string choix = GetSetting(SectionSettings, "Drive", "0");
    if (choix == AucunOnglet)
        choix = "0";
    const size_t a = choix.find('A');
    RangeeOnglets* rangee = a == std::string::npos ? menu_ : menuA_;
    const int numero = std::atoi(choix.c_str() + (a == std::string::npos ? 0 : a + 1));
    if (numero >= 0 && numero < rangee->Nombre() && (rangee == menu_ || DetailsMontres()))
        PresserOnglet(rangee, numero);
    else if (menu_->Nombre() > 0)
        PresserOnglet(menu_, 0);
    else if (menuA_->Nombre() > 0 && DetailsMontres())
        PresserOnglet(menuA_, 0);
    else
        AfficherLecteur(LecteurInexistant);
}

void FrmSemiAuto::PresserOnglet(RangeeOnglets* rangee, int numero)
{
    ok_->setEnabled(true);
    (rangee == menu_ ? menuA_ : menu_)->Choisir(RangeeOnglets::Aucun);
    rangee->Choisir(numero);
    SaveSetting(SectionSettings, "Drive", (rangee == menuA_ ? "A" : "") + std::to_string(numero));

    lettre_ = rangee->Lettre(numero);
    lecteur_.GetInfo(Majuscules(std::string(1, lettre_)));
    infos_ = ::AfficherInfo(lecteur_);
    AfficherLecteur(lecteur_.DriveType());
    rangee->Renommer(numero, QString::fromStdString(lecteur_.Drive() + " [" + lecteur_.DriveLabel() + "]"));
    RemplirListe();
}

void FrmSemiAuto::AfficherLecteur(uint32_t type)
{
    if (lettre_ == 0)
        infos_ = {};
    const std::string* textes[] = {&infos_.serie, &infos_.standard, &infos_.type,
                                   &infos_.total, &infos_.occupe,   &infos_.libre};
    for (int rang = 0; rang < 6; ++rang)
        valeurs_[rang]->setText(QString::fromStdString(*textes[rang]));
    image_->setPixmap(lettre_ == 0 ? QPixmap() : IconeLecteur(type).pixmap(image_->size()));
    if (lettre_ == 0)
        liste_->clear();
    else
        EcrireIconeTemporaire(type);
}

void FrmSemiAuto::ChoisirDossier()
{
    const QString dossier = QFileDialog::getExistingDirectory(this, "Dossier à cataloguer");
    if (dossier.isEmpty())
        return;
    const char lettre = LettreDuDossier(dossier.toStdString());
    if (lettre == 0) {
        dialogues_.Informer("Aucune lettre de lecteur n'est libre pour ce dossier !");
        return;
    }
    RemplirOnglets();
    if (menu_->Position(lettre) != RangeeOnglets::Aucun) {
        PresserOnglet(menu_, menu_->Position(lettre));
        return;
    }
    if (!DetailsMontres())
        BasculerEtapes();
    if (menuA_->Position(lettre) != RangeeOnglets::Aucun)
        PresserOnglet(menuA_, menuA_->Position(lettre));
}

bool FrmSemiAuto::DetailsMontres() const
{
    return !details_->isHidden();
}

void FrmSemiAuto::MontrerDetails(bool montrer)
{
    details_->setVisible(montrer);
    etapes_->setText(montrer ? " Cacher &Détails " : " Montrer &Détails ");
    etapes_->setToolTip(montrer ? " Cliquer ICI pour cacher les détails " : " Cliquer ICI pour accéder aux détails ");
    const int hauteur = static_cast<int>((montrer ? HauteurAvecDetails : HauteurSansDetails) / TwipsParPixel);
    const int largeur = isVisible() ? width() : LargeurInitiale;
    layout()->activate();
    if (!isMaximized() && !isFullScreen())
        resize(std::max(largeur, minimumSizeHint().width()), std::max(hauteur, minimumSizeHint().height()));
}

void FrmSemiAuto::BasculerEtapes()
{
    const bool montrer = !DetailsMontres();
    MontrerDetails(montrer);
    SaveSetting(SectionSettings, "Methode", montrer ? CacherDetails : MontrerLesDetails);
    if (montrer) {
        if (lettre_ == 0)
            Actualiser();
        RemplirListe();
        return;
    }
    // A hidden pane must not leave a drive chosen that the user no longer sees.
    if (menu_->Choisi() != RangeeOnglets::Aucun)
        return;
    menuA_->Choisir(RangeeOnglets::Aucun);
    if (menu_->Nombre() > 0) {
        PresserOnglet(menu_, 0);
        return;
    }
    lettre_ = 0;
    ok_->setEnabled(false);
    SaveSetting(SectionSettings, "Drive", AucunOnglet);
    AfficherLecteur(LecteurInexistant);
}

// Reads the top folder only while it is seen: a disc may need seconds for it.
void FrmSemiAuto::RemplirListe()
{
    liste_->clear();
    if (lettre_ == 0 || !DetailsMontres())
        return;
    const std::string& motifs = FiltresFichiers()[static_cast<size_t>(listeExtensions_->currentIndex())].motifs;
    std::vector<std::string> noms;
    Parcours(lettre_).Lister([&](const EntreeDossier& entree) {
        if (CorrespondFiltre(motifs, entree.nom))
            noms.push_back(entree.nom + ((entree.attributs & AttributDossier) != 0 ? "\\" : ""));
        return true;
    });
    std::sort(noms.begin(), noms.end(),
              [](const std::string& a, const std::string& b) { return ComparerFrancais(a, b) < 0; });
    QStringList textes;
    for (const std::string& nom : noms)
        textes.append(QString::fromStdString(nom));
    liste_->addItems(textes);
}

// The state lies in the tag. The 3 that counts as on is the value under which RAR archives are read by default.
void FrmSemiAuto::PresserCompression(int indice)
{
    QCheckBox* choix = compression_[indice];
    const int etat = choix->property("tag").toInt();
    const bool allume = etat != 1 && etat != 3;
    choix->setChecked(allume);
    choix->setProperty("tag", allume ? "1" : "0");
    SaveSetting(SectionSettings, CleCompression(indice), allume ? "1" : "0");
}

void FrmSemiAuto::PresserOK()
{
    ok_->setChecked(false);
    if (etat_ == Etat::Course)
        Abandonner();
    else if (etat_ == Etat::Repos)
        Lancer();
}

void FrmSemiAuto::Lancer()
{
    etat_ = Etat::Verification;
    Activer(false);
    ok_->setEnabled(false);
    animation_->Demarrer();
    liste_->clear();
    ligne_->clear();

    const DemandeMedia demande{identifiant_->text().toStdString(), nom_->text().toStdString(), lecteur_.Drive(),
                               infos_};
    const ReponseMedia reponse = VerifierCatalogue(demande, dialogues_);
    if (!reponse.accepte) {
        ExitRecherche();
        (reponse.fautif == ChampFautif::Nom ? nom_ : identifiant_)->setFocus();
        return;
    }
    ok_->setProperty("media", static_cast<qlonglong>(reponse.numero));
    DemarrerFil(reponse.numero, infos_.total == " 0 Bytes");
}

void FrmSemiAuto::DemarrerFil(int64_t media, bool lecteurVide)
{
    extraction_ = std::make_unique<Extraction>(media, lettre_, infos_.octetsOccupes, lecteurVide);
    finie_ = false;
    etat_ = Etat::Course;
    LibelleOK(true);
    ok_->setEnabled(true);
    ok_->setFocus();
    for (QWidget* controle :
         {static_cast<QWidget*>(repertoires_), static_cast<QWidget*>(fichiers_), static_cast<QWidget*>(descriptions_),
          static_cast<QWidget*>(progression_), static_cast<QWidget*>(pourcentage_)})
        controle->show();
    QApplication::setOverrideCursor(Qt::BusyCursor);
    Suivre();
    fil_ = std::thread([this] {
        fin_ = extraction_->Executer();
        finie_ = true;
    });
    suivi_.start();
}

// The run goes on behind the question; it may even end there.
void FrmSemiAuto::Abandonner()
{
    questionPosee_ = true;
    const bool oui = dialogues_.Demander("Voulez-vous réellement abandonner la recherche ?");
    questionPosee_ = false;
    if (!oui) {
        fermerEnsuite_ = false;
        return;
    }
    etat_ = Etat::Finissant;
    extraction_->Abandonner();
    LibelleOK(false);
    ok_->setEnabled(false);
    liste_->clear();
    ligne_->clear();
}

void FrmSemiAuto::Suivre()
{
    if (etat_ == Etat::Course) {
        const Avancement avancement = extraction_->Lire();
        const CompteursExtraction& compteurs = avancement.compteurs;
        repertoires_->setText(QString::fromStdString(Str(compteurs.repertoires) + " Répertoire(s) ..."));
        fichiers_->setText(QString::fromStdString(Str(compteurs.fichiers) + " Fichier(s) ..."));
        descriptions_->setText(QString::fromStdString(Str(compteurs.descriptions) + " description(s) extraite(s)"));
        pourcentage_->setText(QString::fromStdString(avancement.pourcentage));
        progression_->setValue(static_cast<int>(std::clamp(avancement.part, 0.0, 1.0) * PleineBarre));
        ligne_->setText(QString::fromStdString(avancement.ligne));
    }
    if (finie_ && !questionPosee_)
        Terminer();
}

void FrmSemiAuto::Terminer()
{
    suivi_.stop();
    fil_.join();
    const bool abandonnee = etat_ == Etat::Finissant || fin_ == FinExtraction::Abandonnee;
    // The answer came when the last row was already written: the media goes all the same.
    if (abandonnee && fin_ == FinExtraction::Complete)
        SupprimerMedia(Str(ok_->property("media").toLongLong()));
    QApplication::restoreOverrideCursor();
    if (!abandonnee && fin_ == FinExtraction::Complete)
        Conclure();

    const bool echec = !abandonnee && fin_ == FinExtraction::Echec;
    ok_->setProperty("media", QVariant());
    extraction_.reset();
    ExitRecherche();
    if (echec)
        ligne_->setText("La base n'a pas pu être écrite : le média n'a pas été ajouté au catalogue.");
    identifiant_->setFocus();
    if (fermerEnsuite_)
        close();
}

void FrmSemiAuto::Conclure()
{
    pourcentage_->setText("100 %");
    progression_->setValue(PleineBarre);
    FixerIconesARecharger(true);
    FixerArbreARecharger(true);
    animation_->Arreter();
    ok_->setEnabled(false);
    FrmResultat(extraction_->Lire().compteurs, this).exec();
    identifiant_->clear();
}

void FrmSemiAuto::Activer(bool actif)
{
    for (QWidget* controle :
         {static_cast<QWidget*>(medias_), static_cast<QWidget*>(disques_), static_cast<QWidget*>(compressions_),
          static_cast<QWidget*>(listeExtensions_), static_cast<QWidget*>(liste_), static_cast<QWidget*>(identifiant_),
          static_cast<QWidget*>(nom_), barre_})
        controle->setEnabled(actif);
}

void FrmSemiAuto::LibelleOK(bool enCours)
{
    ok_->setText(enCours ? "&Abandon" : "&Recherche");
    ok_->setToolTip(enCours ? " Cliquer ICI pour annuler l'extraction " : " Cliquer ICI pour commencer l'extraction ");
}

void FrmSemiAuto::ExitRecherche()
{
    etat_ = Etat::Repos;
    for (QWidget* controle :
         {static_cast<QWidget*>(repertoires_), static_cast<QWidget*>(fichiers_), static_cast<QWidget*>(descriptions_),
          static_cast<QWidget*>(progression_), static_cast<QWidget*>(pourcentage_)})
        controle->hide();
    ligne_->clear();
    animation_->Arreter();
    LibelleOK(false);
    Activer(true);
    ok_->setEnabled(lettre_ != 0);
    RemplirListe();
}

void FrmSemiAuto::closeEvent(QCloseEvent* evenement)
{
    if (EnCours()) {
        evenement->ignore();
        if (etat_ == Etat::Course && !questionPosee_) {
            fermerEnsuite_ = true;
            Abandonner();
        }
        return;
    }
    EnregistrerPlace(*this, "TopExtract", "LeftExtract");
    if (fermee)
        fermee();
}
