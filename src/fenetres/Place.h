#pragma once

#include <string_view>

class QWidget;

// Places of windows are kept in twips, 15 to the pixel.
inline constexpr double TwipsParPixel = 15;

// Moves the window to the place under the two keys of "Settings". Without one, or where it lies outside all screens,
// the window is centred, each axis by itself.
void PlacerFenetre(QWidget& fenetre, std::string_view cleHaut, std::string_view cleGauche);
void EnregistrerPlace(const QWidget& fenetre, std::string_view cleHaut, std::string_view cleGauche);

// Pixels kept in twips under any key; what is read stays within what a screen can show.
int LirePixels(std::string_view section, std::string_view cle, int defaut);
void EcrirePixels(std::string_view section, std::string_view cle, int pixels);

// State, size and place that the main windows share. A window that fills the screen or is put away keeps its state
// only.
void PlacerFenetrePrincipale(QWidget& fenetre);
void EnregistrerPlacePrincipale(const QWidget& fenetre);

// Shows a main window as and where another one stands, and hides that one.
void PrendreLaPlace(QWidget& fenetre, QWidget& autre);
