#pragma once

#include "browser/ModeleListe.h"
#include "search/Arborescence.h"

// Shows the results to their view: the columns of all lists, and behind these where each result lies, once that is
// known.
class ModeleResultats : public ModeleListe {
public:
    ModeleResultats(ListeFichiers& liste, ImagesCatalogue& images, QObject* parent);

    // Places of the list's items; none while they are not known. The view is told by what follows.
    void PoserLieux(LieuxResultats lieux) { lieux_ = std::move(lieux); }
    const LieuxResultats& Lieux() const { return lieux_; }
    bool LieuxConnus() const { return !lieux_.lieux.empty(); }

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation sens, int role) const override;

private:
    const ListeFichiers& liste_;
    LieuxResultats lieux_;
};

// The text that a result is sorted by in a column of its place.
std::string_view TexteLieu(const Lieu& lieu, int colonne);
