#include "browser/MenusVue.h"

#include <initializer_list>
#include <span>

#include <QActionGroup>
#include <QListView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QTreeView>

#include "browser/ActionsVue.h"
#include "browser/Navigateur.h"
#include "browser/PanneauxVue.h"
#include "browser/VueArbre.h"

namespace {

using enum Commande;
using Groupe = std::span<const Commande>;

constexpr Commande Catalogues[] = {CreerCatalogue, OuvrirCatalogue, DupliquerCatalogue, SupprimerCatalogue};
constexpr Commande Recents[] = {BasesRecentes};
constexpr Commande Ailleurs[] = {Rechercher, Imprimer, Preferences};
constexpr Commande Fin[] = {Quitter};
constexpr Commande Medias[] = {AjouterMedia, AjouterDepuis, ModifierLabel, ModifierIcone, SupprimerMedia};
constexpr Commande DuMedia[] = {RechercherMedia, CategorieMedia};
constexpr Commande DesPrets[] = {Prets};
constexpr Commande Noeuds[] = {RenommerRepertoire, SupprimerRepertoire, RenommerArchive, SupprimerArchive};
constexpr Commande DescriptionNoeud[] = {DecrireNoeud};
constexpr Commande DuNoeud[] = {CopierNoeud, ProprietesNoeud};
constexpr Commande Ouverture[] = {LancerFichier, OuvrirDossier};
constexpr Commande Items[] = {RenommerItem, RetirerItem};
constexpr Commande DescriptionItem[] = {DecrireItem};
constexpr Commande DeLItem[] = {CopierItem, ProprietesItem};
constexpr Commande Police[] = {PoliceDescription};
constexpr Commande Chemins[] = {Monter, Reculer, Actualiser};
constexpr Commande Aides[] = {Aide};
constexpr Commande Ajout[] = {AjouterMedia};
constexpr Commande CataloguesBarre[] = {CreerCatalogue, OuvrirCatalogue, RetirerCatalogue};
constexpr Commande AilleursBarre[] = {Rechercher, Imprimer, Preferences, Aide};

// With a line between each two groups, and behind what is there already.
template <typename Cible>
void Remplir(Cible& cible, const ActionsVue& actions, std::initializer_list<Groupe> groupes)
{
    for (const Groupe groupe : groupes) {
        if (!cible.actions().isEmpty())
            cible.addSeparator();
        actions.Ajouter(cible, groupe);
    }
}

}  // namespace

MenusVue::MenusVue(QMainWindow& fenetre, const ActionsVue& actions) : fenetre_(fenetre), actions_(actions)
{
    QMenuBar& menus = *fenetre.menuBar();
    Remplir(*menus.addMenu("&Catalogue"), actions, {Catalogues, Recents, Ailleurs, Fin});
    Remplir(*menus.addMenu("&Média"), actions, {Medias, DuMedia, DesPrets, DuNoeud});
    Remplir(*menus.addMenu("&Répertoire"), actions, {Noeuds, DescriptionNoeud});
    Remplir(*menus.addMenu("&Fichier"), actions, {Ouverture, Items, DescriptionItem, DeLItem});
    QMenu& affichage = *menus.addMenu("&Affichage");
    affichage.addActions(actions.Affichages()->actions());
    Remplir(affichage, actions, {Police, Chemins});
    Remplir(*menus.addMenu("Ai&de"), actions, {Aides});

    QToolBar& barre = *fenetre.addToolBar("Barre d'outils");
    barre.setObjectName("Menu");
    barre.setMovable(false);
    barre.setContextMenuPolicy(Qt::PreventContextMenu);
    Remplir(barre, actions, {Ajout, CataloguesBarre, AilleursBarre});
}

void MenusVue::OuvrirArbre(const QPoint& place)
{
    QMenu menu(&fenetre_);
    menu.setObjectName("MnuRepert");
    Remplir(menu, actions_, {Catalogues, Medias, Noeuds, DescriptionNoeud, DuMedia, DuNoeud});
    menu.exec(place);
}

void MenusVue::OuvrirListe(const QPoint& place)
{
    if (!actions_[ProprietesItem]->isEnabled())
        return;  // on no item
    QMenu menu(&fenetre_);
    menu.setObjectName("MnuFile");
    Remplir(menu, actions_, {Ouverture, Items, DescriptionItem, DeLItem});
    menu.exec(place);
}

// `noeud`: what is described stands in the tree, not in the list.
void MenusVue::OuvrirDescription(const QPoint& place, const PanneauxVue& panneaux, bool noeud)
{
    if (!actions_[noeud ? DecrireNoeud : DecrireItem]->isEnabled())
        return;
    QPlainTextEdit* description = panneaux.description;
    QMenu menu(&fenetre_);
    menu.setObjectName(noeud ? "MnuDescr" : "MnuDescrLv");
    Remplir(menu, actions_, {noeud ? Groupe(DescriptionNoeud) : Groupe(DescriptionItem)});
    menu.addSeparator();
    QAction* copier = menu.addAction(actions_[CopierItem]->icon(), "&Copier", description, &QPlainTextEdit::copy);
    copier->setEnabled(description->textCursor().hasSelection());
    menu.addAction("Tout &sélectionner", description, &QPlainTextEdit::selectAll);
    Remplir(menu, actions_, {Police});
    menu.exec(place);
}

void MenusVue::Relier(const PanneauxVue& panneaux, const Navigateur& navigateur, std::function<void()> activer)
{
    const auto relier = [&](QAbstractScrollArea* vue, const std::function<void(const QPoint&)>& ouvrir) {
        QObject::connect(vue, &QWidget::customContextMenuRequested, vue, [vue, activer, ouvrir](const QPoint& place) {
            activer();
            ouvrir(vue->viewport()->mapToGlobal(place));
        });
    };
    relier(panneaux.arbre, [this](const QPoint& place) { OuvrirArbre(place); });
    for (QAbstractScrollArea* vue :
         {static_cast<QAbstractScrollArea*>(panneaux.rapport), static_cast<QAbstractScrollArea*>(panneaux.icones)})
        relier(vue, [this](const QPoint& place) { OuvrirListe(place); });
    relier(panneaux.description, [this, &panneaux, &navigateur](const QPoint& place) {
        OuvrirDescription(place, panneaux, navigateur.descriptionDeNoeud);
    });
}
