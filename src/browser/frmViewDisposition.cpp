// The widgets of the browser window and what their signals lead to.
#include <QActionGroup>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QTreeView>

#include "browser/CommandesBase.h"
#include "browser/frmView.h"
#include "fenetres/DelegueGrille.h"
#include "fenetres/Place.h"
#include "store/Reglages.h"

QAction* frmView::CreerAction(const char* texte, const char* image, const QKeySequence& touches)
{
    auto* action = new QAction(texte, this);
    if (image)
        action->setIcon(QIcon(QString(":/images/%1.svg").arg(image)));
    action->setShortcut(touches);
    return action;
}

void frmView::CreerActions()
{
    repert_[0] = CreerAction("&Créer un nouveau catalogue", "catalogue-nouveau", QKeySequence::New);
    repert_[1] = CreerAction("&Ouvrir un catalogue", "catalogue-ouvrir", QKeySequence::Open);
    repert_[2] = CreerAction("&Duppliquer le catalogue en cours");
    repert_[3] = CreerAction("&Supprimer le catalogue en cours", "catalogue-supprimer");
    supprimer_ = CreerAction("Supprimer le catalogue en cours", "catalogue-supprimer");
    ajouter_ = CreerAction("&Ajouter un nouveau média", "media-ajouter", QKeySequence("Ctrl+M"));
    rechercher_ = CreerAction("&Rechercher", "rechercher", QKeySequence::Find);
    preferences_ = CreerAction("&Préférences", "preferences", QKeySequence("Ctrl+,"));
    quitter_ = CreerAction("&Quitter", nullptr, QKeySequence("Ctrl+Q"));
    fichier1_[0] = CreerAction("&Lancer le fichier");
    fichier1_[1] = CreerAction("&Ouvrir l'explorateur windows");
    ajouter_->setToolTip(" Ajouter de nouveaux médias dans le catalogue ");
    repert_[0]->setToolTip(" Ajouter un nouveau catalogue ");
    repert_[1]->setToolTip(" Ouvrir un catalogue ");
    supprimer_->setToolTip(" Supprimer le catalogue en cours ");
    rechercher_->setToolTip(" Rechercher des informations ");
    preferences_->setToolTip(" Préférences ");

    connect(repert_[0], &QAction::triggered, this, [this] {
        const std::string chemin = choisirFichier("Créer un nouveau catalogue", true);
        ApresChangementDeBase(!chemin.empty() && CreerCatalogue(chemin, dialogues_));
    });
    connect(repert_[1], &QAction::triggered, this, [this] {
        const std::string chemin = choisirFichier("Ouvrir un catalogue", false);
        ApresChangementDeBase(!chemin.empty() && OuvrirCatalogue(chemin));
    });
    connect(repert_[2], &QAction::triggered, this, [this] {
        const std::string chemin = choisirFichier("Sauvegarder le catalogue en cours", true);
        if (!chemin.empty())
            DupliquerCatalogue(chemin, dialogues_);
    });
    for (QAction* action : {repert_[3], supprimer_})
        connect(action, &QAction::triggered, this, [this] { ApresChangementDeBase(SupprimerCatalogue(dialogues_)); });
    connect(ajouter_, &QAction::triggered, this, [this] {
        if (demanderAjout)
            demanderAjout();
    });
    connect(rechercher_, &QAction::triggered, this, &frmView::Btn_recherche);
    connect(preferences_, &QAction::triggered, this, &frmView::OuvrirPreferences);
    connect(quitter_, &QAction::triggered, this, [this] {
        if (demanderQuitter)
            demanderQuitter();
        else
            close();
    });
    connect(fichier1_[0], &QAction::triggered, this, [this] { Lancer(false); });
    connect(fichier1_[1], &QAction::triggered, this, [this] { Lancer(true); });

    aff_ = new QActionGroup(this);
    for (const char* texte : {"&Mosaique", "&Icônes", "&Liste", "&Détails"}) {
        QAction* action = aff_->addAction(texte);
        action->setCheckable(true);
        const int mode = static_cast<int>(aff_->actions().size()) - 1;
        action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + mode)));
        connect(action, &QAction::triggered, this, [this, mode] { ChoisirAffichage(mode); });
    }
}

