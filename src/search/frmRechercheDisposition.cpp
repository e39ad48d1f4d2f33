// The widgets of the search window and what their signals lead to.
#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStringListModel>
#include <QToolButton>
#include <QTreeView>

#include "fenetres/Etiquette.h"
#include "search/Infobulle.h"
#include "search/frmRecherche.h"
#include "store/Reglages.h"

namespace {

struct TexteOnglet {
    const char* libelle;
    const char* bulle;
};
constexpr TexteOnglet Onglets[] = {
    {"&Avancée", " Recherche avancée "},
    {"Par &identifiant", " Recherche par rapport à l'identifiant "},
    {"Par &label", " Recherche par rapport au label "},
};

// A told colour as it can be read: lighter where the palette's ground is dark.
QColor Lisible(const QColor& couleur, const QPalette& palette)
{
    if (palette.color(QPalette::Window).lightness() > 127)
        return couleur;
    return QColor::fromHsl(couleur.hslHue(), 255, 200);
}

QString TexteAide(const QColor& motif, const QColor& sens)
{
    const auto exemple = [&](const char* mot, const char* effet) {
        return QString("<b style=\"color:%1\">%2</b> pour <span style=\"color:%3\">%4</span>")
            .arg(motif.name(), mot, sens.name(), effet);
    };
    return "Exemple : saisir " + exemple("*a", "tout ce qui se termine par a") + ", " +
           exemple("a*", "tout ce qui commence par a") + ", " + exemple("*a*", "tout ce qui contient a");
}

QLabel* CreerLibelle(const char* texte, QWidget* voisin)
{
    auto* libelle = new QLabel(texte);
    libelle->setBuddy(voisin);
    return libelle;
}

}  // namespace

QWidget* frmRecherche::CreerOnglets()
{
    auto* cadre = new QWidget;
    auto* rangee = new QHBoxLayout(cadre);
    rangee->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < NombreOnglets; ++i) {
        auto* bouton = new QToolButton;
        bouton->setObjectName(QString("Btn%1").arg(i));
        bouton->setText(Onglets[i].libelle);
        bouton->setToolTip(Onglets[i].bulle);
        bouton->setAccessibleName(QString(Onglets[i].bulle).trimmed());
        bouton->setCheckable(true);
        bouton->setAutoRaise(true);
        bouton->setFocusPolicy(Qt::StrongFocus);
        connect(bouton, &QToolButton::clicked, this, [this, i] {
            SaveSetting(SectionLvListView, "Onglet", std::to_string(i));
            ChoisirOnglet(i);
            saisie_[i]->setFocus();
        });
        rangee->addWidget(bouton);
        btn_[i] = bouton;
    }
    rangee->addStretch(1);
    return cadre;
}

QLineEdit* frmRecherche::CreerSaisie(int onglet)
{
    auto* boite = new QLineEdit;
    boite->setObjectName(QString("Saisie%1").arg(onglet));
    boite->setAccessibleName("Mot à rechercher");
    boite->setClearButtonEnabled(true);
    auto* completion = new QCompleter(historique_, boite);
    completion->setCaseSensitivity(Qt::CaseInsensitive);
    completion->setFilterMode(Qt::MatchContains);
    completion->setMaxVisibleItems(12);
    boite->setCompleter(completion);
    boite->installEventFilter(this);
    connect(boite, &QLineEdit::textChanged, this, &frmRecherche::Saisir);
    // When the list of completions has closed.
    connect(boite, &QLineEdit::returnPressed, this, &frmRecherche::Rechercher, Qt::QueuedConnection);
    saisie_[onglet] = boite;
    return boite;
}

QComboBox* frmRecherche::CreerChoix(const char* nom, const char* cle, const QString& libelle)
{
    auto* choix = new QComboBox;
    choix->setObjectName(nom);
    choix->setAccessibleName(libelle);
    choix->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choix->setMinimumContentsLength(16);
    choix->setMaxVisibleItems(20);
    connect(choix, &QComboBox::activated, this,
            [cle](int rang) { SaveSetting(SectionSettings, cle, std::to_string(rang)); });
    return choix;
}

QCheckBox* frmRecherche::CreerOption(int option, const char* texte)
{
    auto* choix = new QCheckBox(texte);
    choix->setObjectName(QString("Rec%1").arg(option));
    choix->setAccessibleName(QString(texte).remove('&').trimmed());
    connect(choix, &QCheckBox::clicked, this, [this, option](bool active) { ChangerOption(option, active); });
    rec_[option] = choix;
    return choix;
}

