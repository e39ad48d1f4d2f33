#include "search/PanneauxRecherche.h"

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
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStringListModel>
#include <QToolButton>
#include <QTreeView>

#include "browser/ModeleListe.h"
#include "fenetres/Etiquette.h"
#include "fenetres/TextesQt.h"
#include "search/EtatRecherche.h"
#include "search/Infobulle.h"

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

// A colour that the design gives, made readable: lighter where the ground of the window is dark.
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

PanneauxRecherche::PanneauxRecherche(QMainWindow& fenetre, QAbstractItemModel& modele)
    : historique(new QStringListModel(&fenetre))
{
    fenetre.setCentralWidget(CreerCentre(modele));
    CreerStatut(fenetre);
    CreerCalendrier(fenetre);
    infobulle = new Infobulle(&fenetre);
}

QWidget* PanneauxRecherche::CreerOnglets()
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
        rangee->addWidget(bouton);
        btn[i] = bouton;
    }
    rangee->addStretch(1);
    return cadre;
}

QWidget* PanneauxRecherche::CreerSaisie(int onglet)
{
    auto* boite = new QLineEdit;
    boite->setObjectName(QString("Saisie%1").arg(onglet));
    boite->setAccessibleName("Mot à rechercher");
    boite->setClearButtonEnabled(true);
    auto* completion = new QCompleter(historique, boite);
    completion->setCaseSensitivity(Qt::CaseInsensitive);
    completion->setFilterMode(Qt::MatchContains);
    completion->setMaxVisibleItems(12);
    boite->setCompleter(completion);
    saisie[onglet] = boite;

    auto* fleche = new QToolButton;
    fleche->setObjectName(QString("Anciens%1").arg(onglet));
    fleche->setArrowType(Qt::DownArrow);
    fleche->setToolTip(" Mots déjà recherchés ");
    fleche->setAccessibleName("Mots déjà recherchés");
    fleche->setFocusPolicy(Qt::NoFocus);  // the key for down does the same in the box
    anciens[onglet] = fleche;
    auto* cadre = new QWidget;
    auto* rangee = new QHBoxLayout(cadre);
    rangee->setContentsMargins(0, 0, 0, 0);
    rangee->setSpacing(2);
    rangee->addWidget(boite, 1);
    rangee->addWidget(fleche);
    fleche->setFixedHeight(boite->sizeHint().height());
    return cadre;
}

QComboBox* PanneauxRecherche::CreerChoix(const char* nom, const QString& libelle)
{
    auto* choix = new QComboBox;
    choix->setObjectName(nom);
    choix->setAccessibleName(libelle);
    choix->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choix->setMinimumContentsLength(16);
    choix->setMaxVisibleItems(20);
    return choix;
}

QCheckBox* PanneauxRecherche::CreerOption(int option, const char* texte)
{
    auto* choix = new QCheckBox(texte);
    choix->setObjectName(QString("Rec%1").arg(option));
    choix->setAccessibleName(QString(texte).remove('&').trimmed());
    rec[option] = choix;
    return choix;
}

void PanneauxRecherche::CreerDates(QLayout& mise)
{
    const char* noms[] = {"Date de début", "Date de fin"};
    for (int rang = 0; rang < 2; ++rang) {
        auto* date = new QPushButton;
        date->setObjectName(QString("InfoDate%1").arg(rang));
        date->setAccessibleName(noms[rang]);
        date->setToolTip(QString(" %1 ").arg(noms[rang]));
        date->setAutoDefault(true);
        date->setMinimumWidth(date->fontMetrics().horizontalAdvance("00/00/00000000"));
        mise.addWidget(CreerLibelle(rang == 0 ? "du" : "au", nullptr));
        mise.addWidget(date);
        infoDate[rang] = date;
    }
}

