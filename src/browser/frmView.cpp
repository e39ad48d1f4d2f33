#include "browser/frmView.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

#include "browser/BasesRecentes.h"
#include "browser/CadrePhoto.h"
#include "browser/ChargerArbre.h"
#include "browser/CommandesBase.h"
#include "browser/OuvrirFichier.h"
#include "browser/ReglagesVue.h"
#include "browser/VersAilleurs.h"
#include "browser/VueArbre.h"
#include "catalogue/Cles.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "fenetres/Etiquette.h"
#include "fenetres/Place.h"
#include "fenetres/TexteLong.h"
#include "fenetres/TextesQt.h"
#include "fenetres/Touches.h"
#include "fenetres/TravailFenetre.h"
#include "platform/Bureau.h"
#include "platform/Chemins.h"
#include "store/ClesReglages.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

// Selects a media that was just read. False when there is none, or it is not in the tree.
bool SelectionnerMedia(Navigateur& navigateur, int64_t media)
{
    const int32_t noeud = media ? navigateur.arbre.Chercher(CleMedia(media)) : ArbreCatalogue::Aucun;
    if (noeud != ArbreCatalogue::Aucun)
        navigateur.arbre.Selectionner(noeud);
    return noeud != ArbreCatalogue::Aucun;
}

}  // namespace

// A tree as it was loaded, and what it has of the one before.
struct frmView::Chargement {
    Navigateur navigateur;
    bool repris = false;   // what was selected, or lies above it
    bool nouveau = false;  // a media that was just read is selected
};

frmView::frmView(Dialogues& dialogues, ChoixLecteur& choixLecteur, Travail& travail, QWidget* parent)
    : QMainWindow(parent),
      dialogues_(dialogues),
      choixLecteur_(choixLecteur),
      travail_(travail),
      lecteurs_(ReveilFenetre(this, [this] { lecteurs_.Livrer(); })),
      images_(icones_),
      modeleArbre_(new ModeleArbre(navigateur_.arbre, images_, this)),
      modeleListe_(new ModeleListe(navigateur_.liste, images_, this)),
      actions_(this),
      menus_(*this, actions_),
      menusGeneres_(*this, actions_, travail, [this] { return MediaChoisi(); }),
      panneaux_(*this, *modeleArbre_, *modeleListe_),
      edition_(*this, dialogues, navigateur_, *modeleArbre_, *modeleListe_, images_)
{
    setContextMenuPolicy(Qt::NoContextMenu);
    RelireBaseCourante();
    MontrerBase();
    Relier();
    RelierMenus();
    PlacerFenetrePrincipale(*this);
    LireReglagesVue(*this, panneaux_, actions_, tri_);
    Activer();
    panneaux_.arbre->setFocus();
}

// The views go first: what they show lies in this window. What was asked for this window stops.
frmView::~frmView()
{
    for (const Place place : {Place::Arbre, Place::Liste, Place::Description, Place::Tri, Place::Commande})
        travail_.Arreter(place);
    travail_.Attendre();
    delete takeCentralWidget();
}

