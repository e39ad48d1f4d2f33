#pragma once

#include <QStyledItemDelegate>

// Draws the items of an icon list in cells of one size: a small picture ahead of the name, or a large one above it with
// the name in two lines. Names too long for their cell are cut in the middle, so that an extension is always seen.
class DelegueIcones : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void Fixer(const QSize& cellule, bool grandes);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* peintre, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // The one or two lines in which a name is shown below a large picture.
    static QStringList Lignes(const QString& nom, const QFont& police, int largeur);

private:
    QSize cellule_;
    bool grandes_ = false;
};