void frmView::CreerMenus()
{
    QMenu* catalogue = menuBar()->addMenu("&Catalogue");
    catalogue->addActions({repert_[0], repert_[1], repert_[2], repert_[3]});
    catalogue->addSeparator();
    catalogue->addAction(rechercher_);
    catalogue->addAction(preferences_);
    catalogue->addSeparator();
    catalogue->addAction(quitter_);
    menuBar()->addMenu("&Média")->addAction(ajouter_);
    menuBar()->addMenu("&Fichier")->addActions({fichier1_[0], fichier1_[1]});
    menuBar()->addMenu("&Affichage")->addActions(aff_->actions());

    QToolBar* barre = addToolBar("Barre d'outils");
    barre->setObjectName("Menu");
    barre->setMovable(false);
    barre->setContextMenuPolicy(Qt::PreventContextMenu);
    setContextMenuPolicy(Qt::NoContextMenu);
    barre->addAction(ajouter_);
    barre->addSeparator();
    barre->addActions({repert_[0], repert_[1], supprimer_});
    barre->addSeparator();
    barre->addAction(rechercher_);
    barre->addAction(preferences_);
}

void frmView::PreparerVue(QAbstractItemView& vue)
{
    vue.setModel(modeleListe_);
    vue.setSelectionMode(QAbstractItemView::SingleSelection);
    vue.setSelectionBehavior(QAbstractItemView::SelectRows);
    vue.setEditTriggers(QAbstractItemView::NoEditTriggers);
    vue.setContextMenuPolicy(Qt::CustomContextMenu);
    vue.setAccessibleName("Contenu");
    vue.installEventFilter(this);
    // Both views follow one selection, the one of the first.
    if (lvRapport_->selectionModel() != vue.selectionModel())
        vue.setSelectionModel(lvRapport_->selectionModel());
    connect(&vue, &QAbstractItemView::clicked, &itemAMontrer_, qOverload<>(&QTimer::start));
    connect(&vue, &QAbstractItemView::doubleClicked, this, &frmView::OuvrirItem);
    connect(&vue, &QWidget::customContextMenuRequested, this, &frmView::MenuListe);
}

void frmView::CreerVues()
{
    tvTreeView_ = new QTreeView;
    tvTreeView_->setObjectName("tvTreeView");
    tvTreeView_->setAccessibleName("Liste des catalogues");
    tvTreeView_->setModel(modeleArbre_);
    tvTreeView_->setHeaderHidden(true);
    tvTreeView_->setUniformRowHeights(true);
    tvTreeView_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tvTreeView_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tvTreeView_, &QWidget::customContextMenuRequested, this, &frmView::MenuArbre);
    connect(tvTreeView_, &QTreeView::clicked, &noeudAMontrer_, qOverload<>(&QTimer::start));
    connect(tvTreeView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (selectionProgrammee_ || !index.isValid())
                    return;
                navigateur_.arbre.Selectionner(ModeleArbre::Noeud(index));
                noeudAMontrer_.start();
            });

    lvRapport_ = new QTreeView;
    lvRapport_->setObjectName("lvRapport");
    lvIcones_ = new QListView;
    lvIcones_->setObjectName("lvIcones");
    PreparerVue(*lvRapport_);
    PreparerVue(*lvIcones_);
    connect(lvRapport_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
        if (index.isValid())
            itemAMontrer_.start();
    });

    lvRapport_->setRootIsDecorated(false);
    lvRapport_->setUniformRowHeights(true);
    lvRapport_->setAllColumnsShowFocus(true);
    grille_ = new DelegueGrille(lvRapport_);
    lvRapport_->setItemDelegate(grille_);
    QHeaderView* entete = lvRapport_->header();
    PreparerColonnes(*entete);
    connect(entete, &QHeaderView::sectionClicked, this, &frmView::TrierColonne);

    lvIcones_->setUniformItemSizes(true);
    lvIcones_->setResizeMode(QListView::Adjust);
    lvIcones_->setWrapping(true);
    lvIcones_->setTextElideMode(Qt::ElideMiddle);
    lvListView_ = new QStackedWidget;
    lvListView_->addWidget(lvRapport_);
    lvListView_->addWidget(lvIcones_);
}