void frmRecherche::CreerDates(QLayout& mise)
{
    const char* noms[] = {"Date de début", "Date de fin"};
    for (int rang = 0; rang < 2; ++rang) {
        auto* date = new QPushButton;
        date->setObjectName(QString("InfoDate%1").arg(rang));
        date->setAccessibleName(noms[rang]);
        date->setToolTip(QString(" %1 ").arg(noms[rang]));
        date->setAutoDefault(true);
        date->setMinimumWidth(date->fontMetrics().horizontalAdvance("00/00/00000000"));
        connect(date, &QPushButton::clicked, this, [this, rang] { BasculerCalendrier(rang); });
        mise.addWidget(CreerLibelle(rang == 0 ? "du" : "au", nullptr));
        mise.addWidget(date);
        infoDate_[rang] = date;
    }
}

// The word, and below it what only this tab has.
QWidget* frmRecherche::CreerPage(int onglet)
{
    auto* page = new QWidget;
    auto* grille = new QGridLayout(page);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->setColumnStretch(1, 1);
    QLineEdit* saisie = CreerSaisie(onglet);
    grille->addWidget(CreerLibelle("&Mot :", saisie), 0, 0);
    grille->addWidget(saisie, 0, 1);
    if (onglet == RechercheIdentifiant) {
        lIdent_ = CreerChoix("LIdent", "LIdent", "Identifiant du média");
        grille->addWidget(CreerLibelle("Identi&fiant :", lIdent_), 1, 0);
        grille->addWidget(lIdent_, 1, 1);
    } else if (onglet == RechercheLabelMedia) {
        lLables_ = CreerChoix("LLables", "LLabel", "Label du média");
        grille->addWidget(CreerLibelle("La&bel du média :", lLables_), 1, 0);
        grille->addWidget(lLables_, 1, 1);
    } else {
        auto* extensions = new QHBoxLayout;
        extensions->addWidget(CreerOption(OptionExtensions, " Rechercher par rapport aux &extensions des fichiers "));
        lExt_ = CreerChoix("LExt", "LExt", "Extension des fichiers");
        extensions->addWidget(lExt_);
        extensions->addStretch(1);
        auto* dates = new QHBoxLayout;
        dates->addWidget(CreerOption(OptionDates, " Rechercher par rapport aux dates de &création "));
        CreerDates(*dates);
        dates->addStretch(1);
        grille->addLayout(extensions, 1, 0, 1, 2);
        grille->addLayout(dates, 2, 0, 1, 2);
    }
    grille->setRowStretch(3, 1);
    return page;
}

QWidget* frmRecherche::CreerPages()
{
    pages_ = new QStackedWidget;
    for (int onglet = 0; onglet < NombreOnglets; ++onglet)
        pages_->addWidget(CreerPage(onglet));
    return pages_;
}

QWidget* frmRecherche::CreerOptions()
{
    aide_ = new QLabel;
    aide_->setObjectName("Aide");
    aide_->setTextFormat(Qt::RichText);
    aide_->setWordWrap(true);
    QFont police = aide_->font();
    police.setFamilies({"MS Sans Serif", police.family(), "sans-serif"});
    aide_->setFont(police);

    auto* cadre = new QWidget;
    auto* colonne = new QVBoxLayout(cadre);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->addWidget(aide_);
    auto* rangee = new QHBoxLayout;
    rangee->addWidget(CreerOption(OptionNoms, " Rechercher dans les &noms des fichiers "));
    rangee->addWidget(CreerOption(OptionDescriptions, " Rechercher dans les &descriptions "));
    rangee->addStretch(1);
    colonne->addLayout(rangee);
    return cadre;
}

void frmRecherche::CreerCalendrier()
{
    cadreCalendrier_ = new QFrame(this);
    cadreCalendrier_->setFrameShape(QFrame::StyledPanel);
    cadreCalendrier_->setAutoFillBackground(true);
    calendrier_ = new QCalendarWidget;
    calendrier_->setObjectName("Calendrier");
    calendrier_->setAccessibleName("Calendrier");
    calendrier_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    auto* mise = new QVBoxLayout(cadreCalendrier_);
    mise->setContentsMargins(1, 1, 1, 1);
    mise->addWidget(calendrier_);
    cadreCalendrier_->hide();
    connect(calendrier_, &QCalendarWidget::clicked, this, &frmRecherche::ChoisirJour);
    connect(calendrier_, &QCalendarWidget::activated, this, &frmRecherche::ChoisirJour);
}

