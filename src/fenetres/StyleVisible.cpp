#include "fenetres/StyleVisible.h"

#include <QPainter>
#include <QStyleOption>

namespace {

// The other styles know dark grounds. The outline of the focus is seen as it is.
bool ContourVoulu(const QStyle& style, const QStyleOption& option)
{
    constexpr QStyle::State FocusMontre = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    return style.name().compare("fusion", Qt::CaseInsensitive) == 0 &&
           option.palette.color(QPalette::Window).lightness() < 128 && (option.state & FocusMontre) != FocusMontre;
}

}  // namespace

void StyleVisible::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* peintre,
                                 const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, peintre, widget);
    const bool rond = element == PE_IndicatorRadioButton;
    if ((element != PE_IndicatorCheckBox && !rond) || !ContourVoulu(*baseStyle(), *option))
        return;
    QColor contour = option->palette.color(QPalette::WindowText);
    contour.setAlpha(option->state & State_Enabled ? 170 : 80);
    peintre->save();
    peintre->setPen(QPen(contour, 1));
    peintre->setBrush(Qt::NoBrush);
    if (rond) {
        peintre->setRenderHint(QPainter::Antialiasing);
        const QPointF centre = option->rect.center() + QPoint(1, 1);
        const double rayon = (option->rect.width() + (option->rect.width() + 1) % 2) / 2.0 - 1;
        peintre->drawEllipse(centre, rayon, rayon);
    } else {
        peintre->translate(0.5, 0.5);
        peintre->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
    peintre->restore();
}
