#include "browser/frmView.h"

#include <algorithm>

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTreeView>

#include "browser/ChargerArbre.h"
#include "browser/CommandesBase.h"
#include "browser/LectureListeFichiers.h"
#include "catalogue/Cles.h"
#include "fenetres/DelegueGrille.h"
#include "fenetres/Place.h"
#include "fenetres/TextesQt.h"
#include "shell/FrmOptions.h"
#include "shell/Options.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

enum Affichage { GrandesIcones, PetitesIcones, EnListe, Rapport };

std::string CleColonne(int colonne)
{
    return "L" + std::to_string(colonne + 1);
}

constexpr std::string_view TitreSauvegarder = "Sauvegarder le catalogue en cours";

// `confirmer`: the dialog itself asks before a file is overwritten.
std::string DemanderFichier(QWidget* parent, const char* titre, bool ecrire, bool confirmer)
{
    QFileDialog dialogue(parent, titre, QFileInfo(QString::fromStdString(BaseCourante())).absolutePath(),
                         "Bases de Velourne (*.vlr)");
    dialogue.setAcceptMode(ecrire ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialogue.setFileMode(ecrire ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialogue.setOption(QFileDialog::DontConfirmOverwrite, !confirmer);
    dialogue.setDefaultSuffix("vlr");
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty())
        return {};
    return dialogue.selectedFiles().first().toStdString();
}

}  // namespace

frmView::frmView(Dialogues& dialogues, QWidget* parent)
    : QMainWindow(parent),
      dialogues_(dialogues),
      images_(navigateur_.icones),
      modeleArbre_(new ModeleArbre(navigateur_.arbre, images_, this)),
      modeleListe_(new ModeleListe(navigateur_.liste, images_, this))
{
    choisirFichier = [this](const char* titre, bool ecrire) {
        return DemanderFichier(this, titre, ecrire, ecrire && titre == TitreSauvegarder);
    };
    RelireBaseCourante();
    MontrerBase();
    CreerActions();
    CreerVues();
    CreerPanneaux();
    CreerMenus();
    LirePlace();
    LireReglages();
    ActiverCommandes();

    // Shown when the event that selected is over: a held arrow key then reads only where it stops.
    for (QTimer* attente : {&noeudAMontrer_, &itemAMontrer_}) {
        attente->setSingleShot(true);
        attente->setInterval(0);
    }
    connect(&noeudAMontrer_, &QTimer::timeout, this, &frmView::tvTreeView_Click);
    connect(&itemAMontrer_, &QTimer::timeout, this, &frmView::lvListView_Click);
}

// The views go first: what they show lies in this window.
frmView::~frmView()
{
    delete takeCentralWidget();
}

QAbstractItemView* frmView::VueListe() const
{
    return qobject_cast<QAbstractItemView*>(lvListView_->currentWidget());
}

void frmView::MontrerBase()
{
    setWindowTitle("Velourne (" + QString::fromStdString(BaseCourante()) + ")");
}

void frmView::ChargerArbre(const std::function<void(double)>& progression)
{
    if (enChargement_ || (!ArbreARecharger() && navigateur_.arbre.Nombre() > 0))
        return;
    enChargement_ = true;
    Occuper(true);
    modeleArbre_->Retirer();
    modeleListe_->Retirer();
    images_.OublierMedias();
    navigateur_.Vider();
    MontrerNavigateur();
    commentaire_->setText("Chargement en cours ...");

    EcouteChargement ecoute;
    ecoute.progression = [&](double part) {
        Avancer(part);
        if (progression)
            progression(part);
    };
    ecoute.baseChangee = [this] { MontrerBase(); };
    ecoute.cliquer = [this] { navigateur_.CliquerNoeud(); };
    ::ChargerArbre(navigateur_.arbre, ecoute);

    Avancer(1, false);
    enChargement_ = false;
    modeleArbre_->Annoncer();
    modeleListe_->Annoncer();
    SelectionnerNoeud();
    tvTreeView_->expand(modeleArbre_->Index(0));
    Occuper(false);
    MontrerNavigateur();
}

void frmView::Occuper(bool occupe)
{
    tvTreeView_->setEnabled(!occupe);
    for (QAction* action :
         {repert_[0], repert_[1], repert_[2], repert_[3], supprimer_, ajouter_, rechercher_, preferences_})
        action->setEnabled(!occupe);
}

void frmView::Avancer(double part, bool visible)
{
    barre_->setVisible(visible);
    barre_->setValue(static_cast<int>(part * barre_->maximum()));
}

// The view follows the node that the logic has selected; no click comes of it.
void frmView::SelectionnerNoeud()
{
    selectionProgrammee_ = true;
    const QModelIndex index = modeleArbre_->Index(navigateur_.arbre.Selection());
    tvTreeView_->setCurrentIndex(index);
    tvTreeView_->scrollTo(index);
    selectionProgrammee_ = false;
}

