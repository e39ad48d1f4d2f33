#pragma once

#include <QProxyStyle>

// Draws popup menus with a gradient as their ground and a bar along their side that bears their name, as long as it is
// switched on. Entries are drawn by the style below, which knows of icons, marks, keys and arrows; it only gets less
// room for them. All else is left to that style.
class StyleMenus : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    // Menus that are there already, open ones too, are laid out anew.
    void Degrader(bool degrade);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* dessin,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* dessin,
                     const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& taille,
                           const QWidget* widget) const override;

private:
    bool Concerne(const QWidget* widget) const;

    bool degrade_ = false;
};

// Switches the gradient of the program's menus; nothing while its style is another.
void DegraderMenus(bool degrade);
