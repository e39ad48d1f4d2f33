#pragma once

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

// Letters of one width, for texts that come in columns and drawings, in the size of those of `police`.
inline QFont PoliceEgale(const QFont& police)
{
    QFont egale = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    egale.setPointSizeF(QFontInfo(police).pointSizeF());
    return egale;
}