void frmView::tvTreeView_Click()
{
    if (enChargement_)
        return;
    const int32_t precedent = navigateur_.arbre.Chercher(navigateur_.arbre.Tag());
    const int32_t depart = navigateur_.arbre.Selection();
    const uint64_t chargement = navigateur_.arbre.Generation();
    EcouteLecture ecoute;
    ecoute.progression = [this](double part) { Avancer(part); };
    ecoute.statut = [this](const std::string& texte) { commentaire_->setText(QString::fromStdString(texte)); };
    const bool lu = navigateur_.CliquerNoeud(ecoute, [this] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        modeleListe_->Retirer();
        description_->clear();
    });
    if (lu) {
        QApplication::restoreOverrideCursor();
        Avancer(1, false);
        modeleListe_->Annoncer();
        if (navigateur_.arbre.Generation() == chargement) {
            modeleArbre_->AnnoncerEnfants(depart);
            modeleArbre_->AnnoncerNoeud(precedent);
        }
        modeleArbre_->AnnoncerEnfants(navigateur_.arbre.Selection());
        modeleArbre_->AnnoncerNoeud(navigateur_.arbre.Selection());
        supprimer_->setEnabled(navigateur_.arbre.CleSelection() != "Root");
    }
    ActiverCommandes();
    MontrerNavigateur();
}

void frmView::lvListView_Click()
{
    const QModelIndex index = VueListe()->currentIndex();
    if (!index.isValid())
        return;
    navigateur_.CliquerItem(index.row());
    ActiverCommandes();
    MontrerNavigateur();
}

void frmView::Btn_recherche()
{
    if (enChargement_ || !demanderRecherche)
        return;
    EnregistrerPlacePrincipale(*this);
    demanderRecherche();
}

bool frmView::AtteindreNoeud(std::string_view cle)
{
    const int32_t noeud = navigateur_.arbre.Chercher(cle);
    if (enChargement_ || noeud == ArbreCatalogue::Aucun)
        return false;
    // Nodes on the way may be new to the view; from the top, since it finds the lower ones through the upper.
    std::vector<int32_t> chemin;
    for (int32_t n = navigateur_.arbre[noeud].parent; n != ArbreCatalogue::Aucun; n = navigateur_.arbre[n].parent)
        chemin.push_back(n);
    for (auto n = chemin.rbegin(); n != chemin.rend(); ++n)
        modeleArbre_->AnnoncerEnfants(*n);
    navigateur_.arbre.Selectionner(noeud);
    SelectionnerNoeud();
    noeudAMontrer_.stop();
    tvTreeView_Click();
    return navigateur_.arbre.CleSelection() == cle;
}

void frmView::AtteindreItem(std::string_view cle)
{
    const int32_t rang = cle.empty() ? -1 : navigateur_.liste.Chercher(cle);
    tvTreeView_->scrollTo(tvTreeView_->currentIndex());
    if (rang < 0) {
        tvTreeView_->setFocus();
        return;
    }
    const QModelIndex index = modeleListe_->index(rang, 0);
    VueListe()->setCurrentIndex(index);
    itemAMontrer_.stop();
    lvListView_Click();
    VueListe()->setFocus();
    VueListe()->scrollTo(index);
}

void frmView::MontrerNavigateur()
{
    titre_->setText(QString::fromStdString(navigateur_.titre));
    commentaire_->setText(QString::fromStdString(navigateur_.statut));
    description_->setPlainText(EnLignes(navigateur_.description));
    MontrerTitreIcone();
}

void frmView::MontrerTitreIcone()
{
    const int32_t noeud = navigateur_.arbre.Selection();
    const QIcon icone = navigateur_.titre.empty() ? QIcon() : images_.DuNoeud(navigateur_.arbre, noeud);
    iconeTitre_->setVisible(!icone.isNull());
    const int cote = style()->pixelMetric(QStyle::PM_SmallIconSize);
    iconeTitre_->setPixmap(icone.pixmap(cote, cote));
}

void frmView::ApresChangementDeBase(bool change)
{
    if (!change)
        return;
    MontrerBase();
    ChargerArbre();
}

void frmView::ChoisirAffichage(int mode)
{
    const bool focus = VueListe()->hasFocus();
    SaveSetting(SectionSettings, "View", std::to_string(mode));
    lvIcones_->setViewMode(mode == GrandesIcones ? QListView::IconMode : QListView::ListMode);
    const int cote = mode == GrandesIcones ? 48 : style()->pixelMetric(QStyle::PM_SmallIconSize);
    lvIcones_->setIconSize({cote, cote});
    lvIcones_->setFlow(mode == EnListe ? QListView::TopToBottom : QListView::LeftToRight);
    lvIcones_->setMovement(QListView::Static);
    const int hauteur = lvIcones_->fontMetrics().lineSpacing(), largeur = lvIcones_->fontMetrics().averageCharWidth();
    lvIcones_->setGridSize(mode == GrandesIcones ? QSize(largeur * 20, cote + 3 * hauteur)
                                                 : QSize(largeur * 30 + cote, std::max(cote, hauteur) + 6));
    lvIcones_->setWordWrap(mode == GrandesIcones);
    lvListView_->setCurrentWidget(mode == Rapport ? static_cast<QWidget*>(lvRapport_) : lvIcones_);
    if (focus)
        VueListe()->setFocus();
    VueListe()->scrollTo(VueListe()->currentIndex());
}