void frmView::Relier()
{
    // Shown when the event that selected is over: a held arrow key then reads only where it stops.
    for (QTimer* attente : {&noeudAMontrer_, &itemAMontrer_}) {
        attente->setSingleShot(true);
        attente->setInterval(0);
    }
    for (QTimer* attente : {&noeudAMontrer_, &itemAMontrer_})
        connect(attente, &QTimer::timeout, this, [this] { avis_.clear(); });
    connect(&noeudAMontrer_, &QTimer::timeout, this, &frmView::tvTreeView_Click);
    connect(&itemAMontrer_, &QTimer::timeout, this, &frmView::lvListView_Click);
    reprise_.setInterval(3000);
    connect(&reprise_, &QTimer::timeout, this, &frmView::Reprendre);
    suivi_.setInterval(50);
    connect(&suivi_, &QTimer::timeout, this, &frmView::Suivre);

    VueArbre* arbre = panneaux_.arbre;
    arbre->installEventFilter(this);
    connect(arbre, &QTreeView::clicked, &noeudAMontrer_, qOverload<>(&QTimer::start));
    connect(arbre, &VueArbre::parcourue, this, [this] {
        if (navigateur_.LectureVoulue())  // selected by the loading, and not shown yet
            noeudAMontrer_.start();
    });
    connect(panneaux_.ajouter, &QPushButton::clicked, actions_[Commande::AjouterMedia], &QAction::trigger);
    connect(arbre->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
        if (selectionProgrammee_ || !index.isValid())
            return;
        navigateur_.arbre.Selectionner(ModeleArbre::Noeud(index));
        noeudAMontrer_.start();
    });
    for (QAbstractItemView* vue :
         {static_cast<QAbstractItemView*>(panneaux_.rapport), static_cast<QAbstractItemView*>(panneaux_.icones)}) {
        vue->installEventFilter(this);
        connect(vue, &QAbstractItemView::clicked, &itemAMontrer_, qOverload<>(&QTimer::start));
        connect(vue, &QAbstractItemView::doubleClicked, this, &frmView::OuvrirItem);
    }
    connect(panneaux_.rapport->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (index.isValid())
                    itemAMontrer_.start();
            });
    connect(panneaux_.rapport->header(), &QHeaderView::sectionClicked, this, &frmView::TrierColonne);
    connect(panneaux_.photo, &CadrePhoto::lue, panneaux_.frPhoto, &QWidget::setVisible);
    connect(panneaux_.modifDesc[0], &QToolButton::clicked, this,
            [this] { Editer(navigateur_.descriptionDeNoeud ? Commande::DecrireNoeud : Commande::DecrireItem); });
    connect(panneaux_.modifDesc[1], &QToolButton::clicked, this, &frmView::SupprimerPhoto);
    for (const auto& [separateur, cle] :
         {std::pair{panneaux_.vertical, ClePicSplitterLeft}, std::pair{panneaux_.horizontal, ClePicSplitterTop}})
        connect(separateur, &QSplitter::splitterMoved, this,
                [cle = cle](int place, int) { EcrirePixels(SectionSettings, cle, place); });
}

void frmView::RelierMenus()
{
    connect(&actions_, &ActionsVue::demandee, this, &frmView::Executer);
    connect(&actions_, &ActionsVue::affichageDemande, this, &frmView::ChoisirAffichage);
    connect(&menusGeneres_, &MenusGeneres::lecteurChoisi, this, &frmView::ajoutVoulu);
    connect(&menusGeneres_, &MenusGeneres::categorieChoisie, this, &frmView::categorieVoulue);
    connect(&menusGeneres_, &MenusGeneres::baseChoisie, this,
            [this](const std::string& chemin) { ChangerDeBase([chemin] { return OuvrirBaseRecente(chemin); }); });
    connect(&menusGeneres_, &MenusGeneres::policeChoisie, this, [this](const std::string& famille) {
        SaveSetting(SectionSettings, ClePoliceDescription, famille);
        RelireOptions();
    });
    menus_.Relier(panneaux_, navigateur_, [this] { Activer(); });
}

void frmView::RelireOptions()
{
    RelireOptionsVue(panneaux_);
}

void frmView::Memoriser()
{
    EnregistrerReglagesVue(*this, panneaux_, actions_);
}

void frmView::MontrerBase()
{
    RetenirBase(BaseCourante());
    setWindowTitle("Velourne (" + QString::fromStdString(BaseCourante()) + ")");
}

bool frmView::ChargerArbre()
{
    const bool autre = !navigateur_.cheminBase.empty() && navigateur_.cheminBase != BaseCourante();
    if (enChargement_ || (!ArbreARecharger() && !autre && navigateur_.arbre.Nombre() > 0))
        return false;
    FixerArbreARecharger(false);
    for (const Place place : {Place::Liste, Place::Tri})
        travail_.Arreter(place);
    NoterEtatArbre();
    ViderNavigateur();
    part_ = std::make_shared<std::atomic<double>>(0);
    const auto charge = std::make_shared<Chargement>();
    travail_.Demander(
        Place::Arbre,
        [this, charge, part = part_, tri = tri_, etat = etat_](const std::stop_token& arret) {
            charge->navigateur = ::ChargerArbre(icones_, tri, arret, *part);
            charge->repris = ReprendreEtat(charge->navigateur, etat, icones_, arret);
            charge->nouveau = SelectionnerMedia(charge->navigateur, ReprendreMediaAMontrer());
        },
        [this, charge] { Montrer(*charge); });
    Occuper(true);
    return true;
}

