#include "search/frmRecherche.h"

#include <utility>

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCompleter>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QStringListModel>
#include <QToolButton>
#include <QTreeView>

#include "browser/frmView.h"
#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "fenetres/Place.h"
#include "fenetres/TextesQt.h"
#include "search/Arborescence.h"
#include "search/Infobulle.h"
#include "search/RechercheLabel.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

constexpr const char* BulleLancer = " Lancer la recherche ";
constexpr const char* BulleAnnuler = " Annuler la recherche ";
constexpr const char* VueRapport = "3";

std::string CleColonne(int colonne)
{
    return "RecL" + std::to_string(colonne + 1);
}

std::string CleDate(int rang)
{
    return "Date" + Str(rang);
}

// The user's short date, its year always in full: a caption that is kept must be read back as the same day.
QString FormatDate()
{
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains("yyyy"))
        format.replace("yy", "yyyy");
    return format;
}

QString EnTag(const QDate& date)
{
    return date.toString("yyyyMMdd");
}

void Remplir(QComboBox& choix, const std::vector<std::string>& textes, std::string_view cle)
{
    choix.clear();
    for (const std::string& texte : textes)
        choix.addItem(EnQString(texte));
    choix.setCurrentIndex(GetSettingEntier(SectionSettings, cle, 0, static_cast<int>(textes.size()) - 1));
}

}  // namespace

frmRecherche::frmRecherche(Dialogues& dialogues, frmView& vue, QWidget* parent)
    : QMainWindow(parent),
      dialogues_(dialogues),
      vue_(vue),
      images_(icones_),
      modeleListe_(new ModeleListe(liste_, images_, this)),
      historique_(new QStringListModel(this))
{
    setWindowTitle("Velourne - Recherche");
    setContextMenuPolicy(Qt::NoContextMenu);
    setCentralWidget(CreerCentre());
    CreerStatut();
    CreerCalendrier();
    infobulle_ = new Infobulle(this);
    Colorer();
    PlacerFenetrePrincipale(*this);
    LireReglages();
    ChargerHistorique();
    ChargerChoix();
    Occuper(false);

    // Shown when the event that selected is over: a held arrow key then reads only where it stops.
    itemAMontrer_.setSingleShot(true);
    itemAMontrer_.setInterval(0);
    connect(&itemAMontrer_, &QTimer::timeout, this, &frmRecherche::lvListView_Click);
}

// The list goes first: what it shows lies in this window.
frmRecherche::~frmRecherche()
{
    delete takeCentralWidget();
}

void frmRecherche::Ouvrir()
{
    ChargerHistorique();
    ChargerChoix();
    if (baseLue_ != BaseCourante())
        ViderResultats();
    PrendreLaPlace(*this, vue_);
    saisie_[onglet_]->setFocus();
    saisie_[onglet_]->selectAll();
}

void frmRecherche::ChargerChoix()
{
    identifiants_ = ChargerIdentifiant();
    labels_ = ChargerLabel();
    Remplir(*lExt_, ChargerExtension(), "LExt");
    Remplir(*lIdent_, identifiants_.textes, "LIdent");
    Remplir(*lLables_, labels_.textes, "LLabel");
}

void frmRecherche::ChargerHistorique()
{
    QStringList mots;
    for (const std::string& saisie : LireSaisies())
        mots.append(EnQString(saisie));
    if (mots != historique_->stringList())
        historique_->setStringList(mots);
}

void frmRecherche::LireReglages()
{
    for (int option = 0; option < NombreOptions; ++option)
        rec_[option]->setChecked(OptionActive(option));
    lExt_->setEnabled(rec_[OptionExtensions]->isChecked());
    MontrerDates(rec_[OptionDates]->isChecked());

    QHeaderView* entete = lvListView_->header();
    for (int i = 0; i < NombreColonnes; ++i)
        entete->resizeSection(i, LirePixels(SectionLvListView, CleColonne(i), entete->sectionSize(i)));
    if (!GetSetting(SectionRecLvListView, "SortKey", "").empty())
        tri_ = Tri{GetSettingEntier(SectionRecLvListView, "SortKey", ColTaille, NombreColonnes - 1),
                   GetSettingEntier(SectionRecLvListView, "SortOrder", 0, 1) == 1};
    entete->setSortIndicator(tri_ ? tri_->colonne : -1,
                             tri_ && tri_->decroissant ? Qt::DescendingOrder : Qt::AscendingOrder);
    ChoisirOnglet(GetSettingEntier(SectionLvListView, "Onglet", RechercheAvancee, NombreOnglets - 1));
}

