#pragma once

#include <functional>

#include <QtWidgets>

#include "commun/Travail.h"

// Lets events run until the condition holds; false after ten seconds.
inline bool Attendre(const std::function<bool()>& condition)
{
    const QDeadlineTimer delai(10000);
    while (!condition()) {
        if (delai.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

// Lets the work and all that follows from it come to an end.
inline void Calmer(Travail& travail)
{
    do {
        QCoreApplication::processEvents();
        travail.Attendre();
        QCoreApplication::processEvents();
    } while (travail.EnCours());
}

// A child by its name and class; the test ends here when there is none.
template <typename Classe>
Classe* Enfant(const QWidget& fenetre, const char* nom)
{
    auto* enfant = fenetre.findChild<Classe*>(nom);
    if (!enfant)
        qFatal("no child %s", nom);
    return enfant;
}
