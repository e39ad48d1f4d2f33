#include "shell/FenetreEtiquette.h"

#include <QPainter>
#include <QStyle>

FenetreEtiquette::FenetreEtiquette(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize FenetreEtiquette::sizeHint() const
{
    return {0, fontMetrics().height()};
}

QSize FenetreEtiquette::minimumSizeHint() const
{
    return sizeHint();
}

void FenetreEtiquette::paintEvent(QPaintEvent*)
{
    QPainter peintre(this);
    const QString visible = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    style()->drawItemText(&peintre, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), visible,
                          foregroundRole());
}