// A tree that could not be loaded knows nothing of what was open: what was noted before stays.
void frmView::NoterEtatArbre()
{
    focus_ = focusWidget();
    if (navigateur_.arbre.Selection() == ArbreCatalogue::Aucun)
        return;
    etat_ = NoterEtat(navigateur_, panneaux_.arbre->Ouverts());
    panneaux_.arbre->NoterPlace(etat_);
    if (const int rang = RangChoisi(); rang >= 0)
        etat_.item = navigateur_.liste[rang].cle;
}

void frmView::Montrer(Chargement& charge)
{
    modeleArbre_->Cacher();
    modeleListe_->Cacher();
    navigateur_ = std::move(charge.navigateur);
    modeleArbre_->Annoncer();
    modeleListe_->Annoncer();
    Occuper(false);
    panneaux_.arbre->expand(modeleArbre_->Index(0));
    if (charge.repris)
        panneaux_.arbre->Rouvrir(etat_);
    SelectionnerNoeud();
    if (charge.repris && !charge.nouveau)
        panneaux_.arbre->Replacer(etat_);
    if (focus_ != panneaux_.description)
        panneaux_.arbre->setFocus();
    MontrerBase();
    MontrerNavigateur();
    // What was shown is shown again.
    if (charge.repris && etat_.montre && navigateur_.arbre.CleSelection() == etat_.selection) {
        itemVoulu_ = {etat_.item, focus_ == panneaux_.VueListe()};
        tvTreeView_Click();
    }
    emit this->charge();
}

// While the base can't be opened: looks from time to time whether it can again.
void frmView::Reprendre()
{
    if (RefusBaseCourante().empty()) {
        reprise_.stop();
        FixerArbreARecharger(true);
        ChargerArbre();
        return;
    }
    if (!travail_.EnCours())
        travail_.Demander(
            Place::Arbre, [](const std::stop_token&) { OuvrirBase(); },
            [this] {
                if (RefusBaseCourante().empty())
                    Reprendre();
                else
                    MontrerStatut();
            });
}

void frmView::ViderNavigateur()
{
    modeleArbre_->Cacher();
    modeleListe_->Cacher();
    images_.OublierMedias();
    navigateur_ = {};
    navigateur_.statut = "Chargement en cours ...";
    MontrerNavigateur();
}

// While the tree is loaded it waits, with all commands but those that need none of it.
void frmView::Occuper(bool occupe)
{
    enChargement_ = occupe;
    panneaux_.arbre->setEnabled(!occupe);
    Activer();
    suivi_.start();
}

// Asked 20 times a second while something runs. What is done at once is not worth a bar.
void frmView::Suivre()
{
    const bool occupe = travail_.EnCours();
    const double part = part_ ? part_->load(std::memory_order_relaxed) : 0;
    panneaux_.barre->setVisible(occupe);
    panneaux_.barre->setValue(static_cast<int>(part * panneaux_.barre->maximum()));
    if (enChargement_)
        emit chargement(part);
    if (occupe) {
        setCursor(Qt::BusyCursor);
        return;
    }
    unsetCursor();
    suivi_.stop();
}

// The view follows the node that the logic has selected; no click comes of it.
void frmView::SelectionnerNoeud()
{
    selectionProgrammee_ = true;
    const QModelIndex index = modeleArbre_->Index(navigateur_.arbre.Selection());
    panneaux_.arbre->setCurrentIndex(index);
    panneaux_.arbre->scrollTo(index);
    selectionProgrammee_ = false;
}

