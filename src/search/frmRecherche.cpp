#include "search/frmRecherche.h"

#include <algorithm>
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
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QStringListModel>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "fenetres/Place.h"
#include "fenetres/TextesQt.h"
#include "fenetres/Touches.h"
#include "search/Arborescence.h"
#include "search/Infobulle.h"
#include "search/RechercheLabel.h"
#include "store/ClesReglages.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

constexpr const char* BulleLancer = " Lancer la recherche ";
constexpr const char* BulleAnnuler = " Annuler la recherche ";
constexpr const char* VueRapport = "3";

std::string CleColonne(int colonne)
{
    return std::string(DebutCleLargeurRec) + std::to_string(colonne + 1);
}

// The former words that hold a text, below their box.
void MontrerAnciens(QLineEdit& boite, const QString& partie)
{
    boite.setFocus();
    boite.completer()->setCompletionPrefix(partie);
    boite.completer()->complete();
}

void Remplir(QComboBox& choix, const EtatRecherche::Liste& liste)
{
    choix.clear();
    for (const std::string& texte : liste.textes)
        choix.addItem(EnQString(texte));
    choix.setCurrentIndex(liste.rang);
}

ListeFichiers::Ordre Trier(const ListeFichiers& liste, const LieuxResultats& lieux, const TriListe& tri,
                           const std::stop_token& arret)
{
    if (tri.colonne < ColMedia)
        return liste.Trier(tri.colonne, tri.decroissant, arret);
    if (lieux.places.empty())
        return {};
    return liste.Trier(ColNom, tri.decroissant, arret,
                       [&](int32_t indice, std::string_view) { return TexteLieu(lieux[indice], tri.colonne); });
}

}  // namespace

frmRecherche::frmRecherche(Dialogues& dialogues, Travail& travail, QWidget* parent)
    : QMainWindow(parent),
      dialogues_(dialogues),
      travail_(travail),
      images_(icones_),
      modeleListe_(new ModeleResultats(liste_, images_, this)),
      panneaux_(*this, *modeleListe_)
{
    setWindowTitle("Velourne - Recherche");
    setContextMenuPolicy(Qt::NoContextMenu);
    Relier();
    PlacerFenetrePrincipale(*this);
    MontrerEtat();
    ChargerHistorique();
    ChargerChoix();
    Occuper(false);
}

// The list goes first: what it shows lies in this window. What was asked for this window stops.
frmRecherche::~frmRecherche()
{
    for (const Place place : {Place::Recherche, Place::TriResultats, Place::Description})
        travail_.Arreter(place);
    travail_.Attendre();
    delete takeCentralWidget();
}

void frmRecherche::Relier()
{
    RelierCriteres();
    RelierListe();
    connect(panneaux_.ok, &QPushButton::clicked, this, &frmRecherche::PresserOK);
    connect(panneaux_.catalogue, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &frmRecherche::Echapper);
    connect(new QShortcut(QKeySequence("Ctrl+Q"), this), &QShortcut::activated, this, &frmRecherche::sortieVoulue);
    suivi_.setInterval(50);
    connect(&suivi_, &QTimer::timeout, this, [this] {
        if (nombre_)
            panneaux_.commentaire->setText(EnQString(Str(*nombre_)) + " Objets");
    });
}

