#include "menus/StyleMenus.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QStyleOptionMenuItem>

#include "menus/Mnemoniques.h"

namespace {

constexpr int Ecart = 3;  // around the name in the bar, and between bar and entries

QColor Meler(const QColor& a, const QColor& b, float part)
{
    const auto mele = [part](float x, float y) { return x + (y - x) * part; };
    return QColor::fromRgbF(mele(a.redF(), b.redF()), mele(a.greenF(), b.greenF()), mele(a.blueF(), b.blueF()));
}

QFont PoliceBarre(const QMenu& menu)
{
    QFont police = menu.font();
    police.setBold(true);
    return police;
}

int LargeurBarre(const QMenu& menu)
{
    return QFontMetrics(PoliceBarre(menu)).height() + 2 * Ecart;
}

// What a bar takes from an entry's own place.
QRect SansBarre(const QMenu& menu, const QRect& place)
{
    const int largeur = LargeurBarre(menu) + Ecart;
    return menu.isRightToLeft() ? place.adjusted(0, 0, -largeur, 0) : place.adjusted(largeur, 0, 0, 0);
}

// The ground never goes far from the palette's own, so that whatever is written on that can be read on this.
void PeindreFond(QPainter& dessin, const QRect& place, const QPalette& couleurs)
{
    const QColor fond = couleurs.color(QPalette::Window);
    QLinearGradient degrade(place.topLeft(), place.bottomRight());
    degrade.setColorAt(0, Meler(fond, couleurs.color(QPalette::Base), 0.7F));
    degrade.setColorAt(1, Meler(fond, couleurs.color(QPalette::Highlight), 0.13F));
    dessin.fillRect(place, degrade);
}

void PeindreBarre(QPainter& dessin, const QRect& place, const QMenu& menu)
{
    const QColor teinte = menu.palette().color(QPalette::Active, QPalette::Highlight);
    const QColor sombre = Meler(teinte, Qt::black, 0.65F), vive = Meler(teinte, Qt::black, 0.3F);
    QLinearGradient degrade(place.bottomLeft(), place.topLeft());
    degrade.setColorAt(0, sombre);
    degrade.setColorAt(1, vive);
    dessin.fillRect(place, degrade);

    const QString titre = menu.title().isEmpty() ? "Velourne" : SansMnemonique(menu.title());
    dessin.setFont(PoliceBarre(menu));
    const QFontMetrics lettres = dessin.fontMetrics();
    if (lettres.horizontalAdvance(titre) + 4 * Ecart > place.height())
        return;  // a menu of few entries
    dessin.setPen(Qt::white);
    dessin.translate(place.left(), place.bottom() + 1);
    dessin.rotate(-90);
    dessin.drawText(QRect(2 * Ecart, 0, place.height() - 2 * Ecart, place.width()), Qt::AlignLeft | Qt::AlignVCenter,
                    titre);
}

}  // namespace

bool StyleMenus::Concerne(const QWidget* widget) const
{
    return degrade_ && qobject_cast<const QMenu*>(widget);
}

void StyleMenus::Degrader(bool degrade)
{
    if (degrade == degrade_)
        return;
    degrade_ = degrade;
    for (QWidget* widget : QApplication::allWidgets())
        if (qobject_cast<QMenu*>(widget)) {
            QEvent change(QEvent::StyleChange);
            QCoreApplication::sendEvent(widget, &change);
        }
}

void StyleMenus::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* dessin,
                               const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, dessin, widget);
    if (element != PE_PanelMenu || !Concerne(widget))
        return;
    const auto& menu = *qobject_cast<const QMenu*>(widget);
    const int bord = proxy()->pixelMetric(PM_MenuPanelWidth, option, widget);
    const QRect place = option->rect.adjusted(bord, bord, -bord, -bord);
    QRect barre = place;
    barre.setWidth(LargeurBarre(menu) + proxy()->pixelMetric(PM_MenuHMargin, option, widget));
    dessin->save();
    PeindreFond(*dessin, place, option->palette);
    dessin->save();
    PeindreBarre(*dessin, visualRect(menu.layoutDirection(), place, barre), menu);
    dessin->restore();
    dessin->setPen(Meler(option->palette.color(QPalette::Window), option->palette.color(QPalette::WindowText), 0.4F));
    dessin->drawRect(option->rect.adjusted(0, 0, -1, -1));
    dessin->restore();
}

void StyleMenus::drawControl(ControlElement element, const QStyleOption* option, QPainter* dessin,
                             const QWidget* widget) const
{
    if (!Concerne(widget)) {
        QProxyStyle::drawControl(element, option, dessin, widget);
        return;
    }
    if (element == CE_MenuEmptyArea)
        return;  // the panel is there
    const auto* entree = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!entree) {
        QProxyStyle::drawControl(element, option, dessin, widget);
        return;
    }
    QStyleOptionMenuItem copie(*entree);
    copie.rect = SansBarre(*qobject_cast<const QMenu*>(widget), entree->rect);
    // Some styles lay a ground of their own below each entry.
    QColor sansFond = copie.palette.color(QPalette::Button);
    sansFond.setAlpha(0);
    copie.palette.setColor(QPalette::Button, sansFond);
    QProxyStyle::drawControl(element, &copie, dessin, widget);
}

QSize StyleMenus::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& taille,
                                   const QWidget* widget) const
{
    QSize place = QProxyStyle::sizeFromContents(type, option, taille, widget);
    if (type == CT_MenuItem && Concerne(widget))
        place.rwidth() += LargeurBarre(*qobject_cast<const QMenu*>(widget)) + Ecart;
    return place;
}

void DegraderMenus(bool degrade)
{
    if (auto* style = qobject_cast<StyleMenus*>(QApplication::style()))
        style->Degrader(degrade);
}
