#include "shell/Fenetres.h"

#include <cstdlib>
#include <optional>

#include <QApplication>

#include "audiocd/ChoixFenetres.h"
#include "audiocd/CourseCDAudio.h"
#include "browser/frmView.h"
#include "catalogue/Cles.h"
#include "extraction/FrmSemiAuto.h"
#include "fenetres/Place.h"
#include "fenetres/TravailFenetre.h"
#include "listings/frmImpression.h"
#include "loans/FrmPret.h"
#include "loans/FrmPropriete.h"
#include "platform/OperationsFichiers.h"
#include "search/Arborescence.h"
#include "search/frmRecherche.h"
#include "shell/FrmMain.h"
#include "shell/FrmOptions.h"
#include "store/CycleBase.h"

Fenetres::Fenetres(Dialogues& dialogues)
    : dialogues_(dialogues), travail_(ReveilFenetre(this, [this] { travail_.Livrer(); }))
{
}

Fenetres::~Fenetres() = default;

void Fenetres::Demarrer()
{
    InitialiserBase();
    NettoyerRestes();
    CreerPrincipale();
    principale_->show();
}

void Fenetres::CreerPrincipale()
{
    principale_ = std::make_unique<FrmMain>();
    connect(principale_.get(), &FrmMain::assistantVoulu, this, [this] { OuvrirAssistant(principale_.get()); });
    connect(principale_.get(), &FrmMain::vueVoulue, this, [this] { OuvrirVue(principale_.get()); });
    connect(principale_.get(), &FrmMain::fermetureVoulue, this, [this] { Quitter(principale_.get()); });
}

void Fenetres::CreerVue()
{
    vue_ = std::make_unique<frmView>(dialogues_, choixLecteur_, travail_);
    connect(vue_.get(), &frmView::ajoutVoulu, this, [this](char lettre) { OuvrirAssistant(vue_.get(), lettre); });
    connect(vue_.get(), &frmView::rechercheVoulue, this, &Fenetres::OuvrirRecherche);
    connect(vue_.get(), &frmView::impressionVoulue, this, &Fenetres::OuvrirImpression);
    connect(vue_.get(), &frmView::preferencesVoulues, this, &Fenetres::OuvrirPreferences);
    connect(vue_.get(), &frmView::pretsVoulus, this, &Fenetres::OuvrirPrets);
    connect(vue_.get(), &frmView::proprietesVoulues, this, &Fenetres::OuvrirProprietes);
    connect(vue_.get(), &frmView::categorieVoulue, this, &Fenetres::ChangerCategorie);
    connect(vue_.get(), &frmView::sortieVoulue, this, [this] { Quitter(vue_.get()); });
    connect(vue_.get(), &frmView::fermetureVoulue, this, &Fenetres::FermerVue);
    connect(vue_.get(), &frmView::chargement, this, [this](double part) {
        if (attente_.isVisible())
            attente_.Avancer("Chargement en cours ...", part);
    });
    connect(vue_.get(), &frmView::charge, this, [this] {
        if (courante_ == "FrmView" && !vue_->isVisible() && !(recherche_ && recherche_->isVisible()))
            MontrerVue(avantVue_);
    });
}

void Fenetres::CreerRecherche()
{
    recherche_ = std::make_unique<frmRecherche>(dialogues_, travail_);
    connect(recherche_.get(), &frmRecherche::resultatVoulu, this, &Fenetres::Atteindre);
    connect(recherche_.get(), &frmRecherche::fermetureVoulue, this, [this] { PrendreLaPlace(*vue_, *recherche_); });
    connect(recherche_.get(), &frmRecherche::sortieVoulue, this, [this] { Quitter(recherche_.get()); });
}

void Fenetres::CreerImpression()
{
    impression_ = std::make_unique<frmImpression>(dialogues_, travail_, vue_->Arbre());
    connect(impression_.get(), &frmImpression::fermetureVoulue, this, [this] { PrendreLaPlace(*vue_, *impression_); });
    connect(impression_.get(), &frmImpression::sortieVoulue, this, [this] { Quitter(impression_.get()); });
}

void Fenetres::CreerAssistant()
{
    assistant_ = std::make_unique<FrmSemiAuto>(
        dialogues_, travail_, [](std::string base, int64_t media, char lettre, QWidget* fenetre) {
            const QPoint coin = fenetre->mapToGlobal(QPoint());
            return std::make_unique<CourseCDAudio>(std::move(base), media, lettre, coin.y(), coin.x(), MachineReelle(),
                                                   std::make_unique<ChoixFenetres>(fenetre));
        });
    connect(assistant_.get(), &FrmSemiAuto::catalogueVoulu, this, [this] {
        precedente_ = "FrmSemi";
        assistantLaisse_ = true;
        OuvrirVue(assistant_.get());
    });
    connect(assistant_.get(), &FrmSemiAuto::fermetureVoulue, this, &Fenetres::FermerAssistant);
    connect(assistant_.get(), &FrmSemiAuto::sortieVoulue, this, [this] { Quitter(assistant_.get()); });
}