void frmRecherche::RelierCriteres()
{
    for (int i = 0; i < PanneauxRecherche::NombreOnglets; ++i) {
        connect(panneaux_.btn[i], &QToolButton::clicked, this, [this, i] {
            etat_.ChoisirOnglet(i);
            ChoisirOnglet(i);
            panneaux_.saisie[i]->setFocus();
        });
        panneaux_.saisie[i]->installEventFilter(this);
        connect(panneaux_.saisie[i], &QLineEdit::textChanged, this, &frmRecherche::Saisir);
        // When the list of completions has closed.
        connect(panneaux_.saisie[i], &QLineEdit::returnPressed, this, &frmRecherche::Rechercher, Qt::QueuedConnection);
        connect(panneaux_.anciens[i], &QToolButton::clicked, this,
                [this, i] { MontrerAnciens(*panneaux_.saisie[i], {}); });
    }
    connect(panneaux_.sansType, &QCheckBox::clicked, this, [this](bool inclus) { etat_.ChangerSansType(inclus); });
    for (QWidget* critere : panneaux_.Choix())
        critere->installEventFilter(this);
    for (int option = 0; option < NombreOptions; ++option)
        connect(panneaux_.rec[option], &QCheckBox::clicked, this,
                [this, option](bool active) { ChangerOption(option, active); });
    const std::pair<QComboBox*, int> choix[] = {{panneaux_.lExt, EtatRecherche::Extensions},
                                                {panneaux_.lIdent, EtatRecherche::Identifiants},
                                                {panneaux_.lLables, EtatRecherche::Labels}};
    for (const auto& [boite, liste] : choix)
        connect(boite, &QComboBox::activated, this, [this, liste = liste](int rang) { etat_.Choisir(liste, rang); });
    for (int rang = 0; rang < 2; ++rang)
        connect(panneaux_.infoDate[rang], &QPushButton::clicked, this, [this, rang] { BasculerCalendrier(rang); });
    connect(panneaux_.calendrier, &QCalendarWidget::clicked, this, &frmRecherche::ChoisirJour);
    connect(panneaux_.calendrier, &QCalendarWidget::activated, this, &frmRecherche::ChoisirJour);
}

void frmRecherche::RelierListe()
{
    QTreeView* liste = panneaux_.lvListView;
    liste->installEventFilter(this);
    liste->viewport()->installEventFilter(this);
    // Shown when the event that selected is over: a held arrow key then reads only where it stops.
    itemAMontrer_.setSingleShot(true);
    itemAMontrer_.setInterval(0);
    connect(&itemAMontrer_, &QTimer::timeout, this, &frmRecherche::lvListView_Click);
    connect(liste, &QTreeView::clicked, &itemAMontrer_, qOverload<>(&QTimer::start));
    connect(liste, &QTreeView::doubleClicked, this, &frmRecherche::lvListView_DblClick);
    connect(liste, &QWidget::customContextMenuRequested, this, &frmRecherche::MenuAtteindre);
    connect(liste->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
        if (index.isValid())
            itemAMontrer_.start();
    });
    connect(liste->header(), &QHeaderView::sectionClicked, this, &frmRecherche::TrierColonne);
    connect(liste->header(), &QWidget::customContextMenuRequested, this, &frmRecherche::MenuColonnes);
    connect(liste->header(), &QHeaderView::sectionResized, this,
            [this] { largeursChoisies_ = largeursChoisies_ || !enAjustement_; });
}

void frmRecherche::Ouvrir()
{
    etat_.RelireOnglet();
    ChoisirOnglet(etat_.Onglet());
    ChargerHistorique();
    ChargerChoix();
    if (baseLue_ != BaseCourante())
        ViderResultats();
    panneaux_.saisie[etat_.Onglet()]->setFocus();
    panneaux_.saisie[etat_.Onglet()]->selectAll();
}

void frmRecherche::ChargerChoix()
{
    travail_.Executer(Place::Commande, [this] {
        etat_.ChargerChoix();
        Remplir(*panneaux_.lExt, etat_.Choix(EtatRecherche::Extensions));
        Remplir(*panneaux_.lIdent, etat_.Choix(EtatRecherche::Identifiants));
        Remplir(*panneaux_.lLables, etat_.Choix(EtatRecherche::Labels));
    });
}

void frmRecherche::ChargerHistorique()
{
    QStringList mots;
    for (const std::string& saisie : LireSaisies())
        mots.append(EnQString(saisie));
    if (mots != panneaux_.historique->stringList())
        panneaux_.historique->setStringList(mots);
    for (QToolButton* fleche : panneaux_.anciens)
        fleche->setEnabled(!mots.isEmpty());
}

