#pragma once

#include <QProxyStyle>

// The desktop's style, but that boxes and rounds to be ticked have an outline that is seen on a dark ground, where the
// plain style of Qt draws it darker still. A light ground looks as ever.
class StyleVisible : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* peintre,
                       const QWidget* widget = nullptr) const override;
};
