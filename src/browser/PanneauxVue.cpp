#include "browser/PanneauxVue.h"

#include <algorithm>

#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>
#include <QTreeView>

#include "browser/CadrePhoto.h"
#include "browser/ModeleArbre.h"
#include "browser/ModeleListe.h"
#include "browser/VueArbre.h"
#include "fenetres/DelegueGrille.h"
#include "fenetres/Etiquette.h"
#include "fenetres/LargeurTextes.h"
#include "fenetres/PoliceEgale.h"
#include "fenetres/TexteLong.h"

namespace {

void Preparer(QAbstractItemView& vue, ModeleListe& modele)
{
    vue.setModel(&modele);
    vue.setSelectionMode(QAbstractItemView::SingleSelection);
    vue.setSelectionBehavior(QAbstractItemView::SelectRows);
    vue.setEditTriggers(QAbstractItemView::NoEditTriggers);
    vue.setContextMenuPolicy(Qt::CustomContextMenu);
    vue.setAccessibleName("Contenu");
}

}  // namespace

PanneauxVue::PanneauxVue(QMainWindow& fenetre, ModeleArbre& modeleArbre, ModeleListe& modeleListe)
{
    CreerArbre(modeleArbre);
    CreerListe(modeleListe);
    CreerDescription();

    horizontal = new QSplitter(Qt::Vertical);
    contenu_ = new QStackedWidget;
    contenu_->addWidget(liste);
    contenu_->addWidget(CreerAccueil());
    horizontal->addWidget(contenu_);
    auto* bas = new QWidget;
    auto* rangee = new QHBoxLayout(bas);
    rangee->setContentsMargins(0, 0, 0, 0);
    rangee->setSpacing(2);
    rangee->addWidget(CreerPhoto());
    rangee->addWidget(description, 1);
    horizontal->addWidget(bas);
    horizontal->setStretchFactor(0, 1);
    auto* droite = new QWidget;
    auto* colonne = new QVBoxLayout(droite);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->setSpacing(2);
    colonne->addWidget(CreerBandeau());
    colonne->addWidget(horizontal, 1);
    vertical = new QSplitter(Qt::Horizontal);
    vertical->addWidget(arbre);
    vertical->addWidget(droite);
    vertical->setStretchFactor(1, 1);
    for (QSplitter* separateur : {vertical, horizontal}) {
        separateur->setChildrenCollapsible(false);
        separateur->setOpaqueResize(false);  // a bar moves; the place is taken when it is let go
    }
    fenetre.setCentralWidget(vertical);
    CreerStatut(fenetre);
    QWidget::setTabOrder(arbre, rapport);
    QWidget::setTabOrder(rapport, icones);
    QWidget::setTabOrder(icones, modifDesc[0]);
    QWidget::setTabOrder(modifDesc[0], modifDesc[1]);
    QWidget::setTabOrder(modifDesc[1], description);
}

void PanneauxVue::CreerArbre(ModeleArbre& modele)
{
    arbre = new VueArbre(modele);
    arbre->setObjectName("tvTreeView");
    arbre->setAccessibleName("Liste des catalogues");
    arbre->setHeaderHidden(true);
    arbre->setUniformRowHeights(true);
    arbre->setEditTriggers(QAbstractItemView::NoEditTriggers);
    arbre->setContextMenuPolicy(Qt::CustomContextMenu);
}

void PanneauxVue::CreerListe(ModeleListe& modele)
{
    rapport = new QTreeView;
    rapport->setObjectName("lvRapport");
    icones = new VueIcones;
    icones->setObjectName("lvIcones");
    Preparer(*rapport, modele);
    Preparer(*icones, modele);
    icones->setSelectionModel(rapport->selectionModel());

    rapport->setRootIsDecorated(false);
    rapport->setUniformRowHeights(true);
    rapport->setAllColumnsShowFocus(true);
    grille = new DelegueGrille(rapport);
    rapport->setItemDelegate(grille);
    PreparerColonnes(*rapport->header());
    largeurTypes_ = rapport->header()->sectionSize(ColType);

    liste = new QStackedWidget;
    liste->addWidget(rapport);
    liste->addWidget(icones);
}

QWidget* PanneauxVue::CreerAccueil()
{
    auto* accueil = new QFrame;
    accueil->setObjectName("accueil");
    accueil->setFrameShape(QFrame::StyledPanel);
    accueil->setBackgroundRole(QPalette::Base);
    accueil->setAutoFillBackground(true);
    auto* phrase = new QLabel(
        "Ce catalogue est encore vide.\n\nInsérez un disque ou choisissez un lecteur : Velourne le lit une fois, et "
        "vous le consulterez ensuite sans lui.");
    phrase->setObjectName("phraseAccueil");
    phrase->setForegroundRole(QPalette::Text);
    phrase->setWordWrap(true);
    phrase->setAlignment(Qt::AlignCenter);
    ajouter = new QPushButton(QIcon(":/images/media-ajouter.svg"), "Ajouter un nouveau média");
    ajouter->setObjectName("ajouter");
    auto* colonne = new QVBoxLayout(accueil);
    colonne->addStretch(1);
    colonne->addWidget(phrase);
    colonne->addSpacing(phrase->fontMetrics().lineSpacing());
    colonne->addWidget(ajouter, 0, Qt::AlignHCenter);
    colonne->addStretch(2);
    return accueil;
}