void frmRecherche::MontrerEtat()
{
    for (int option = 0; option < NombreOptions; ++option)
        panneaux_.rec[option]->setChecked(etat_.Option(option));
    panneaux_.lExt->setEnabled(etat_.Option(OptionExtensions));
    panneaux_.sansType->setChecked(etat_.SansType());
    MontrerDates();

    QHeaderView* entete = panneaux_.lvListView->header();
    for (int i = 0; i < NombreColonnesRecherche; ++i)
        entete->resizeSection(i, LirePixels(SectionLvListView, CleColonne(i), entete->sectionSize(i)));
    largeursChoisies_ = !GetSetting(SectionLvListView, CleColonne(ColNom), "").empty() &&
                        GetSetting(SectionLvListView, CleRecLargeurs, "1") != "0";
    MontrerColonnes();
    const auto& tri = etat_.Tri();
    entete->setSortIndicator(tri ? tri->colonne : -1,
                             tri && tri->decroissant ? Qt::DescendingOrder : Qt::AscendingOrder);
    ChoisirOnglet(etat_.Onglet());
}

void frmRecherche::Memoriser()
{
    EnregistrerPlacePrincipale(*this);
    for (int i = 0; i < NombreColonnesRecherche; ++i)
        if (!panneaux_.lvListView->isColumnHidden(i))
            EcrirePixels(SectionLvListView, CleColonne(i), panneaux_.lvListView->header()->sectionSize(i));
    SaveSetting(SectionLvListView, CleRecLargeurs, largeursChoisies_ ? "1" : "0");
    SaveSetting(SectionSettings, CleRecViewMode, VueRapport);
}

void frmRecherche::ChoisirOnglet(int onglet)
{
    CacherCalendrier();
    panneaux_.infobulle->Cacher();
    for (int i = 0; i < PanneauxRecherche::NombreOnglets; ++i)
        panneaux_.btn[i]->setChecked(i == onglet);
    panneaux_.pages->setCurrentIndex(onglet);
    panneaux_.Colorer(onglet);
}

// The three boxes hold one word.
void frmRecherche::Saisir(const QString& texte)
{
    etat_.mot = texte.toStdString();
    for (QLineEdit* boite : panneaux_.saisie)
        if (boite->text() != texte)
            boite->setText(texte);
}

void frmRecherche::ChangerOption(int option, bool active)
{
    etat_.ChangerOption(option, active);
    if (option == OptionExtensions)
        panneaux_.lExt->setEnabled(active);
    if (option == OptionDates)
        MontrerDates();
}

void frmRecherche::MontrerDates()
{
    const bool actives = etat_.Option(OptionDates);
    if (!actives)
        CacherCalendrier();
    for (int rang = 0; rang < 2; ++rang) {
        panneaux_.infoDate[rang]->setEnabled(actives);
        panneaux_.infoDate[rang]->setText(EnQString(etat_.Date(rang).legende));
    }
}

void frmRecherche::BasculerCalendrier(int rang)
{
    QFrame* cadre = panneaux_.cadreCalendrier;
    const bool ouvert = cadre->isVisible() && dateChoisie_ == rang;
    CacherCalendrier();
    if (ouvert)
        return;
    panneaux_.infobulle->Cacher();
    dateChoisie_ = rang;
    panneaux_.calendrier->setProperty("tag", rang);
    panneaux_.calendrier->setSelectedDate(QDate::fromString(EnQString(etat_.Date(rang).tag), "yyyyMMdd"));
    cadre->adjustSize();
    const QPushButton* bouton = panneaux_.infoDate[rang];
    const QPoint coin = bouton->mapTo(this, QPoint(0, bouton->height()));
    cadre->move(std::max(std::min(coin.x(), width() - cadre->width()), 0),
                std::max(std::min(coin.y(), height() - cadre->height()), 0));
    cadre->show();
    cadre->raise();
    panneaux_.calendrier->setFocus();
}

void frmRecherche::CacherCalendrier()
{
    QFrame* cadre = panneaux_.cadreCalendrier;
    if (cadre->isHidden())
        return;
    if (cadre->isAncestorOf(QApplication::focusWidget()))
        panneaux_.infoDate[dateChoisie_]->setFocus();
    cadre->hide();
}

void frmRecherche::ChoisirJour(const QDate& date)
{
    if (panneaux_.cadreCalendrier->isHidden())
        return;
    if (!etat_.FixerDate(dateChoisie_, date.year(), date.month(), date.day())) {
        dialogues_.Informer("Veuillez sélectionner une date >= à la date de début !");
        return;
    }
    MontrerDates();
    CacherCalendrier();
}

