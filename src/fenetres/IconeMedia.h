#pragma once

#include <string_view>

#include <QIcon>
#include <QImage>

// Icons of media as the base holds them: icon files with several pictures, or one small picture of another kind. The
// bytes may come from anybody; what is not small, or not sound, gives nothing at little cost.

// The picture made for squares of this side, else the next larger one, else the largest. Null when there is none.
QImage LireIcone(std::string_view octets, int cote);

// The picture in the sizes of tree and list.
QIcon IconeDeMedia(std::string_view octets);