// The order kept for the next start is the one before the click turns it round: meant so.
void frmView::TrierColonne(int colonne)
{
    navigateur_.colonneTri = colonne;
    SaveSetting(SectionLvListView, "SortKey", std::to_string(colonne));
    SaveSetting(SectionLvListView, "SortOrder", navigateur_.decroissant ? "1" : "0");
    navigateur_.decroissant = !navigateur_.decroissant;
    modeleListe_->Trier(colonne, navigateur_.decroissant);
    lvRapport_->header()->setSortIndicator(colonne, navigateur_.decroissant ? Qt::DescendingOrder : Qt::AscendingOrder);
    VueListe()->scrollTo(VueListe()->currentIndex());
}

void frmView::ActiverCommandes()
{
    const QModelIndex index = VueListe()->currentIndex();
    const bool reel = index.isValid() && !EstCleDansArchive(navigateur_.arbre.CleSelection());
    fichier1_[0]->setEnabled(reel && !navigateur_.liste[index.row()].EstRepertoire());
    fichier1_[1]->setEnabled(reel);
}

void frmView::OuvrirItem()
{
    const QModelIndex index = VueListe()->currentIndex();
    if (!index.isValid())
        return;
    ActiverCommandes();
    if (!navigateur_.liste[index.row()].EstRepertoire()) {
        if (fichier1_[0]->isEnabled())
            Lancer(false);
        return;
    }
    if (!navigateur_.Descendre(index.row()))
        return;
    SelectionnerNoeud();
    tvTreeView_Click();
}

void frmView::Lancer(bool dossier)
{
    const QModelIndex index = VueListe()->currentIndex();
    if (index.isValid())
        OuvrirEntree(EntreeItem(navigateur_.arbre, navigateur_.liste[index.row()]), dossier, dialogues_, *this);
}

char frmView::Choisir(const MediaDemande& media)
{
    return choisirLecteur ? choisirLecteur(media) : '\0';
}

void frmView::LirePlace()
{
    PlacerFenetrePrincipale(*this);
    const int gauche = LirePixels(SectionSettings, "picSplitter_Left", 333);
    separateurVertical_->setSizes({gauche, std::max(width() - gauche, 100)});
    const int haut = LirePixels(SectionSettings, "picSplitter_Top", height() * 2 / 3);
    separateurHorizontal_->setSizes({haut, std::max(height() - haut, 60)});
}

void frmView::LireReglages()
{
    QHeaderView* entete = lvRapport_->header();
    for (int i = 0; i < NombreColonnes; ++i)
        entete->resizeSection(i, LirePixels(SectionLvListView, CleColonne(i), entete->sectionSize(i)));
    navigateur_.colonneTri = GetSettingEntier(SectionLvListView, "SortKey", ColTaille, NombreColonnes - 1);
    navigateur_.decroissant = GetSettingEntier(SectionLvListView, "SortOrder", 0, 1) == 1;
    entete->setSortIndicator(navigateur_.colonneTri,
                             navigateur_.decroissant ? Qt::DescendingOrder : Qt::AscendingOrder);

    const int mode = GetSettingEntier(SectionSettings, "View", Rapport, Rapport);
    aff_->actions().at(mode)->setChecked(true);
    ChoisirAffichage(mode);
    RelireOptions();
}

// What the preferences change in this window.
void frmView::RelireOptions()
{
    grille_->Montrer(GrilleVoulue());
    lvRapport_->viewport()->update();
}

void frmView::OuvrirPreferences()
{
    FrmOptions(dialogues_, this).exec();
    RelireOptions();
}

void frmView::EcrireReglages()
{
    EnregistrerPlacePrincipale(*this);
    for (int i = 0; i < NombreColonnes; ++i)
        EcrirePixels(SectionLvListView, CleColonne(i), lvRapport_->header()->sectionSize(i));
    const auto mode = aff_->actions().indexOf(aff_->checkedAction());
    SaveSetting(SectionSettings, "ViewMode", std::to_string(mode));
}

void frmView::closeEvent(QCloseEvent* evenement)
{
    EcrireReglages();
    if (enChargement_ || (fermer && !fermer()))
        evenement->ignore();
}

// An extraction may have asked for a new tree while another window was in front.
void frmView::changeEvent(QEvent* evenement)
{
    QMainWindow::changeEvent(evenement);
    if (evenement->type() == QEvent::ActivationChange && isActiveWindow() && navigateur_.arbre.Nombre() > 0)
        ChargerArbre();
}

bool frmView::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() == QEvent::KeyPress) {
        const int touche = static_cast<QKeyEvent*>(evenement)->key();
        if (touche == Qt::Key_Return || touche == Qt::Key_Enter) {
            OuvrirItem();
            return true;
        }
    }
    return QMainWindow::eventFilter(objet, evenement);
}