void frmRecherche::EcrireReglages()
{
    EnregistrerPlacePrincipale(*this);
    for (int i = 0; i < NombreColonnes; ++i)
        EcrirePixels(SectionLvListView, CleColonne(i), lvListView_->header()->sectionSize(i));
    SaveSetting(SectionSettings, "RecViewMode", VueRapport);
}

void frmRecherche::ChoisirOnglet(int onglet)
{
    onglet_ = onglet;
    CacherCalendrier();
    infobulle_->Cacher();
    for (int i = 0; i < NombreOnglets; ++i)
        btn_[i]->setChecked(i == onglet);
    pages_->setCurrentIndex(onglet);
    Colorer();
}

// The three boxes hold one word.
void frmRecherche::Saisir(const QString& texte)
{
    mot_ = texte;
    for (QLineEdit* boite : saisie_)
        if (boite->text() != texte)
            boite->setText(texte);
}

void frmRecherche::ChangerOption(int option, bool active)
{
    FixerOption(option, active);
    if (option == OptionExtensions)
        lExt_->setEnabled(active);
    if (option == OptionDates)
        MontrerDates(active);
}

void frmRecherche::MontrerDates(bool actives)
{
    if (!actives)
        CacherCalendrier();
    for (int rang = 0; rang < 2; ++rang) {
        infoDate_[rang]->setEnabled(actives);
        if (!actives) {
            infoDate_[rang]->setText({});
            infoDate_[rang]->setProperty("tag", {});
            continue;
        }
        const QString legende = EnQString(GetSetting(SectionSettings, CleDate(rang), ""));
        const QDate date = QLocale().toDate(legende, FormatDate());
        FixerDate(rang, date.isValid() ? date : QDate::currentDate());
    }
}

void frmRecherche::FixerDate(int rang, const QDate& date)
{
    infoDate_[rang]->setText(QLocale().toString(date, FormatDate()));
    infoDate_[rang]->setProperty("tag", EnTag(date));
}

void frmRecherche::BasculerCalendrier(int rang)
{
    const bool ouvert = cadreCalendrier_->isVisible() && dateChoisie_ == rang;
    CacherCalendrier();
    if (ouvert)
        return;
    infobulle_->Cacher();
    dateChoisie_ = rang;
    calendrier_->setProperty("tag", rang);
    calendrier_->setSelectedDate(QDate::fromString(infoDate_[rang]->property("tag").toString(), "yyyyMMdd"));
    cadreCalendrier_->adjustSize();
    const QPoint coin = infoDate_[rang]->mapTo(this, QPoint(0, infoDate_[rang]->height()));
    cadreCalendrier_->move(std::max(std::min(coin.x(), width() - cadreCalendrier_->width()), 0),
                           std::max(std::min(coin.y(), height() - cadreCalendrier_->height()), 0));
    cadreCalendrier_->show();
    cadreCalendrier_->raise();
    calendrier_->setFocus();
}

void frmRecherche::CacherCalendrier()
{
    if (!cadreCalendrier_ || cadreCalendrier_->isHidden())
        return;
    if (cadreCalendrier_->isAncestorOf(QApplication::focusWidget()))
        infoDate_[dateChoisie_]->setFocus();
    cadreCalendrier_->hide();
}

void frmRecherche::ChoisirJour(const QDate& date)
{
    if (cadreCalendrier_->isHidden())
        return;
    if (dateChoisie_ == 1 && EnTag(date) < infoDate_[0]->property("tag").toString()) {
        dialogues_.Informer("Veuillez sélectionner une date >= à la date de début !");
        return;
    }
    FixerDate(dateChoisie_, date);
    SaveSetting(SectionSettings, CleDate(dateChoisie_), infoDate_[dateChoisie_]->text().toStdString());
    CacherCalendrier();
}

DemandeRecherche frmRecherche::Demande() const
{
    DemandeRecherche demande;
    demande.onglet = onglet_;
    if (onglet_ == RechercheIdentifiant)
        demande.media = identifiants_.Numero(lIdent_->currentIndex());
    if (onglet_ == RechercheLabelMedia)
        demande.media = labels_.Numero(lLables_->currentIndex());
    demande.noms = OptionActive(OptionNoms);
    demande.descriptions = OptionActive(OptionDescriptions);
    demande.mot = mot_.toStdString();
    return demande;
}

