#pragma once

#include <string>
#include <string_view>

#include <QString>
#include <QTextDocument>

// Texts of the core for widgets.

inline QString EnQString(std::string_view texte)
{
    return QString::fromUtf8(texte.data(), static_cast<qsizetype>(texte.size()));
}

// A text as a tip, letter for letter: names may look like mark-up.
inline QString TexteBulle(const QString& texte)
{
    return Qt::mightBeRichText(texte) ? "<qt>" + texte.toHtmlEscaped() + "</qt>" : texte;
}

// Signs that stand for the control characters of a text, each in the place of one letter.
inline constexpr char16_t SigneNul = 0x2400, SigneEffacement = 0x2421;

inline bool EstControleMontre(QChar lettre)
{
    return (lettre < ' ' && lettre != '\n' && lettre != '\r' && lettre != '\t') || lettre == QChar(0x7F);
}

inline QChar SigneDe(QChar controle)
{
    return controle == QChar(0x7F) ? QChar(SigneEffacement) : QChar(SigneNul + controle.unicode());
}

// A description as it is shown. Files give it NULs and other control characters: each takes the place of one letter, so
// that columns and drawings made of letters stay in line.
inline QString EnLignes(std::string_view texte)
{
    QString lignes = EnQString(texte).replace("\r\n", "\n").replace('\r', '\n');
    for (QChar& lettre : lignes) {
        if (EstControleMontre(lettre))
            lettre = SigneDe(lettre);
        else if (lettre.category() == QChar::Other_Control && lettre != '\n' && lettre != '\t')
            lettre = ' ';
        else if (lettre == QChar::SoftHyphen)
            lettre = '-';
    }
    return lignes;
}

// A description to be edited, and back: all that can't be typed is kept, lines end in "\r\n" again. Signs become the
// characters that they stand for, if `avant`, the text before, held these and not the signs themselves.
inline QString EnLignesEditables(std::string_view texte)
{
    QString lignes = EnQString(texte).replace("\r\n", "\n").replace('\r', '\n');
    for (QChar& lettre : lignes)
        if (EstControleMontre(lettre))
            lettre = SigneDe(lettre);
    return lignes;
}

inline std::string RelireLignes(QString lignes, std::string_view avant)
{
    const QString ancien = EnQString(avant);
    for (char16_t controle = 0; controle <= 0x7F; ++controle)
        if (EstControleMontre(controle) && ancien.contains(controle) && !ancien.contains(SigneDe(controle)))
            lignes.replace(SigneDe(controle), QChar(controle));
    return lignes.replace('\n', "\r\n").toStdString();
}
