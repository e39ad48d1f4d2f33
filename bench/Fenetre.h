#pragma once

#include <QApplication>
#include <QWidget>

// The first window of a class that there is, shown or not.
template <typename Classe>
Classe* Fenetre()
{
    for (QWidget* fenetre : QApplication::topLevelWidgets())
        if (auto* trouvee = qobject_cast<Classe*>(fenetre))
            return trouvee;
    return nullptr;
}
