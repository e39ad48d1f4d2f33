#pragma once

#include <string_view>

#include <QString>

// Texts of the core for widgets.

inline QString EnQString(std::string_view texte)
{
    return QString::fromUtf8(texte.data(), static_cast<qsizetype>(texte.size()));
}

// A description, whose lines end as they are stored.
inline QString EnLignes(std::string_view texte)
{
    return EnQString(texte).replace("\r\n", "\n");
}
