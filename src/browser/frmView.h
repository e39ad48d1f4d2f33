#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <QMainWindow>
#include <QTimer>

#include "browser/ChargerArbre.h"
#include "browser/ImagesCatalogue.h"
#include "browser/ModeleArbre.h"
#include "browser/ModeleListe.h"
#include "browser/Navigateur.h"
#include "browser/OuvrirFichier.h"
#include "commun/Dialogues.h"

class DelegueGrille;
class QAbstractItemView;
class QActionGroup;
class QLabel;
class QListView;
class QPlainTextEdit;
class QProgressBar;
class QSplitter;
class QStackedWidget;
class QTreeView;

// The browser: the catalogue as a tree on the left, what the selected node holds on the right, and its description.
class frmView : public QMainWindow, private ChoixLecteur {
public:
    explicit frmView(Dialogues& dialogues, QWidget* parent = nullptr);
    ~frmView() override;

    std::function<void()> demanderAjout;      // the user wants to read a media
    std::function<void()> demanderQuitter;    // the user wants to end the program
    std::function<void()> demanderRecherche;  // the search window must take the place of this one
    std::function<bool()> fermer;             // the window is being closed; false keeps it open
    std::function<char(const MediaDemande&)> choisirLecteur;
    // A path for a base, to be written or read; empty when the user gives up. The file dialog unless given otherwise.
    std::function<std::string(const char* titre, bool ecrire)> choisirFichier;

    // Fills the tree when that is due. `progression` takes the share done, for a window that waits.
    void ChargerArbre(const std::function<void(double part)>& progression = {});

    void tvTreeView_Click();
    void lvListView_Click();
    void Btn_recherche();

    // For a result of the search: the tree, to which nodes may be added; the node with a key is selected and its
    // entries read, false when there is none; then one of these entries is selected, or the tree takes the focus.
    ArbreCatalogue& Arbre() { return navigateur_.arbre; }
    bool AtteindreNoeud(std::string_view cle);
    void AtteindreItem(std::string_view cle);

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    char Choisir(const MediaDemande& media) override;

    void CreerActions();
    void CreerMenus();
    void CreerVues();
    void CreerPanneaux();
    QAction* CreerAction(const char* texte, const char* image = nullptr, const QKeySequence& touches = {});
    void PreparerVue(QAbstractItemView& vue);
    QAbstractItemView* VueListe() const;

    void LireReglages();
    void RelireOptions();
    void OuvrirPreferences();
    void EcrireReglages();
    void LirePlace();

    void MontrerBase();
    void MontrerNavigateur();
    void MontrerTitreIcone();
    void Avancer(double part, bool visible = true);
    void Occuper(bool occupe);
    void SelectionnerNoeud();
    void ApresChangementDeBase(bool change);

    void ChoisirAffichage(int mode);
    void TrierColonne(int colonne);
    void ActiverCommandes();
    void OuvrirItem();
    void Lancer(bool dossier);
    void MenuArbre(const QPoint& place);
    void MenuListe(const QPoint& place);

    Dialogues& dialogues_;
    Navigateur navigateur_;
    ImagesCatalogue images_;
    ModeleArbre* modeleArbre_;
    ModeleListe* modeleListe_;
    bool enChargement_ = false;
    bool selectionProgrammee_ = false;

    QTreeView* tvTreeView_ = nullptr;
    QTreeView* lvRapport_ = nullptr;
    DelegueGrille* grille_ = nullptr;
    QListView* lvIcones_ = nullptr;
    QStackedWidget* lvListView_ = nullptr;
    QPlainTextEdit* description_ = nullptr;
    QLabel* iconeTitre_ = nullptr;
    QLabel* titre_ = nullptr;
    QLabel* commentaire_ = nullptr;
    QProgressBar* barre_ = nullptr;
    QSplitter* separateurVertical_ = nullptr;
    QSplitter* separateurHorizontal_ = nullptr;

    QAction* repert_[4];  // create, open, copy, delete
    QAction* supprimer_;  // the tool bar's own delete
    QAction* ajouter_;
    QAction* rechercher_;
    QAction* preferences_;
    QAction* quitter_;
    QAction* fichier1_[2];  // launch, open the folder
    QActionGroup* aff_;
    QTimer noeudAMontrer_, itemAMontrer_;
};