void frmView::tvTreeView_Click()
{
    if (navigateur_.arbre.Selection() == ArbreCatalogue::Aucun)
        return;
    if (!navigateur_.LectureVoulue()) {
        travail_.Executer(Place::Liste, [this] {
            navigateur_.MontrerDescriptionNoeud();
            MontrerNavigateur();
            Activer();
            AtteindreItem(std::exchange(itemVoulu_, {}));
        });
        return;
    }
    part_ = std::make_shared<std::atomic<double>>(0);
    const auto lecture = std::make_shared<Lecture>();
    travail_.Demander(
        Place::Liste,
        [this, lecture, part = part_, tri = tri_, cle = std::string(navigateur_.arbre.CleSelection())](
            const std::stop_token& arret) { *lecture = LectureListeFichiers(cle, icones_, tri, arret, *part); },
        [this, lecture] { Montrer(*lecture); });
    suivi_.start();
}

void frmView::Montrer(Lecture& lecture)
{
    const int32_t precedent = navigateur_.arbre.Chercher(navigateur_.arbre.Tag());
    modeleListe_->Cacher();
    navigateur_.Montrer(std::move(lecture));
    navigateur_.MontrerDescriptionNoeud();
    modeleListe_->Annoncer();
    const int32_t noeud = navigateur_.arbre.Chercher(navigateur_.arbre.Tag());
    modeleArbre_->AnnoncerEnfants(noeud);
    modeleArbre_->AnnoncerNoeud(precedent);
    modeleArbre_->AnnoncerNoeud(noeud);
    panneaux_.ElargirTypes();
    MontrerNavigateur();
    Activer();
    AtteindreItem(std::exchange(itemVoulu_, {}));
}

void frmView::lvListView_Click()
{
    travail_.Executer(Place::Description, [this] {
        const QModelIndex index = panneaux_.VueListe()->currentIndex();
        if (!index.isValid())
            return;
        navigateur_.CliquerItem(index.row());
        Activer();
        MontrerNavigateur();
    });
}

void frmView::Atteindre(const Cible& cible)
{
    ChargerArbre();
    travail_.Executer(Place::Commande, [this, cible] {
        ArbreCatalogue& arbre = navigateur_.arbre;
        if (cible.preparer && arbre.Chercher(cible.cleNoeud) == ArbreCatalogue::Aucun)
            cible.preparer(arbre);
        const int32_t noeud = arbre.Chercher(cible.cleNoeud);
        if (noeud != ArbreCatalogue::Aucun) {
            // Nodes on the way may be new to the view; from the top, since it finds the lower ones through the upper.
            std::vector<int32_t> chemin;
            for (int32_t n = arbre[noeud].parent; n != ArbreCatalogue::Aucun; n = arbre[n].parent)
                chemin.push_back(n);
            for (auto n = chemin.rbegin(); n != chemin.rend(); ++n)
                modeleArbre_->AnnoncerEnfants(*n);
            arbre.Selectionner(noeud);
            SelectionnerNoeud();
            noeudAMontrer_.stop();
            itemVoulu_ = {cible.item ? cible.item() : std::string()};
            tvTreeView_Click();
        }
        cible.fini(noeud != ArbreCatalogue::Aucun);
        if (noeud != ArbreCatalogue::Aucun && !cible.item)
            panneaux_.arbre->setFocus();
    });
}

void frmView::AtteindreItem(const ItemVoulu& item)
{
    if (item.cle.empty())
        return;
    const int32_t rang = navigateur_.liste.Chercher(item.cle);
    if (rang < 0) {
        if (item.focus)
            panneaux_.arbre->setFocus();
        return;
    }
    const QModelIndex index = modeleListe_->index(rang, 0);
    QAbstractItemView* vue = panneaux_.VueListe();
    vue->setCurrentIndex(index);
    itemAMontrer_.stop();
    lvListView_Click();
    if (item.focus)
        vue->setFocus();
    vue->scrollTo(index);
}