// The word, and below it what only this tab has.
QWidget* PanneauxRecherche::CreerPage(int onglet)
{
    auto* page = new QWidget;
    auto* grille = new QGridLayout(page);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->setColumnStretch(1, 1);
    QWidget* mot = CreerSaisie(onglet);
    grille->addWidget(CreerLibelle("&Mot :", saisie[onglet]), 0, 0);
    grille->addWidget(mot, 0, 1);
    if (onglet == RechercheIdentifiant) {
        lIdent = CreerChoix("LIdent", "Identifiant du média");
        grille->addWidget(CreerLibelle("Identi&fiant :", lIdent), 1, 0);
        grille->addWidget(lIdent, 1, 1);
    } else if (onglet == RechercheLabelMedia) {
        lLables = CreerChoix("LLables", "Label du média");
        grille->addWidget(CreerLibelle("La&bel du média :", lLables), 1, 0);
        grille->addWidget(lLables, 1, 1);
    } else {
        auto* extensions = new QHBoxLayout;
        extensions->addWidget(CreerOption(OptionExtensions, " Rechercher par rapport aux &extensions des fichiers "));
        lExt = CreerChoix("LExt", "Extension des fichiers");
        extensions->addWidget(lExt);
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

QWidget* PanneauxRecherche::CreerPages()
{
    pages = new QStackedWidget;
    for (int onglet = 0; onglet < NombreOnglets; ++onglet)
        pages->addWidget(CreerPage(onglet));
    return pages;
}

QWidget* PanneauxRecherche::CreerOptions()
{
    aide = new QLabel;
    aide->setObjectName("Aide");
    aide->setTextFormat(Qt::RichText);
    aide->setWordWrap(true);
    QFont police = aide->font();
    police.setFamilies({"MS Sans Serif", police.family(), "sans-serif"});
    aide->setFont(police);

    auto* cadre = new QWidget;
    auto* colonne = new QVBoxLayout(cadre);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->addWidget(aide);
    auto* rangee = new QHBoxLayout;
    rangee->addWidget(CreerOption(OptionNoms, " Rechercher dans les &noms des fichiers "));
    rangee->addWidget(CreerOption(OptionDescriptions, " Rechercher dans les &descriptions "));
    rangee->addStretch(1);
    colonne->addLayout(rangee);
    sansType = new QCheckBox(" Inclure les fichiers &sans type et le contenu des archives ");
    sansType->setObjectName("SansType");
    sansType->setAccessibleName(sansType->text().remove('&').trimmed());
    colonne->addWidget(sansType);
    return cadre;
}

void PanneauxRecherche::CreerCalendrier(QMainWindow& fenetre)
{
    cadreCalendrier = new QFrame(&fenetre);
    cadreCalendrier->setFrameShape(QFrame::StyledPanel);
    cadreCalendrier->setAutoFillBackground(true);
    calendrier = new QCalendarWidget;
    calendrier->setObjectName("Calendrier");
    calendrier->setAccessibleName("Calendrier");
    calendrier->setLocale(QLocale(QLocale::French, QLocale::France));
    calendrier->setFirstDayOfWeek(Qt::Monday);
    calendrier->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    auto* mise = new QVBoxLayout(cadreCalendrier);
    mise->setContentsMargins(1, 1, 1, 1);
    mise->addWidget(calendrier);
    cadreCalendrier->hide();
}

void PanneauxRecherche::CreerListe(QAbstractItemModel& modele)
{
    lvListView = new QTreeView;
    lvListView->setObjectName("lvListView");
    lvListView->setAccessibleName("Résultats");
    lvListView->setModel(&modele);
    lvListView->setSelectionMode(QAbstractItemView::SingleSelection);
    lvListView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvListView->setRootIsDecorated(false);
    lvListView->setUniformRowHeights(true);
    lvListView->setAllColumnsShowFocus(true);
    lvListView->setContextMenuPolicy(Qt::CustomContextMenu);
    lvListView->viewport()->setMouseTracking(true);

    QHeaderView* entete = lvListView->header();
    PreparerColonnes(*entete);
    entete->resizeSection(ColMedia, entete->fontMetrics().averageCharWidth() * 18);
    entete->resizeSection(ColDossier, entete->fontMetrics().averageCharWidth() * 40);
    entete->setContextMenuPolicy(Qt::CustomContextMenu);
}

QWidget* PanneauxRecherche::CreerCentre(QAbstractItemModel& modele)
{
    ok = new QPushButton;
    ok->setObjectName("OK0");
    ok->setCheckable(true);
    ok->setAutoDefault(true);
    ok->setIcon(QIcon(":/images/rechercher.svg"));
    ok->setCursor(Qt::ArrowCursor);
    // Wide enough for both of its texts.
    ok->setMinimumWidth(ok->fontMetrics().horizontalAdvance("Rechercher") + 60);
    ok->setMinimumHeight(2 * ok->fontMetrics().lineSpacing() + 6);
    catalogue = new QPushButton("Ca&talogue");
    catalogue->setObjectName("Catalogue");
    catalogue->setToolTip(" Revenir au catalogue ");
    catalogue->setAutoDefault(true);
    auto* boutons = new QVBoxLayout;
    boutons->addWidget(ok);
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

    titre = new Etiquette;
    titre->setObjectName("titre");
    auto* bandeau = new QFrame;
    bandeau->setFrameShape(QFrame::StyledPanel);
    auto* rangee = new QHBoxLayout(bandeau);
    rangee->setContentsMargins(6, 4, 6, 4);
    rangee->addWidget(titre);
    CreerListe(modele);

    auto* centre = new QWidget;
    auto* colonne = new QVBoxLayout(centre);
    colonne->addLayout(haut);
    colonne->addWidget(bandeau);
    colonne->addWidget(lvListView, 1);
    return centre;
}

void PanneauxRecherche::CreerStatut(QMainWindow& fenetre)
{
    commentaire = new QLabel;
    commentaire->setObjectName("Commentaire");
    barre = new QProgressBar;
    barre->setObjectName("Progression");
    barre->setAccessibleName("Progression");
    barre->setRange(0, 0);  // nobody knows how many rows will come without searching twice
    barre->setTextVisible(false);
    barre->setMaximumWidth(220);
    explication = new Etiquette;
    explication->setObjectName("Explication");
    fenetre.statusBar()->addWidget(commentaire);
    fenetre.statusBar()->addWidget(explication, 1);
    fenetre.statusBar()->addPermanentWidget(barre);
}

void PanneauxRecherche::Expliquer(const QString& texte)
{
    explication->setText(texte);
    explication->setToolTip(EnBulle(texte));
}

QList<QWidget*> PanneauxRecherche::Choix() const
{
    QList<QWidget*> choix = {sansType, lExt, lIdent, lLables};
    for (QToolButton* bouton : btn)
        choix.append(bouton);
    for (QCheckBox* option : rec)
        choix.append(option);
    return choix;
}

// Black is the palette's own text colour, which a dark theme makes light.
void PanneauxRecherche::Colorer(int onglet)
{
    const QPalette palette = pages->palette();
    for (int i = 0; i < NombreOnglets; ++i) {
        QPalette couleurs = palette;
        if (i == onglet)
            couleurs.setColor(QPalette::ButtonText, Lisible(QColor(0, 0, 255), couleurs));
        btn[i]->setPalette(couleurs);
    }
    aide->setText(TexteAide(Lisible(QColor(255, 0, 0), palette), Lisible(QColor(0, 0, 255), palette)));
}
