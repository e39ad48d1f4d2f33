#include "fenetres/Etiquette.h"

#include <QPainter>
#include <QStyle>

Etiquette::Etiquette(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize Etiquette::sizeHint() const
{
    return {0, fontMetrics().height()};
}

QSize Etiquette::minimumSizeHint() const
{
    return sizeHint();
}

void Etiquette::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    const QString visible = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    style()->drawItemText(&peintre, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), visible,
                          foregroundRole());
}
