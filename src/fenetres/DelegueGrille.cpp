#include "fenetres/DelegueGrille.h"

#include <QPainter>

void DelegueGrille::paint(QPainter* peintre, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(peintre, option, index);
    if (!lignes_)
        return;
    // A breath of the text's colour over whatever lies below is seen on light, dark and selected rows alike.
    QColor couleur = option.palette.color(QPalette::Text);
    couleur.setAlphaF(0.15F);
    const QRect& cellule = option.rect;
    peintre->fillRect(QRect(cellule.right(), cellule.top(), 1, cellule.height()), couleur);
    peintre->fillRect(QRect(cellule.left(), cellule.bottom(), cellule.width() - 1, 1), couleur);
}
