#pragma once

class ActionsVue;
class QMainWindow;
struct PanneauxVue;
struct TriListe;

// What the browser window keeps from one start to the next, all of it in the settings.

// Splitters, columns, way to show the list, and its order. `fenetre` has its size already.
void LireReglagesVue(const QMainWindow& fenetre, PanneauxVue& panneaux, const ActionsVue& actions, TriListe& tri);
// Place, state, columns and the way to show the list, as closing the window keeps them.
void EnregistrerReglagesVue(const QMainWindow& fenetre, const PanneauxVue& panneaux, const ActionsVue& actions);
// Turns the list's order round or takes another column.
void ChangerTri(TriListe& tri, int colonne);
// What the preferences and the menu of fonts change.
void RelireOptionsVue(PanneauxVue& panneaux);
