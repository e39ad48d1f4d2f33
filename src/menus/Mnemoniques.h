#pragma once

#include <QString>

class QMenu;

// Letters that choose an entry of a menu: the one behind a "&"; "&&" is the sign itself.

// The text as it is shown.
QString SansMnemonique(const QString& texte);
// Its letter, small; null when it has none.
QChar Mnemonique(const QString& texte);
// A name that stands as it is in an entry.
QString TexteEntree(QString nom);

// Gives each entry that has none a letter that no other of the menu has, as far as there are any.
void DonnerMnemoniques(QMenu& menu);
