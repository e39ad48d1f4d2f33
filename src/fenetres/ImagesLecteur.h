#pragma once

#include <QIcon>

// Picture of a kind of drive (TypeLecteur): the icon theme's, else one of the program's own.
QIcon IconeLecteur(uint32_t type);

// Leaves the picture in the scratch file from which a new media takes its icon.
void EcrireIconeTemporaire(uint32_t type);
