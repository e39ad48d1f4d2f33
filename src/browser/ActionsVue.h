#pragma once

#include <array>
#include <span>

#include <QObject>

#include "browser/Commandes.h"

class QAction;
class QActionGroup;
class QKeyEvent;
class QMenu;
class QToolBar;
class QWidget;

// Owns the actions of the browser window: one for each command, and one for each way to show the list.
class ActionsVue : public QObject {
    Q_OBJECT

public:
    explicit ActionsVue(QWidget* fenetre);

    QAction* operator[](Commande commande) const { return actions_[static_cast<size_t>(commande)]; }
    void Ajouter(QWidget& cible, std::span<const Commande> commandes) const;  // a menu or a tool bar
    void Activer(const ContexteCommandes& contexte);

    // Gives the command that a key stands for in the tree or in the list, if it may be given now. False for keys of
    // other meaning.
    bool Toucher(const QKeyEvent& evenement, bool liste) const;

    QActionGroup* Affichages() const { return affichages_; }

signals:
    void demandee(Commande commande);
    void affichageDemande(int mode);  // 0 large icons, 1 small icons, 2 list, 3 report

private:
    std::array<QAction*, NombreCommandes> actions_;
    QActionGroup* affichages_;
};
