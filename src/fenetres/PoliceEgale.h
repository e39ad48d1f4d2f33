#pragma once

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

// Letters of one width, for texts that come in columns and drawings, in the size of those of `police`: the desktop's,
// or those of the family that the user has chosen, while there is one of this name.
inline QFont PoliceEgale(const QFont& police, const QString& famille = {})
{
    QFont egale = famille.isEmpty() || !QFontDatabase::hasFamily(famille)
                      ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                      : QFont(famille);
    egale.setPointSizeF(QFontInfo(police).pointSizeF());
    return egale;
}
