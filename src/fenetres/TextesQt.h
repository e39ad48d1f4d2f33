#pragma once

#include <array>
#include <string>
#include <string_view>

#include <QString>
#include <QTextDocument>

// Texts of the core for widgets.

inline QString EnQString(std::string_view texte)
{
    return QString::fromUtf8(texte.data(), static_cast<qsizetype>(texte.size()));
}

// A text for a tool tip, letter for letter: it would otherwise be taken for mark-up when it looks like it.
inline QString EnBulle(const QString& texte)
{
    return Qt::mightBeRichText(texte) ? "<p style=\"white-space:pre\">" + texte.toHtmlEscaped() + "</p>" : texte;
}

inline QString EnBulle(std::string_view texte)
{
    return EnBulle(EnQString(texte));
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

// The same with lines that end in "\n", whatever they ended in. In one pass, since texts may be megabytes of short
// lines.
inline QString EnLignesSimples(std::string_view texte)
{
    QString lignes = EnQString(texte);
    QChar* ecrite = lignes.data();
    const QChar* const fin = lignes.constData() + lignes.size();
    for (const QChar* lue = lignes.constData(); lue != fin; ++lue) {
        if (*lue != '\r')
            *ecrite++ = *lue;
        else if (lue + 1 == fin || lue[1] != '\n')
            *ecrite++ = '\n';
    }
    lignes.truncate(ecrite - lignes.constData());
    return lignes;
}

// A description as it is shown. Files give it NULs and other control characters: each takes the place of one letter, so
// that columns and drawings made of letters stay in line.
inline QString EnLignes(std::string_view texte)
{
    QString lignes = EnLignesSimples(texte);
    for (QChar& lettre : lignes) {
        if (EstControleMontre(lettre))
            lettre = SigneDe(lettre);
        else if (lettre.unicode() < 0x7F)
            continue;
        else if (lettre.category() == QChar::Other_Control)
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
    QString lignes = EnLignesSimples(texte);
    for (QChar& lettre : lignes)
        if (EstControleMontre(lettre))
            lettre = SigneDe(lettre);
    return lignes;
}

inline std::string RelireLignes(const QString& lignes, std::string_view avant)
{
    std::array<bool, 0x80> rendus{};  // controls whose signs become themselves again
    bool aucun = true;
    for (const char octet : avant) {
        const QChar lettre(static_cast<unsigned char>(octet));
        if (!EstControleMontre(lettre) || rendus[lettre.unicode()])
            continue;
        const std::string signe = QString(SigneDe(lettre)).toStdString();
        rendus[lettre.unicode()] = avant.find(signe) == avant.npos;
        aucun = false;
    }
    QString texte;
    texte.reserve(lignes.size() + lignes.count('\n'));
    for (const QChar lettre : lignes) {
        if (lettre == '\n')
            texte += '\r';
        const char16_t signe = lettre.unicode();
        const size_t controle = signe == SigneEffacement ? 0x7F : static_cast<char16_t>(signe - SigneNul);
        texte +=
            !aucun && controle < rendus.size() && rendus[controle] ? QChar(static_cast<char16_t>(controle)) : lettre;
    }
    return texte.toStdString();
}
