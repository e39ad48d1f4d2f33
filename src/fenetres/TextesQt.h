#pragma once

#include <string_view>

#include <QString>

// Texts of the core for widgets.

inline QString EnQString(std::string_view texte)
{
    return QString::fromUtf8(texte.data(), static_cast<qsizetype>(texte.size()));
}

// A description as it is shown. Files give it NULs and other control characters: each takes the place of one letter, so
// that columns and drawings made of letters stay in line.
inline QString EnLignes(std::string_view texte)
{
    QString lignes = EnQString(texte).replace("\r\n", "\n");
    for (QChar& lettre : lignes) {
        if (lettre.category() == QChar::Other_Control && lettre != '\n' && lettre != '\r' && lettre != '\t')
            lettre = ' ';
        else if (lettre == QChar::SoftHyphen)
            lettre = '-';
    }
    return lignes;
}