void frmView::CreerPanneaux()
{
    iconeTitre_ = new QLabel;
    titre_ = new QLabel;
    titre_->setObjectName("titre");
    titre_->setTextFormat(Qt::PlainText);
    auto* bandeau = new QFrame;
    bandeau->setFrameShape(QFrame::StyledPanel);
    bandeau->setMinimumHeight(fontMetrics().lineSpacing() + 10);
    // The text's own blanks leave the room in which the icon stands.
    auto* rangee = new QGridLayout(bandeau);
    rangee->setContentsMargins(6, 3, 6, 3);
    rangee->addWidget(titre_, 0, 0);
    rangee->addWidget(iconeTitre_, 0, 0, Qt::AlignLeft | Qt::AlignVCenter);

    description_ = new QPlainTextEdit;
    description_->setObjectName("description");
    description_->setReadOnly(true);
    description_->setTabChangesFocus(true);
    // Texts from files come in columns and drawings; the letters keep the size of all others.
    QFont egale = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    egale.setPointSizeF(QFontInfo(description_->font()).pointSizeF());
    description_->setFont(egale);
    description_->setAccessibleName("Description");
    description_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    separateurHorizontal_ = new QSplitter(Qt::Vertical);
    separateurHorizontal_->addWidget(lvListView_);
    separateurHorizontal_->addWidget(description_);
    separateurHorizontal_->setStretchFactor(0, 1);
    auto* droite = new QWidget;
    auto* colonne = new QVBoxLayout(droite);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->setSpacing(2);
    colonne->addWidget(bandeau);
    colonne->addWidget(separateurHorizontal_, 1);
    separateurVertical_ = new QSplitter(Qt::Horizontal);
    separateurVertical_->addWidget(tvTreeView_);
    separateurVertical_->addWidget(droite);
    separateurVertical_->setStretchFactor(1, 1);
    setCentralWidget(separateurVertical_);

    for (QSplitter* separateur : {separateurVertical_, separateurHorizontal_}) {
        const char* cle = separateur == separateurVertical_ ? "picSplitter_Left" : "picSplitter_Top";
        separateur->setChildrenCollapsible(false);
        separateur->setOpaqueResize(false);  // a bar moves; the place is kept when it is let go
        connect(separateur, &QSplitter::splitterMoved, this,
                [cle](int place, int) { SaveSettingNombre(SectionSettings, cle, place * TwipsParPixel); });
    }

    commentaire_ = new QLabel;
    commentaire_->setObjectName("Commentaire");
    barre_ = new QProgressBar;
    barre_->setRange(0, 1000);
    barre_->setTextVisible(false);
    barre_->setMaximumWidth(220);
    barre_->hide();
    statusBar()->addWidget(commentaire_, 1);
    statusBar()->addPermanentWidget(barre_);
    setTabOrder(tvTreeView_, lvRapport_);
    setTabOrder(lvRapport_, lvIcones_);
    setTabOrder(lvIcones_, description_);
}

void frmView::MenuArbre(const QPoint& place)
{
    const int32_t noeud = ModeleArbre::Noeud(tvTreeView_->indexAt(place));
    if (noeud == ArbreCatalogue::Aucun || navigateur_.arbre[noeud].niveau > 2)
        return;
    QMenu menu(this);
    if (navigateur_.arbre.EstMedia(noeud))
        menu.addAction(ajouter_);
    else
        menu.addActions({repert_[0], repert_[1], repert_[2], repert_[3]});
    menu.exec(tvTreeView_->viewport()->mapToGlobal(place));
}

void frmView::MenuListe(const QPoint& place)
{
    ActiverCommandes();
    if (!VueListe()->currentIndex().isValid())
        return;
    QMenu menu(this);
    menu.addActions({fichier1_[0], fichier1_[1]});
    menu.exec(VueListe()->viewport()->mapToGlobal(place));
}
