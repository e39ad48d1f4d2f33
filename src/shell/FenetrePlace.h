#pragma once

#include <string_view>

class QWidget;

// Places of windows are kept in twips, 15 to the pixel.
inline constexpr double TwipsParPixel = 15;

// Moves the window to the place under the two keys of "Settings". Without one, or where it lies outside all screens,
// the window is centred, each axis by itself.
void PlacerFenetre(QWidget& fenetre, std::string_view cleHaut, std::string_view cleGauche);
void EnregistrerPlace(const QWidget& fenetre, std::string_view cleHaut, std::string_view cleGauche);
