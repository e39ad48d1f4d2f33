#include "menus/Mnemoniques.h"

#include <QAction>
#include <QMenu>
#include <QSet>

namespace {

// Place of the letter behind its "&"; -1 without one.
qsizetype PlaceMnemonique(const QString& texte)
{
    for (qsizetype i = 0; i + 1 < texte.size(); ++i)
        if (texte[i] == '&') {
            if (texte[i + 1] != '&')
                return i + 1;
            ++i;
        }
    return -1;
}

bool EstLettre(QChar lettre)
{
    return lettre.unicode() < 0x80 && lettre.isLetterOrNumber();  // to be typed on any keyboard
}

}  // namespace

QString SansMnemonique(const QString& texte)
{
    QString nu;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        if (texte[i] == '&' && i + 1 < texte.size())
            ++i;
        nu += texte[i];
    }
    return nu;
}

QChar Mnemonique(const QString& texte)
{
    const qsizetype place = PlaceMnemonique(texte);
    return place < 0 ? QChar() : texte[place].toLower();
}

QString TexteEntree(QString nom)
{
    return nom.replace('&', "&&");
}

void DonnerMnemoniques(QMenu& menu)
{
    QSet<QChar> prises;
    for (const QAction* action : menu.actions())
        prises.insert(Mnemonique(action->text()));
    for (QAction* action : menu.actions()) {
        QString texte = action->text();
        if (action->isSeparator() || PlaceMnemonique(texte) >= 0)
            continue;
        for (qsizetype i = 0; i < texte.size(); ++i)
            if (EstLettre(texte[i]) && !prises.contains(texte[i].toLower())) {
                prises.insert(texte[i].toLower());
                action->setText(texte.insert(i, '&'));
                break;
            }
    }
}
