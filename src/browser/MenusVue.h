#pragma once

#include <functional>

class ActionsVue;
class Navigateur;
class QMainWindow;
class QPoint;
struct PanneauxVue;

// The menus of the browser window: menu bar and tool bar, and the menus that tree, list and description open. All are
// made of the same groups of commands.
class MenusVue {
public:
    MenusVue(QMainWindow& fenetre, const ActionsVue& actions);

    // Opens the menus where they are asked for. `activer` says first which commands may be given.
    void Relier(const PanneauxVue& panneaux, const Navigateur& navigateur, std::function<void()> activer);

private:
    void OuvrirArbre(const QPoint& place);
    void OuvrirListe(const QPoint& place);
    void OuvrirDescription(const QPoint& place, const PanneauxVue& panneaux, bool noeud);

    QMainWindow& fenetre_;
    const ActionsVue& actions_;
};
