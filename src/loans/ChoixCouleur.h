#pragma once

#include <cstdint>
#include <optional>

#include <QColor>

#include "fenetres/Couleurs.h"

class QWidget;

// A colour that can be read as text on this ground: itself, else a lighter or darker one of the same hue. Black is the
// palette's own colour of text, and gives no colour.
QColor CouleurDeTexte(uint32_t couleur, const QColor& fond);

// Lets the user choose a colour, in French whatever translations are installed. Nothing when he gives up.
std::optional<uint32_t> ChoisirCouleur(uint32_t depart, QWidget* parent);