void PanneauxVue::CreerDescription()
{
    description = new QPlainTextEdit;
    description->setObjectName("description");
    description->setReadOnly(true);
    description->setTabChangesFocus(true);
    description->setFont(PoliceEgale(description->font()));
    description->setContextMenuPolicy(Qt::CustomContextMenu);
    texte = new TexteLong(*description);
    description->setAccessibleName("Description");
    description->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

// Seen while there is a picture: its frame, and below it what can be done.
QWidget* PanneauxVue::CreerPhoto()
{
    photo = new CadrePhoto;
    photo->setObjectName("PhotoPic");
    photo->setAccessibleName("Image");
    auto* boutons = new QHBoxLayout;
    const struct {
        const char *texte, *bulle;
    } textes[] = {{"Modifier", " Modifier les descriptions "}, {"Supprimer", " Supprimer l'image "}};
    for (size_t i = 0; i < modifDesc.size(); ++i) {
        modifDesc[i] = new QToolButton;
        modifDesc[i]->setObjectName(QString("ModifDesc %1").arg(i));
        modifDesc[i]->setText(textes[i].texte);
        modifDesc[i]->setToolTip(textes[i].bulle);
        modifDesc[i]->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
        modifDesc[i]->setFocusPolicy(Qt::StrongFocus);
        boutons->addWidget(modifDesc[i]);
    }
    frPhoto = new QWidget;
    frPhoto->setObjectName("FrPhoto");
    auto* mise = new QVBoxLayout(frPhoto);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(photo, 0, Qt::AlignHCenter);
    mise->addLayout(boutons);
    mise->addStretch(1);
    frPhoto->hide();
    return frPhoto;
}

QFrame* PanneauxVue::CreerBandeau()
{
    iconeTitre = new QLabel;
    titre = new QLabel;
    titre->setObjectName("titre");
    titre->setTextFormat(Qt::PlainText);
    auto* bandeau = new QFrame;
    bandeau->setFrameShape(QFrame::StyledPanel);
    bandeau->setMinimumHeight(bandeau->fontMetrics().lineSpacing() + 10);
    // The text's own blanks leave the room in which the icon stands.
    auto* rangee = new QGridLayout(bandeau);
    rangee->setContentsMargins(6, 3, 6, 3);
    rangee->addWidget(titre, 0, 0);
    rangee->addWidget(iconeTitre, 0, 0, Qt::AlignLeft | Qt::AlignVCenter);
    return bandeau;
}

void PanneauxVue::CreerStatut(QMainWindow& fenetre)
{
    commentaire = new Etiquette;
    commentaire->setObjectName("Commentaire");
    barre = new QProgressBar;
    barre->setRange(0, 1000);
    barre->setTextVisible(false);
    barre->setMaximumWidth(220);
    barre->hide();
    fenetre.statusBar()->addWidget(commentaire, 1);
    fenetre.statusBar()->addPermanentWidget(barre);
}

void PanneauxVue::MontrerAccueil(bool vide)
{
    contenu_->setCurrentIndex(vide ? 1 : 0);
}

void PanneauxVue::ElargirTypes()
{
    QHeaderView* entete = rapport->header();
    if (entete->sectionSize(ColType) != largeurTypes_)
        return;
    const QFontMetrics lettres = rapport->fontMetrics();
    const int autour = 3 * lettres.averageCharWidth(), plafond = 40 * lettres.averageCharWidth();
    largeurTypes_ = std::max(largeurTypes_, LargeurTextes(*rapport->model(), ColType, lettres, plafond) + autour);
    entete->resizeSection(ColType, largeurTypes_);
}

QAbstractItemView* PanneauxVue::VueListe() const
{
    return qobject_cast<QAbstractItemView*>(liste->currentWidget());
}

void PanneauxVue::Afficher(int mode)
{
    const bool focus = VueListe()->hasFocus();
    if (mode != Rapport)
        icones->Afficher(static_cast<Affichage>(mode));
    liste->setCurrentWidget(mode == Rapport ? static_cast<QWidget*>(rapport) : icones);
    if (focus)
        VueListe()->setFocus();
    VueListe()->scrollTo(VueListe()->currentIndex());
}