// Pressed again while a search runs, the button gives the search up.
void frmRecherche::PresserOK()
{
    if (EnRecherche())
        Annuler();
    else
        Rechercher();
}

// A search given up shows no result.
void frmRecherche::Annuler()
{
    travail_.Arreter(Place::Recherche);
    nombre_.reset();
    ViderResultats();
    Occuper(false);
    panneaux_.commentaire->setText(EnQString(Str(0)) + " Objets");
}

void frmRecherche::Rechercher()
{
    if (EnRecherche())
        return;
    CacherCalendrier();
    QLineEdit* saisie = panneaux_.saisie[etat_.Onglet()];
    saisie->completer()->popup()->hide();
    saisie->setFocus();
    ViderResultats();
    baseLue_ = BaseCourante();
    Occuper(true);

    nombre_ = std::make_shared<std::atomic<int32_t>>(0);
    const auto trouves = std::make_shared<ListeFichiers>();
    const auto lieux = std::make_shared<LieuxResultats>();
    const DemandeRecherche demande = etat_.Demande();
    const FiltreRecherche filtre = etat_.Filtre();
    travail_.Demander(
        Place::Recherche,
        [this, trouves, lieux, demande, filtre, tri = etat_.Tri(), voulus = etat_.LieuxVoulus(),
         nombre = nombre_](const std::stop_token& arret) {
            *trouves = RechercheLabel(demande, filtre, icones_, arret, *nombre);
            if (voulus)
                *lieux = LireLieux(*trouves, arret);
            if (tri)
                trouves->Ordonner(Trier(*trouves, *lieux, *tri, arret));
        },
        [this, trouves, lieux, demande, filtre] {
            Recevoir(std::move(*trouves), std::move(*lieux));
            if (liste_.Nombre() == 0)
                panneaux_.Expliquer(EnQString(ExpliquerRien(demande, filtre)));
        });
    NoterSaisie(demande.mot);
    ChargerHistorique();
}

void frmRecherche::Recevoir(ListeFichiers trouves, LieuxResultats lieux)
{
    nombre_.reset();
    modeleListe_->Cacher();
    liste_ = std::move(trouves);
    modeleListe_->PoserLieux(std::move(lieux));
    modeleListe_->Annoncer();
    Occuper(false);
    panneaux_.commentaire->setText(EnQString(Str(liste_.Nombre())) + " Objets");
}

void frmRecherche::Occuper(bool occupe)
{
    panneaux_.barre->setVisible(occupe);
    panneaux_.ok->setChecked(occupe);
    panneaux_.ok->setToolTip(occupe ? BulleAnnuler : BulleLancer);
    panneaux_.ok->setText(occupe ? "Ann&uler" : "&Rechercher");
    if (occupe)
        panneaux_.commentaire->setText("Recherche en cours ...");
    setCursor(occupe ? Qt::WaitCursor : Qt::ArrowCursor);
    occupe ? suivi_.start() : suivi_.stop();
}

void frmRecherche::ViderResultats()
{
    panneaux_.infobulle->Cacher();
    panneaux_.titre->clear();
    panneaux_.titre->setToolTip({});
    panneaux_.commentaire->clear();
    panneaux_.Expliquer({});
    modeleListe_->Cacher();
    // A piece that sorts them may run yet.
    travail_.Executer(Place::TriResultats, [this] {
        liste_ = {};
        modeleListe_->PoserLieux({});
        modeleListe_->Annoncer();
    });
}

void frmRecherche::TrierColonne(int colonne)
{
    etat_.TrierColonne(colonne);
    const TriListe tri = *etat_.Tri();
    panneaux_.lvListView->header()->setSortIndicator(colonne,
                                                     tri.decroissant ? Qt::DescendingOrder : Qt::AscendingOrder);
    Ordonner();
}

// Reads where the results lie, once that is wanted, and brings them into their order.
void frmRecherche::Ordonner()
{
    panneaux_.infobulle->Cacher();
    const auto lieux = std::make_shared<LieuxResultats>();
    const auto ordre = std::make_shared<ListeFichiers::Ordre>();
    travail_.Demander(
        Place::TriResultats,
        [this, lieux, ordre, tri = etat_.Tri(), voulus = etat_.LieuxVoulus()](const std::stop_token& arret) {
            *lieux = voulus && !modeleListe_->LieuxConnus() ? LireLieux(liste_, arret) : modeleListe_->Lieux();
            if (tri)
                *ordre = Trier(liste_, *lieux, *tri, arret);
        },
        [this, lieux, ordre] {
            modeleListe_->PoserLieux(std::move(*lieux));
            modeleListe_->Ordonner(std::move(*ordre));
            panneaux_.lvListView->scrollTo(panneaux_.lvListView->currentIndex());
        });
}

