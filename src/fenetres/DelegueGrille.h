#pragma once

#include <QStyledItemDelegate>

// Draws the cells of a report list, with thin lines to their right and below them when these are wanted.
class DelegueGrille : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // Seen when the list is painted next.
    void Montrer(bool lignes) { lignes_ = lignes; }

    void paint(QPainter* peintre, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    bool lignes_ = false;
};
