#include "fenetres/GardienEcran.h"

#include <algorithm>

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace {

// What the window manager adds to the size. Known once the window has been shown; before that a title bar is reckoned
// with.
QSize Cadre(const QWidget& fenetre)
{
    const QSize cadre = fenetre.frameSize() - fenetre.size();
    if (!cadre.isNull() || fenetre.windowFlags().testFlag(Qt::FramelessWindowHint))
        return cadre;
    return {2, fenetre.style()->pixelMetric(QStyle::PM_TitleBarHeight)};
}

bool AGarder(const QWidget& fenetre)
{
    constexpr Qt::WindowStates Pleine = Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized;
    const Qt::WindowType genre = fenetre.windowType();
    return (genre == Qt::Window || genre == Qt::Dialog) && (fenetre.windowState() & Pleine) == 0;
}

}  // namespace

QRect Contenir(QRect rectangle, const QRect& libre)
{
    rectangle.setSize(rectangle.size().boundedTo(libre.size()));
    rectangle.moveLeft(std::clamp(rectangle.left(), libre.left(), libre.right() + 1 - rectangle.width()));
    rectangle.moveTop(std::clamp(rectangle.top(), libre.top(), libre.bottom() + 1 - rectangle.height()));
    return rectangle;
}

bool GardienEcran::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() == QEvent::Show && !evenement->spontaneous() && objet->isWidgetType()) {
        auto* fenetre = static_cast<QWidget*>(objet);
        if (fenetre->isWindow() && AGarder(*fenetre)) {
            QScreen* ecran = QGuiApplication::screenAt(fenetre->geometry().center());
            if (!ecran)
                ecran = fenetre->screen();
            const QSize cadre = Cadre(*fenetre);
            const QRect entiere(fenetre->pos(), fenetre->size() + cadre);
            const QRect place = Contenir(entiere, ecran->availableGeometry());
            if (place.size() != entiere.size())
                fenetre->resize(place.size() - cadre);
            if (place.topLeft() != entiere.topLeft())
                fenetre->move(place.topLeft());
        }
    }
    return QObject::eventFilter(objet, evenement);
}