void frmRecherche::MontrerColonnes()
{
    enAjustement_ = true;
    for (int colonne = ColMedia; colonne < NombreColonnesRecherche; ++colonne)
        panneaux_.lvListView->setColumnHidden(colonne, !etat_.ColonneMontree(colonne));
    enAjustement_ = false;
    AjusterLargeurs();
}

void frmRecherche::MenuColonnes(const QPoint& place)
{
    panneaux_.infobulle->Cacher();
    QMenu menu(this);
    menu.setObjectName("MenuColonnes");
    for (int colonne = ColMedia; colonne < NombreColonnesRecherche; ++colonne) {
        QAction* action = menu.addAction(modeleListe_->headerData(colonne, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(etat_.ColonneMontree(colonne));
        connect(action, &QAction::toggled, this, [this, colonne](bool montree) {
            etat_.MontrerColonne(colonne, montree);
            MontrerColonnes();
            Ordonner();
        });
    }
    menu.exec(panneaux_.lvListView->header()->mapToGlobal(place));
}

// Until the user has set widths, names and folders share what the other columns leave.
void frmRecherche::AjusterLargeurs()
{
    if (largeursChoisies_)
        return;
    QHeaderView* entete = panneaux_.lvListView->header();
    const bool dossiers = !entete->isSectionHidden(ColDossier);
    const int larges = entete->sectionSize(ColNom) + entete->sectionSize(ColDossier);  // 0 for a hidden one
    const int reste = panneaux_.lvListView->viewport()->width() - entete->length() + larges;
    const int largeur = std::max(dossiers ? reste / 2 : reste, entete->fontMetrics().averageCharWidth() * 24);
    enAjustement_ = true;
    entete->resizeSection(ColNom, largeur);
    if (dossiers)
        entete->resizeSection(ColDossier, largeur);
    enAjustement_ = false;
}

void frmRecherche::lvListView_Click()
{
    CacherCalendrier();
    travail_.Executer(Place::Description, [this] {
        const QModelIndex index = panneaux_.lvListView->currentIndex();
        if (!index.isValid())
            return;
        const ItemListe item = liste_[index.row()];
        panneaux_.titre->setText(" " + EnQString(Generer_Arborescence_Lite(item.cle)));
        panneaux_.titre->setToolTip(EnBulle(panneaux_.titre->text()));
        if (GetSettingNombre(SectionSettings, CleOptionsDivers[3], 1) == 1)
            MontrerDescription(item, index);
        else
            panneaux_.infobulle->Cacher();
    });
}

void frmRecherche::MontrerDescription(const ItemListe& item, const QModelIndex& index)
{
    const std::string texte = AfficherDescriptionInfobulle(item);
    if (Trim(texte).empty()) {
        panneaux_.infobulle->Cacher();
        return;
    }
    // Beside the pointer when it is on the result, below the result when the keyboard has come to it.
    const QWidget* surface = panneaux_.lvListView->viewport();
    QRect ligne = panneaux_.lvListView->visualRect(index.siblingAtColumn(ColNom));
    QPoint place = ligne.bottomLeft() + QPoint(ligne.height(), -ligne.height() / 2);
    ligne.setWidth(surface->width());
    ligne.moveLeft(0);
    if (const QPoint souris = surface->mapFromGlobal(QCursor::pos()); ligne.contains(souris))
        place = souris;
    panneaux_.infobulle->Montrer(EnLignes(texte).trimmed(), surface->mapTo(this, place));
}

void frmRecherche::lvListView_DblClick()
{
    const QModelIndex index = panneaux_.lvListView->currentIndex();
    if (!index.isValid())
        return;
    panneaux_.infobulle->Cacher();
    emit resultatVoulu(liste_[index.row()]);
}

void frmRecherche::ResultatAtteint(bool trouve)
{
    if (!trouve)
        panneaux_.commentaire->setText("Introuvable dans l'arborescence du catalogue");
    else
        Memoriser();
}

void frmRecherche::MenuAtteindre(const QPoint& place)
{
    if (!panneaux_.lvListView->currentIndex().isValid())
        return;
    panneaux_.infobulle->Cacher();
    QMenu menu(this);
    menu.setObjectName("MenuAtteindre");
    connect(menu.addAction("Atteindre"), &QAction::triggered, this, &frmRecherche::lvListView_DblClick);
    menu.exec(panneaux_.lvListView->viewport()->mapToGlobal(place));
}

// One step back: what lies over the window first, then the search, then the window.
void frmRecherche::Echapper()
{
    if (!panneaux_.cadreCalendrier->isHidden())
        CacherCalendrier();
    else if (EnRecherche())
        Annuler();
    else if (panneaux_.infobulle->isVisible())
        panneaux_.infobulle->Cacher();
    else
        close();
}

void frmRecherche::closeEvent(QCloseEvent* evenement)
{
    evenement->ignore();
    if (EnRecherche())
        Annuler();
    Memoriser();
    CacherCalendrier();
    ViderResultats();
    Saisir({});
    emit fermetureVoulue();
}

void frmRecherche::changeEvent(QEvent* evenement)
{
    QMainWindow::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange)
        panneaux_.Colorer(etat_.Onglet());
}

void frmRecherche::resizeEvent(QResizeEvent* evenement)
{
    QMainWindow::resizeEvent(evenement);
    CacherCalendrier();
    panneaux_.infobulle->Cacher();
}

bool frmRecherche::eventFilter(QObject* objet, QEvent* evenement)
{
    const QEvent::Type type = evenement->type();
    if (type == QEvent::KeyPress)
        return Touche(objet, static_cast<QKeyEvent*>(evenement)->key()) || QMainWindow::eventFilter(objet, evenement);
    // The panes are touched for these kinds only: closing sends others while they are being deleted.
    if (type == QEvent::MouseMove && objet == panneaux_.lvListView->viewport() && panneaux_.infobulle->isVisible()) {
        const QPointF souris = static_cast<QMouseEvent*>(evenement)->position();
        panneaux_.infobulle->Suivre(panneaux_.lvListView->viewport()->mapTo(this, souris.toPoint()));
    }
    if (type == QEvent::Resize && objet == panneaux_.lvListView->viewport())
        AjusterLargeurs();
    if (type == QEvent::ToolTip && objet == panneaux_.lvListView->viewport() &&
        MontrerLieu(static_cast<QHelpEvent*>(evenement)->pos()))
        return true;
    return QMainWindow::eventFilter(objet, evenement);
}

// A row's tip: its name and the way to it. True when there is nothing else to be shown.
bool frmRecherche::MontrerLieu(const QPoint& place)
{
    if (panneaux_.infobulle->isVisible())
        return true;  // one tip at a time
    const QModelIndex index = panneaux_.lvListView->indexAt(place);
    if (!index.isValid() || travail_.EnCours())
        return false;
    travail_.Executer(Place::Description, [this, index, place] {
        const ItemListe item = liste_[index.row()];
        const QWidget* surface = panneaux_.lvListView->viewport();
        QStringList lignes = {EnQString(item.cellules[ColNom]), EnQString(Generer_Arborescence_Lite(item.cle))};
        for (QString& ligne : lignes)
            ligne = fontMetrics().elidedText(ligne, Qt::ElideMiddle, surface->width());
        QToolTip::showText(surface->mapToGlobal(place), EnBulle(lignes.join('\n')), panneaux_.lvListView->viewport());
    });
    return true;
}

// True for a key that is used up.
bool frmRecherche::Touche(QObject* objet, int touche)
{
    auto* boite = qobject_cast<QLineEdit*>(objet);
    if (!boite && EstEntree(touche)) {
        objet == panneaux_.lvListView ? lvListView_DblClick() : Rechercher();
        return true;
    }
    if (!boite || touche != Qt::Key_Down)
        return false;
    MontrerAnciens(*boite, boite->text());
    return true;
}