// On the drive `voulue`, the remembered one for 0.
void Fenetres::OuvrirAssistant(QWidget* depuis, char voulue)
{
    courante_ = "FrmSemiAuto";
    depuisVue_ = depuis == vue_.get();
    if (assistantLaisse_)
        assistant_->Reprendre();
    else
        CreerAssistant();
    assistantLaisse_ = false;
    if (voulue)
        assistant_->ConsulterLecteurs(voulue);
    assistant_->show();
    depuis->hide();
}

void Fenetres::FermerAssistant()
{
    assistant_->hide();
    if (depuisVue_)
        OuvrirVue(nullptr);
    else
        Revenir();
}

void Fenetres::OuvrirVue(QWidget* depuis)
{
    if (depuis == principale_.get())
        precedente_ = "FrmMain";
    courante_ = "FrmView";
    avantVue_ = depuis;
    if (!vue_)
        CreerVue();
    if (!vue_->ChargerArbre()) {
        MontrerVue(depuis);
        return;
    }
    if (depuis)
        depuis->hide();
    attente_.Montrer("Chargement en cours ...", nullptr);
}

// The wizard hands its place over; the start window is too small to do so.
void Fenetres::MontrerVue(QWidget* depuis)
{
    attente_.hide();
    if (depuis && depuis != principale_.get())
        vue_->setGeometry(depuis->geometry());
    if (depuis)
        depuis->hide();
    vue_->show();
    vue_->raise();
    vue_->activateWindow();
}

void Fenetres::OuvrirRecherche()
{
    vue_->Memoriser();
    if (!recherche_)
        CreerRecherche();
    recherche_->Ouvrir();
    PrendreLaPlace(*recherche_, *vue_);
}

void Fenetres::OuvrirImpression()
{
    vue_->Memoriser();
    if (!impression_)
        CreerImpression();
    impression_->Ouvrir();
    PrendreLaPlace(*impression_, *vue_);
}

void Fenetres::Atteindre(const ItemListe& resultat)
{
    // The result itself may be gone by the time that the tree is loaded.
    const std::string cle(resultat.cle);
    frmView::Cible cible;
    cible.cleNoeud = AnalyserCleResultat(cle).noeud;
    cible.preparer = [cle](ArbreCatalogue& arbre) { Generer_Arborescence(arbre, cle); };
    if (!resultat.EstRepertoire())
        cible.item = [cle] { return CleItemResultat(cle); };
    cible.fini = [this](bool trouve) {
        recherche_->ResultatAtteint(trouve);
        if (trouve)
            PrendreLaPlace(*vue_, *recherche_);
    };
    vue_->Atteindre(cible);
}

void Fenetres::OuvrirPreferences()
{
    FrmOptions(dialogues_, vue_.get()).exec();
    vue_->RelireOptions();
}

void Fenetres::OuvrirPrets()
{
    FrmPret(dialogues_, travail_, vue_.get()).exec();
}

void Fenetres::OuvrirProprietes(const std::string& cle, bool fichier, bool noeud)
{
    FrmPropriete fenetre(dialogues_, travail_, SujetDeCle(cle, fichier), vue_.get());
    fenetre.OffrirDescriptions([this, noeud] { vue_->Decrire(noeud); });
    connect(&fenetre, &FrmPropriete::couleursChangees, vue_.get(), &frmView::ChangerCouleurs);
    fenetre.exec();
}

void Fenetres::ChangerCategorie(const std::string& media, const std::string& categorie)
{
    travail_.Executer(Place::Commande, [this, media, categorie] {
        if (const std::optional<CouleursMedia> couleurs = ::ChangerCategorie(media, categorie))
            vue_->ChangerCouleurs({std::atoll(media.c_str())}, couleurs->avant, couleurs->apres);
    });
}

void Fenetres::Revenir()
{
    courante_ = "FrmMain";
    principale_->show();
    principale_->raise();
    principale_->activateWindow();
}

// Back to the start window when the browser was opened from there, else the end.
void Fenetres::FermerVue()
{
    if (precedente_ != "FrmMain") {
        Quitter(vue_.get());
        return;
    }
    vue_->hide();
    Revenir();
}

// The exit procedure. What closing a window keeps is kept whatever way leads here.
void Fenetres::Quitter(QWidget* devant)
{
    if (quitte_ || !dialogues_.Demander("Voulez-vous vraiment quitter Velourne ?"))
        return;
    quitte_ = true;
    if (principale_->isVisible())
        principale_->Memoriser();
    if (vue_ && vue_->isVisible())
        vue_->Memoriser();
    if (recherche_ && recherche_->isVisible())
        recherche_->Memoriser();
    if (impression_ && impression_->isVisible())
        impression_->Memoriser();
    if (assistant_ && assistant_->isVisible())
        assistant_->Memoriser();
    for (const Place place :
         {Place::Arbre, Place::Liste, Place::Tri, Place::Recherche, Place::TriResultats, Place::Listing})
        travail_.Arreter(place);
    attente_.Montrer("Velourne est en cours de fermeture ... ", devant);
    travail_.Demander(
        Place::Compaction, [](const std::stop_token&) { CompacterBase(); },
        [this] {
            SupprimerFichier(CheminIconeTemporaire());
            emit terminee();
        });
}
