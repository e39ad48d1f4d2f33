#pragma once

#include <QObject>
#include <QRect>

// The nearest rectangle that lies whole within the other one; what is too large is cut down to it.
QRect Contenir(QRect rectangle, const QRect& libre);

// Keeps windows within their screen: each is pulled in, and made smaller where it has to, when it is about to be shown.
// To be installed as event filter of the application.
class GardienEcran : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* objet, QEvent* evenement) override;
};
