#pragma once

#include <QAbstractTableModel>

#include "browser/ImagesCatalogue.h"
#include "catalogue/ListeFichiers.h"

class QHeaderView;

// Shows the file list to its views.
class ModeleListe : public QAbstractTableModel {
public:
    ModeleListe(ListeFichiers& liste, ImagesCatalogue& images, QObject* parent);

    // Hides everything while the list is being filled, and shows it again.
    void Retirer();
    void Annoncer();

    // Sorts the list; the selected item stays selected.
    void Trier(int colonne, bool decroissant);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

private:
    ListeFichiers& liste_;
    ImagesCatalogue& images_;
    int nombre_ = 0;
};

// Gives the header of a view on such a list its columns' first widths and its ways.
void PreparerColonnes(QHeaderView& entete);
