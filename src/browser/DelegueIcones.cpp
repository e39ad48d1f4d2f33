#include "browser/DelegueIcones.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace {

constexpr int Marge = 3;

QStyle& StyleDe(const QStyleOptionViewItem& option)
{
    return option.widget ? *option.widget->style() : *QApplication::style();
}

void Encadrer(QPainter& peintre, const QStyleOptionViewItem& option)
{
    QStyleOptionFocusRect cadre;
    cadre.QStyleOption::operator=(option);
    cadre.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    cadre.backgroundColor =
        option.palette.color(option.state & QStyle::State_Selected ? QPalette::Highlight : QPalette::Window);
    StyleDe(option).drawPrimitive(QStyle::PE_FrameFocusRect, &cadre, &peintre, option.widget);
}

}  // namespace

void DelegueIcones::Fixer(const QSize& cellule, bool grandes)
{
    cellule_ = cellule;
    grandes_ = grandes;
}

QSize DelegueIcones::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return cellule_;
}

QStringList DelegueIcones::Lignes(const QString& nom, const QFont& police, int largeur)
{
    QTextLayout mise(nom, police);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    mise.setTextOption(option);
    mise.beginLayout();
    QTextLine premiere = mise.createLine();
    if (premiere.isValid())
        premiere.setLineWidth(largeur);
    mise.endLayout();
    const int fin = premiere.isValid() ? premiere.textLength() : 0;
    if (fin >= nom.size())
        return {nom};
    return {nom.left(fin).trimmed(), QFontMetrics(police).elidedText(nom.mid(fin).trimmed(), Qt::ElideMiddle, largeur)};
}

void DelegueIcones::paint(QPainter* peintre, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (!grandes_) {
        QStyledItemDelegate::paint(peintre, option, index);
        return;
    }
    QStyleOptionViewItem cellule = option;
    initStyleOption(&cellule, index);
    cellule.showDecorationSelected = true;  // the whole cell, not what would be the place of a single line
    StyleDe(cellule).drawPrimitive(QStyle::PE_PanelItemViewItem, &cellule, peintre, cellule.widget);

    const bool choisi = cellule.state & QStyle::State_Selected;
    const QSize image = cellule.decorationSize;
    const QRect place(cellule.rect.center().x() - image.width() / 2, cellule.rect.top() + Marge, image.width(),
                      image.height());
    cellule.icon.paint(peintre, place, Qt::AlignCenter, choisi ? QIcon::Selected : QIcon::Normal);

    const QPalette::ColorGroup groupe = cellule.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    const QRect texte = cellule.rect.adjusted(Marge, 0, -Marge, 0);
    peintre->save();
    peintre->setFont(cellule.font);
    peintre->setPen(cellule.palette.color(groupe, choisi ? QPalette::HighlightedText : QPalette::Text));
    int haut = place.bottom() + 1 + Marge;
    for (const QString& ligne : Lignes(cellule.text, cellule.font, texte.width())) {
        peintre->drawText(QRect(texte.left(), haut, texte.width(), cellule.fontMetrics.height()),
                          Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine, ligne);
        haut += cellule.fontMetrics.lineSpacing();
    }
    peintre->restore();
    if (cellule.state & QStyle::State_HasFocus)
        Encadrer(*peintre, cellule);
}
