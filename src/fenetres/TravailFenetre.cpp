#include "fenetres/TravailFenetre.h"

#include <utility>

#include <QMetaObject>
#include <QObject>

std::function<void()> ReveilFenetre(QObject* contexte, std::function<void()> livrer)
{
    return
        [contexte, livrer = std::move(livrer)] { QMetaObject::invokeMethod(contexte, livrer, Qt::QueuedConnection); };
}