void frmView::MontrerNavigateur()
{
    panneaux_.titre->setText(QString::fromStdString(navigateur_.titre));
    MontrerStatut();
    panneaux_.titre->setToolTip(EnBulle(navigateur_.chemin));
    panneaux_.texte->Montrer(EnLignes(navigateur_.description.texte));
    MontrerTitreIcone();
    MontrerPhoto();
}

// That the base can't be opened goes before all else, as long as it lasts; then what became of it, until the next
// click.
void frmView::MontrerStatut()
{
    const std::string refus = RefusBaseCourante();
    if (const std::string avis = ReprendreAvis(); !avis.empty())
        avis_ = avis;
    const QString texte = QString::fromStdString(!refus.empty() ? refus : !avis_.empty() ? avis_ : navigateur_.statut);
    panneaux_.commentaire->setText(texte);
    panneaux_.commentaire->setToolTip(refus.empty() && avis_.empty() ? QString() : texte);
    if (!refus.empty() && !reprise_.isActive())
        reprise_.start();
    const ArbreCatalogue& arbre = navigateur_.arbre;
    panneaux_.MontrerAccueil(refus.empty() && arbre.Nombre() == 1 && arbre[0].enfants == 0);
}

// The frame stays as it is until it is known whether a file stands at the path.
void frmView::MontrerPhoto()
{
    const std::string_view chemin = Trim(navigateur_.description.photo);
    if (chemin.empty())
        panneaux_.frPhoto->hide();
    panneaux_.photo->Montrer(std::string(chemin));
}

void frmView::MontrerTitreIcone()
{
    const int32_t noeud = navigateur_.arbre.Chercher(navigateur_.arbre.Tag());
    const QIcon icone = navigateur_.titre.empty() || noeud == ArbreCatalogue::Aucun
                            ? QIcon()
                            : images_.DuNoeud(navigateur_.arbre, noeud);
    panneaux_.iconeTitre->setVisible(!icone.isNull());
    const int cote = style()->pixelMetric(QStyle::PM_SmallIconSize);
    panneaux_.iconeTitre->setPixmap(icone.pixmap(cote, cote));
}

// Number of the media that the selected node belongs to, decimal; empty for the root.
std::string frmView::MediaChoisi() const
{
    const ArbreCatalogue& arbre = navigateur_.arbre;
    const int32_t media = arbre.Selection() < 0 ? ArbreCatalogue::Aucun : arbre.Media(arbre.Selection());
    return media == ArbreCatalogue::Aucun ? std::string() : AnalyserCle(arbre[media].cle).catalogue;
}

// Place of the item that is selected in the list; -1 when there is none.
int frmView::RangChoisi() const
{
    const QModelIndex index = panneaux_.VueListe()->currentIndex();
    return index.isValid() ? index.row() : -1;
}

void frmView::Activer()
{
    const int rang = RangChoisi();
    const ItemListe item = rang < 0 ? ItemListe() : navigateur_.liste[rang];
    ContexteCommandes contexte = Contexte(navigateur_.arbre, item.cle, item.EstRepertoire());
    contexte.occupe = enChargement_;
    contexte.dejaVu = navigateur_.PeutReculer();
    actions_.Activer(contexte);
}

