#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QMainWindow>
#include <QTimer>

#include "browser/ActionsVue.h"
#include "browser/EditionVue.h"
#include "browser/EtatArbre.h"
#include "browser/ImagesCatalogue.h"
#include "browser/MenusGeneres.h"
#include "browser/MenusVue.h"
#include "browser/ModeleArbre.h"
#include "browser/ModeleListe.h"
#include "browser/Navigateur.h"
#include "browser/PanneauxVue.h"
#include "commun/Consultation.h"
#include "commun/Dialogues.h"
#include "commun/Travail.h"
#include "extraction/ChoixLecteur.h"

// The browser: the catalogue as a tree on the left, what the selected node holds on the right, and its description.
// Loading, reading and sorting are pieces of `travail`; what is on the screen changes between them only.
class frmView : public QMainWindow {
    Q_OBJECT

public:
    frmView(Dialogues& dialogues, ChoixLecteur& choixLecteur, Travail& travail, QWidget* parent = nullptr);
    ~frmView() override;

    // Fills the tree when that is due; `chargement` and `charge` tell of it. False when there is nothing to do.
    bool ChargerArbre();

    // Takes media in a new colour of their category over into the tree, see Navigateur.
    void ChangerCouleurs(const std::vector<int64_t>& medias, uint32_t avant, uint32_t apres);

    // Opens the properties of the selected node, "Tv", or of the list's item, "Lv".
    void ShowPropriete(std::string_view genre);

    void tvTreeView_Click();
    void lvListView_Click();

    // Shows an entry that another window has found: the node with this key, to which `preparer` may add nodes, then the
    // item of its list whose key `item` gives (none: the tree takes the focus). Both may read the base. `fini` is told
    // whether the node was there; what is shown has then changed already, but for the item.
    struct Cible {
        std::string cleNoeud;
        std::function<void(ArbreCatalogue&)> preparer;
        std::function<std::string()> item;
        std::function<void(bool trouve)> fini;
    };
    void Atteindre(const Cible& cible);

    // Changes between the pieces of work only.
    const ArbreCatalogue& Arbre() const { return navigateur_.arbre; }
    // Opens the editor of the selected node's or item's description.
    void Decrire(bool noeud);
    // Hands this window's place over to the search.
    void Btn_recherche();

    // What the preferences change in this window.
    void RelireOptions();
    // Keeps what closing keeps: place, state, columns.
    void Memoriser();

signals:
    void ajoutVoulu(char lettre = 0);  // the user wants to read a media, in this drive if one is named
    void rechercheVoulue();            // the search window must take the place of this one
    void impressionVoulue();           // the listing window must take the place of this one
    void preferencesVoulues();
    void pretsVoulus();
    // By the key of a node or an item; `fichier`: of an item that is no directory.
    void proprietesVoulues(const std::string& cle, bool fichier, bool noeud);  // of the tree's node or the list's item
    void categorieVoulue(const std::string& media, const std::string& categorie);  // for a media, by its number
    void sortieVoulue();                                                           // the user wants to end the program
    void fermetureVoulue();  // the window is to be closed; it stays until somebody hides it
    void chargement(double part);
    void charge();

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void Relier();
    void RelierMenus();

    void Executer(Commande commande);
    void Editer(Commande commande);
    void SupprimerPhoto();
    void Modifier(const std::function<EditionVue::Suite()>& modifier);
    void ChangerDeBase(const std::function<bool()>& changer);
    void MontrerBase();

    struct Chargement;
    void NoterEtatArbre();
    void Montrer(Chargement& charge);
    void Reprendre();
    void Montrer(Lecture& lecture);
    void MontrerNavigateur();
    void MontrerStatut();
    void MontrerTitreIcone();
    void MontrerPhoto();
    void ViderNavigateur();
    // To be selected when its node has been read.
    struct ItemVoulu {
        std::string cle;  // none: empty
        bool focus = true;
    };
    void AtteindreItem(const ItemVoulu& item);
    void SelectionnerNoeud();
    void Occuper(bool occupe);
    void Suivre();
    void Activer();
    std::string MediaChoisi() const;
    int RangChoisi() const;

    void ChoisirAffichage(int mode);
    void TrierColonne(int colonne);
    void OuvrirItem();
    void Lancer(bool dossier);
    void SuivreNoeud(bool choisi);
    void Monter();
    void Copier(bool noeud);
    bool Touche(QObject* vue, const QKeyEvent& touche);

    Dialogues& dialogues_;
    ChoixLecteur& choixLecteur_;
    Travail& travail_;
    Consultation lecteurs_;
    IconesExtensions icones_;
    Navigateur navigateur_;
    TriListe tri_;
    ImagesCatalogue images_;
    ModeleArbre* modeleArbre_;
    ModeleListe* modeleListe_;
    ActionsVue actions_;
    MenusVue menus_;
    MenusGeneres menusGeneres_;
    PanneauxVue panneaux_;
    EditionVue edition_;

    bool enChargement_ = false;
    bool selectionProgrammee_ = false;
    EtatArbre etat_;            // of the tree that was shown last
    QWidget* focus_ = nullptr;  // where it was when the loading began
    std::string avis_;          // shown in the status line until the next click
    ItemVoulu itemVoulu_;
    std::shared_ptr<std::atomic<double>> part_;  // of the work that runs
    QTimer noeudAMontrer_, itemAMontrer_, suivi_;
    QTimer reprise_;  // runs while the base can't be opened
};
