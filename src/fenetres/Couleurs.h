#pragma once

#include <cstdint>

#include <QColor>
#include <QIcon>

// Colours as the settings hold them: RGB longs, red in the low byte.
inline QColor CouleurDeLong(uint32_t couleur)
{
    return QColor(couleur & 0xFF, (couleur >> 8) & 0xFF, (couleur >> 16) & 0xFF);
}

inline uint32_t LongDeCouleur(const QColor& couleur)
{
    return static_cast<uint32_t>(couleur.red() | couleur.green() << 8 | couleur.blue() << 16);
}

// A square of the colour, the same while it is selected, with an edge that is seen on any ground.
QIcon Pastille(uint32_t couleur, int cote);