void frmView::Executer(Commande commande)
{
    avis_.clear();
    switch (commande) {
        case Commande::CreerCatalogue: ChangerDeBase([this] { return CreerCatalogue(dialogues_); }); break;
        case Commande::OuvrirCatalogue: ChangerDeBase([this] { return OuvrirCatalogue(dialogues_); }); break;
        case Commande::DupliquerCatalogue:
            travail_.Executer(Place::Commande, [this] {
                DupliquerCatalogue(dialogues_);
                MontrerStatut();
            });
            break;
        case Commande::SupprimerCatalogue:
        case Commande::RetirerCatalogue: ChangerDeBase([this] { return SupprimerCatalogue(dialogues_); }); break;
        case Commande::AjouterMedia: emit ajoutVoulu(); break;
        case Commande::LancerFichier: Lancer(false); break;
        case Commande::OuvrirDossier: Lancer(true); break;
        case Commande::Rechercher: Btn_recherche(); break;
        case Commande::RechercherMedia:
            travail_.Executer(Place::Commande, [this] {
                if (const std::string media = MediaChoisi(); !media.empty()) {
                    PreparerRechercheMedia(media);
                    Btn_recherche();
                }
            });
            break;
        case Commande::Aide:
            if (const std::string chemin =
                    CheminAide({DossierProgramme(), QCoreApplication::applicationDirPath().toStdString()});
                !chemin.empty())
                OuvrirAvecBureau(chemin);
            break;
        case Commande::Prets:
            emit pretsVoulus();
            MontrerStatut();
            break;
        case Commande::ProprietesNoeud: ShowPropriete("Tv"); break;
        case Commande::ProprietesItem: ShowPropriete("Lv"); break;
        case Commande::Imprimer: emit impressionVoulue(); break;
        case Commande::Preferences: emit preferencesVoulues(); break;
        case Commande::Quitter: emit sortieVoulue(); break;
        case Commande::CopierNoeud: Copier(true); break;
        case Commande::CopierItem: Copier(false); break;
        case Commande::Monter: Monter(); break;
        case Commande::Reculer: SuivreNoeud(navigateur_.Reculer()); break;
        case Commande::Actualiser:
            FixerArbreARecharger(true);
            ChargerArbre();
            break;
        default: Editer(commande); break;
    }
}

void frmView::Btn_recherche()
{
    emit rechercheVoulue();
}

void frmView::Decrire(bool noeud)
{
    Editer(noeud ? Commande::DecrireNoeud : Commande::DecrireItem);
}

// What is selected when it comes to it counts: the command may have waited behind other work.
void frmView::Editer(Commande commande)
{
    Modifier([this, commande] {
        Activer();
        return actions_[commande]->isEnabled() ? edition_.Executer(commande, RangChoisi()) : EditionVue::Rien;
    });
}

void frmView::SupprimerPhoto()
{
    Modifier([this] { return edition_.SupprimerPhoto(RangChoisi()); });
}

void frmView::Modifier(const std::function<EditionVue::Suite()>& modifier)
{
    travail_.Executer(Place::Commande, [this, modifier] {
        if (!OuvrirBase().Ouverte()) {
            MontrerStatut();
            return;
        }
        selectionProgrammee_ = true;  // the view that loses a node selects another one, of its own choice
        const EditionVue::Suite suite = modifier();
        selectionProgrammee_ = false;
        MontrerStatut();
        if (suite == EditionVue::Rien)
            return;
        if (suite == EditionVue::Suivre) {
            SelectionnerNoeud();
            tvTreeView_Click();
        }
        MontrerNavigateur();
        Activer();
    });
}

// A switch waits for the work that runs; what only reads is stopped for it.
void frmView::ChangerDeBase(const std::function<bool()>& changer)
{
    for (const Place place : {Place::Liste, Place::Tri, Place::Recherche})
        travail_.Arreter(place);
    travail_.Executer(Place::Commande, [this, changer] {
        if (!changer()) {
            MontrerStatut();
            return;
        }
        MontrerBase();
        ChargerArbre();
    });
}

void frmView::ChoisirAffichage(int mode)
{
    SaveSetting(SectionSettings, CleView, std::to_string(mode));
    panneaux_.Afficher(mode);
}

void frmView::TrierColonne(int colonne)
{
    ChangerTri(tri_, colonne);
    panneaux_.rapport->header()->setSortIndicator(colonne, tri_.decroissant ? Qt::DescendingOrder : Qt::AscendingOrder);
    const auto ordre = std::make_shared<ListeFichiers::Ordre>();
    travail_.Demander(
        Place::Tri,
        [this, ordre, tri = tri_](const std::stop_token& arret) {
            *ordre = navigateur_.liste.Trier(tri.colonne, tri.decroissant, arret);
        },
        [this, ordre] {
            modeleListe_->Ordonner(std::move(*ordre));
            panneaux_.VueListe()->scrollTo(panneaux_.VueListe()->currentIndex());
        });
    suivi_.start();
}