void frmRecherche::CreerListe()
{
    lvListView_ = new QTreeView;
    lvListView_->setObjectName("lvListView");
    lvListView_->setAccessibleName("Résultats");
    lvListView_->setModel(modeleListe_);
    lvListView_->setSelectionMode(QAbstractItemView::SingleSelection);
    lvListView_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvListView_->setRootIsDecorated(false);
    lvListView_->setUniformRowHeights(true);
    lvListView_->setAllColumnsShowFocus(true);
    lvListView_->setContextMenuPolicy(Qt::CustomContextMenu);
    lvListView_->installEventFilter(this);
    lvListView_->viewport()->installEventFilter(this);
    lvListView_->viewport()->setMouseTracking(true);
    connect(lvListView_, &QTreeView::clicked, &itemAMontrer_, qOverload<>(&QTimer::start));
    connect(lvListView_, &QTreeView::doubleClicked, this, &frmRecherche::lvListView_DblClick);
    connect(lvListView_, &QWidget::customContextMenuRequested, this, &frmRecherche::MenuAtteindre);
    connect(lvListView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (index.isValid())
                    itemAMontrer_.start();
            });

    QHeaderView* entete = lvListView_->header();
    PreparerColonnes(*entete);
    connect(entete, &QHeaderView::sectionClicked, this, &frmRecherche::TrierColonne);
}

QWidget* frmRecherche::CreerCentre()
{
    ok_ = new QPushButton;
    ok_->setObjectName("OK0");
    ok_->setCheckable(true);
    ok_->setAutoDefault(true);
    ok_->setIcon(QIcon(":/images/rechercher.svg"));
    ok_->setCursor(Qt::ArrowCursor);
    // Wide enough for both of its texts.
    ok_->setMinimumWidth(ok_->fontMetrics().horizontalAdvance("Rechercher") + 60);
    ok_->setMinimumHeight(2 * fontMetrics().lineSpacing() + 6);
    connect(ok_, &QPushButton::clicked, this, &frmRecherche::PresserOK);
    auto* catalogue = new QPushButton("Ca&talogue");
    catalogue->setObjectName("Catalogue");
    catalogue->setToolTip(" Revenir au catalogue ");
    catalogue->setAutoDefault(true);
    connect(catalogue, &QPushButton::clicked, this, &QWidget::close);
    auto* boutons = new QVBoxLayout;
    boutons->addWidget(ok_);
    boutons->addWidget(catalogue);
    boutons->addStretch(1);

    auto* criteres = new QVBoxLayout;
    criteres->addWidget(CreerOnglets());
    criteres->addWidget(CreerPages());
    criteres->addWidget(CreerOptions());
    auto* haut = new QHBoxLayout;
    haut->setSpacing(16);
    haut->addLayout(criteres, 1);
    haut->addLayout(boutons);

    titre_ = new Etiquette;
    titre_->setObjectName("titre");
    auto* bandeau = new QFrame;
    bandeau->setFrameShape(QFrame::StyledPanel);
    auto* rangee = new QHBoxLayout(bandeau);
    rangee->setContentsMargins(6, 4, 6, 4);
    rangee->addWidget(titre_);
    CreerListe();

    auto* centre = new QWidget;
    auto* colonne = new QVBoxLayout(centre);
    colonne->addLayout(haut);
    colonne->addWidget(bandeau);
    colonne->addWidget(lvListView_, 1);
    auto* echappement = new QShortcut(Qt::Key_Escape, this);
    connect(echappement, &QShortcut::activated, this, &frmRecherche::Echapper);
    return centre;
}

void frmRecherche::CreerStatut()
{
    commentaire_ = new QLabel;
    commentaire_->setObjectName("Commentaire");
    barre_ = new QProgressBar;
    barre_->setObjectName("Progression");
    barre_->setAccessibleName("Progression");
    barre_->setRange(0, 0);  // nobody knows how many rows will come without searching twice
    barre_->setTextVisible(false);
    barre_->setMaximumWidth(220);
    statusBar()->addWidget(commentaire_, 1);
    statusBar()->addPermanentWidget(barre_);
}

// Black is the palette's own text colour, which a dark theme makes light.
void frmRecherche::Colorer()
{
    for (int i = 0; i < NombreOnglets; ++i) {
        QPalette couleurs = palette();
        if (i == onglet_)
            couleurs.setColor(QPalette::ButtonText, Lisible(QColor(0, 0, 255), couleurs));
        btn_[i]->setPalette(couleurs);
    }
    aide_->setText(TexteAide(Lisible(QColor(255, 0, 0), palette()), Lisible(QColor(0, 0, 255), palette())));
}
