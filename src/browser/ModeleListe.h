#pragma once

#include <QAbstractTableModel>

#include "browser/ImagesCatalogue.h"
#include "catalogue/ListeFichiers.h"

class QHeaderView;

// Shows the file list to its views.
class ModeleListe : public QAbstractTableModel {
public:
    ModeleListe(ListeFichiers& liste, ImagesCatalogue& images, QObject* parent);

    // Hides everything while the list is replaced, and shows it again.
    void Cacher();
    void Annoncer();

    // Shows the list in another order; the selected item stays selected.
    void Ordonner(ListeFichiers::Ordre ordre);

    // Takes an item out of the list and off the screen; shows another in its place.
    void Retirer(int rang);
    void Remplacer(int rang, const ItemListe& item);

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