FiltreRecherche frmRecherche::Filtre() const
{
    FiltreRecherche filtre;
    filtre.extension = lExt_->currentText().toStdString();
    filtre.debut = infoDate_[0]->property("tag").toString().toStdString();
    filtre.fin = infoDate_[1]->property("tag").toString().toStdString();
    const bool parExtension = rec_[OptionExtensions]->isChecked() && Trim(filtre.extension) != Trim(Tous);
    const bool parDates = rec_[OptionDates]->isChecked() && !filtre.debut.empty() && !filtre.fin.empty();
    filtre.mode = ChoisirMode(onglet_, parExtension, parDates);
    return filtre;
}

// Pressed again while a search runs, on its stack, the button gives the search up.
void frmRecherche::PresserOK()
{
    if (enRecherche_) {
        Annuler();
        return;
    }
    Rechercher();
    ok_->setChecked(false);
}

void frmRecherche::Annuler()
{
    annulee_ = true;
    ok_->setChecked(false);
    ok_->setToolTip(BulleAnnuler);
    commentaire_->setText("Annulation en cours ...");
}

void frmRecherche::Rechercher()
{
    if (enRecherche_ || enOuverture_)
        return;
    CacherCalendrier();
    saisie_[onglet_]->completer()->popup()->hide();
    saisie_[onglet_]->setFocus();
    ViderResultats();
    baseLue_ = BaseCourante();
    modeleListe_->Retirer();
    annulee_ = false;
    Occuper(true);

    const DemandeRecherche demande = Demande();
    EcouteRecherche ecoute;
    ecoute.annulee = [this] { return annulee_; };
    ecoute.progression = [this](int32_t nombre) {
        if (!annulee_)
            commentaire_->setText(EnQString(Str(nombre)) + " Objets");
    };
    RechercheLabel(demande, Filtre(), liste_, icones_, ecoute);
    if (tri_)
        liste_.Trier(tri_->colonne, tri_->decroissant);
    modeleListe_->Annoncer();

    NoterSaisie(demande.mot);
    ChargerHistorique();
    commentaire_->setText(EnQString(Str(liste_.Nombre())) + " Objets");
    Occuper(false);
    if (std::exchange(fermerEnsuite_, false))
        close();
}

void frmRecherche::Occuper(bool occupe)
{
    enRecherche_ = occupe;
    barre_->setVisible(occupe);
    ok_->setChecked(occupe);
    ok_->setToolTip(occupe ? BulleAnnuler : BulleLancer);
    ok_->setText(occupe ? "Ann&uler" : "&Rechercher");
    if (occupe)
        commentaire_->setText("Recherche en cours ...");
    setCursor(occupe ? Qt::WaitCursor : Qt::ArrowCursor);
}

void frmRecherche::ViderResultats()
{
    infobulle_->Cacher();
    titre_->clear();
    titre_->setToolTip({});
    commentaire_->clear();
    modeleListe_->Retirer();
    liste_.Vider();
    modeleListe_->Annoncer();
}

// The order kept for the next start is the one before the click turns it round: meant so.
void frmRecherche::TrierColonne(int colonne)
{
    const bool avant = tri_ && tri_->decroissant;
    SaveSetting(SectionRecLvListView, "SortKey", std::to_string(colonne));
    SaveSetting(SectionRecLvListView, "SortOrder", avant ? "1" : "0");
    tri_ = Tri{colonne, !avant};
    lvListView_->header()->setSortIndicator(colonne, avant ? Qt::AscendingOrder : Qt::DescendingOrder);
    if (enRecherche_)
        return;
    infobulle_->Cacher();
    modeleListe_->Trier(colonne, !avant);
    lvListView_->scrollTo(lvListView_->currentIndex());
}

void frmRecherche::lvListView_Click()
{
    CacherCalendrier();
    const QModelIndex index = lvListView_->currentIndex();
    if (!index.isValid() || enRecherche_)
        return;
    const ItemListe item = liste_[index.row()];
    titre_->setText(" " + EnQString(Generer_Arborescence_Lite(item)));
    titre_->setToolTip(titre_->text());
    if (GetSettingNombre(SectionSettings, "OptionsDivers" + Str(3), 1) == 1)
        MontrerDescription(item, index);
    else
        infobulle_->Cacher();
}

