#include "fenetres/Etiquette.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int Bout = 1000;  // more than any screen shows

}  // namespace

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
    // A path may be megabytes long, and all of a text is measured to be cut.
    const QString court = text().size() > 2 * Bout ? text().left(Bout) + u'…' + text().right(Bout) : text();
    const QString visible = fontMetrics().elidedText(court, Qt::ElideMiddle, width());
    style()->drawItemText(&peintre, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), visible,
                          foregroundRole());
}