void frmView::OuvrirItem()
{
    const QModelIndex index = panneaux_.VueListe()->currentIndex();
    if (!index.isValid())
        return;
    Activer();
    if (!navigateur_.liste[index.row()].EstRepertoire()) {
        if (actions_[Commande::LancerFichier]->isEnabled())
            Lancer(false);
        return;
    }
    SuivreNoeud(navigateur_.Descendre(index.row()));
}

// Shows the node that the logic has selected, if it has.
void frmView::SuivreNoeud(bool choisi)
{
    if (!choisi)
        return;
    SelectionnerNoeud();
    tvTreeView_Click();
}

// In the list the user comes to the item that he was in.
void frmView::Monter()
{
    const ArbreCatalogue& arbre = navigateur_.arbre;
    const std::string quitte = navigateur_.CleDansLaListe(arbre.Selection());
    if (!navigateur_.Monter())
        return;
    itemVoulu_ = {panneaux_.VueListe()->hasFocus() ? quitte : std::string()};
    SuivreNoeud(true);
}

// To the clipboard, the path of the selected node or of the list's item.
void frmView::Copier(bool noeud)
{
    travail_.Executer(Place::Commande, [this, noeud] {
        const int rang = RangChoisi();
        if (noeud || rang >= 0)
            QGuiApplication::clipboard()->setText(EnQString(
                noeud ? navigateur_.CheminNoeud(navigateur_.arbre.Selection()) : navigateur_.CheminItem(rang)));
    });
}

void frmView::ShowPropriete(std::string_view genre)
{
    if (genre == "Tv") {
        if (!navigateur_.arbre.CleSelection().empty())
            emit proprietesVoulues(std::string(navigateur_.arbre.CleSelection()), false, true);
        return;
    }
    const QModelIndex index = panneaux_.VueListe()->currentIndex();
    if (!index.isValid())
        return;
    const ItemListe item = navigateur_.liste[index.row()];
    emit proprietesVoulues(std::string(item.cle), !item.EstRepertoire(), false);
}

void frmView::ChangerCouleurs(const std::vector<int64_t>& medias, uint32_t avant, uint32_t apres)
{
    for (const int64_t media : medias)
        modeleArbre_->AnnoncerNoeud(navigateur_.ChangerCouleur(media, avant, apres));
}

void frmView::Lancer(bool dossier)
{
    travail_.Executer(Place::Commande, [this, dossier] {
        const QModelIndex index = panneaux_.VueListe()->currentIndex();
        if (!index.isValid())
            return;
        const EntreeCataloguee entree = EntreeItem(navigateur_.arbre, navigateur_.liste[index.row()]);
        LocaliserEntree(entree, dossier, lecteurs_, dialogues_, choixLecteur_, [](const std::string& chemin) {
            if (!chemin.empty())
                OuvrirAvecBureau(chemin);
        });
    });
}

void frmView::closeEvent(QCloseEvent* evenement)
{
    Memoriser();
    evenement->ignore();
    emit fermetureVoulue();
}

// An extraction may have asked for a new tree while another window was in front.
void frmView::changeEvent(QEvent* evenement)
{
    QMainWindow::changeEvent(evenement);
    if (evenement->type() != QEvent::ActivationChange || !isActiveWindow() || navigateur_.arbre.Nombre() == 0)
        return;
    if (!ChargerArbre() && !enChargement_) {
        MontrerStatut();
        if (reprise_.isActive())
            Reprendre();
    }
}

bool frmView::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() == QEvent::KeyPress && Touche(objet, *static_cast<QKeyEvent*>(evenement)))
        return true;
    return QMainWindow::eventFilter(objet, evenement);
}

// Of the tree and the list; Enter opens an item.
bool frmView::Touche(QObject* vue, const QKeyEvent& evenement)
{
    const bool liste = vue != panneaux_.arbre;
    if (liste && EstEntree(evenement.key()) && !evenement.modifiers().testFlag(Qt::AltModifier)) {
        OuvrirItem();
        return true;
    }
    Activer();
    return actions_.Toucher(evenement, liste);
}