void frmRecherche::MontrerDescription(const ItemListe& item, const QModelIndex& index)
{
    const CleResultat cle = AnalyserCleResultat(item.cle);
    const std::string texte = AfficherDescriptionInfobulle(cle.ligne, cle.catalogue, item.cellules[ColNom]);
    if (Trim(texte).empty()) {
        infobulle_->Cacher();
        return;
    }
    // Beside the pointer when it is on the result, below the result when the keyboard has come to it.
    const QWidget* surface = lvListView_->viewport();
    QRect ligne = lvListView_->visualRect(index.siblingAtColumn(ColNom));
    QPoint place = ligne.bottomLeft() + QPoint(ligne.height(), -ligne.height() / 2);
    ligne.setWidth(surface->width());
    ligne.moveLeft(0);
    if (const QPoint souris = surface->mapFromGlobal(QCursor::pos()); ligne.contains(souris))
        place = souris;
    infobulle_->Montrer(EnLignes(texte).trimmed(), surface->mapTo(this, place));
}

void frmRecherche::lvListView_DblClick()
{
    const QModelIndex index = lvListView_->currentIndex();
    if (!index.isValid() || enRecherche_ || enOuverture_)
        return;
    enOuverture_ = true;
    infobulle_->Cacher();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ItemListe item = liste_[index.row()];
    const CleResultat cle = AnalyserCleResultat(item.cle);
    const bool repertoire = item.EstRepertoire();
    vue_.ChargerArbre();
    if (vue_.Arbre().Chercher(cle.noeud) == ArbreCatalogue::Aucun)
        Generer_Arborescence(vue_.Arbre(), item);
    const bool trouve = vue_.AtteindreNoeud(cle.noeud);
    QApplication::restoreOverrideCursor();
    enOuverture_ = false;
    if (!trouve) {
        commentaire_->setText("Introuvable dans l'arborescence du catalogue");
        return;
    }
    EcrireReglages();
    PrendreLaPlace(vue_, *this);
    vue_.AtteindreItem(repertoire ? std::string() : cle.item);
}

void frmRecherche::MenuAtteindre(const QPoint& place)
{
    if (!lvListView_->currentIndex().isValid())
        return;
    infobulle_->Cacher();
    QMenu menu(this);
    menu.setObjectName("MenuAtteindre");
    connect(menu.addAction("Atteindre"), &QAction::triggered, this, &frmRecherche::lvListView_DblClick);
    menu.exec(lvListView_->viewport()->mapToGlobal(place));
}

// One step back: what lies over the window first, then the search, then the window.
void frmRecherche::Echapper()
{
    if (!cadreCalendrier_->isHidden())
        CacherCalendrier();
    else if (enRecherche_)
        Annuler();
    else if (infobulle_->isVisible())
        infobulle_->Cacher();
    else
        close();
}

void frmRecherche::closeEvent(QCloseEvent* evenement)
{
    if (enRecherche_ || enOuverture_) {
        fermerEnsuite_ = enRecherche_;
        if (enRecherche_)
            Annuler();
        evenement->ignore();
        return;
    }
    EcrireReglages();
    CacherCalendrier();
    ViderResultats();
    Saisir({});
    PrendreLaPlace(vue_, *this);
}

void frmRecherche::changeEvent(QEvent* evenement)
{
    QMainWindow::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange && infobulle_)
        Colorer();
}

void frmRecherche::resizeEvent(QResizeEvent* evenement)
{
    QMainWindow::resizeEvent(evenement);
    CacherCalendrier();
    if (infobulle_)
        infobulle_->Cacher();
}

bool frmRecherche::eventFilter(QObject* objet, QEvent* evenement)
{
    const QEvent::Type type = evenement->type();
    if (type == QEvent::KeyPress)
        return Touche(objet, static_cast<QKeyEvent*>(evenement)->key()) || QMainWindow::eventFilter(objet, evenement);
    if (type == QEvent::MouseMove && objet == lvListView_->viewport() && infobulle_->isVisible())
        infobulle_->Suivre(
            lvListView_->viewport()->mapTo(this, static_cast<QMouseEvent*>(evenement)->position().toPoint()));
    // One tip at a time.
    return (type == QEvent::ToolTip && infobulle_->isVisible()) || QMainWindow::eventFilter(objet, evenement);
}

// True for a key that is used up.
bool frmRecherche::Touche(QObject* objet, int touche)
{
    if (objet == lvListView_ && (touche == Qt::Key_Return || touche == Qt::Key_Enter)) {
        lvListView_DblClick();
        return true;
    }
    auto* boite = qobject_cast<QLineEdit*>(objet);
    if (!boite || touche != Qt::Key_Down)
        return false;
    boite->completer()->setCompletionPrefix(boite->text());
    boite->completer()->complete();
    return true;
}
