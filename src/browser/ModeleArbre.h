#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include <QAbstractItemModel>

#include "browser/ImagesCatalogue.h"
#include "catalogue/ArbreCatalogue.h"

// Shows the catalogue tree to a view. Children are counted out only below nodes that the view has asked about.
class ModeleArbre : public QAbstractItemModel {
public:
    ModeleArbre(ArbreCatalogue& arbre, ImagesCatalogue& images, QObject* parent);

    // Hides everything while the tree is replaced, and shows it again.
    void Cacher();
    void Annoncer();

    // Tells the view of children that have come below a node, and of a node's new colour or text.
    void AnnoncerEnfants(int32_t noeud);
    void AnnoncerNoeud(int32_t noeud);
    // Takes a node out of the tree and off the screen, with all below it.
    void Retirer(int32_t noeud);

    QModelIndex Index(int32_t noeud) const;
    QModelIndex IndexDeCle(std::string_view cle) const;    // none without such a node
    std::string_view Cle(const QModelIndex& index) const;  // empty for no node
    static int32_t Noeud(const QModelIndex& index);

    QModelIndex index(int rang, int colonne, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const std::vector<int32_t>& Enfants(int32_t noeud) const;

    ArbreCatalogue& arbre_;
    ImagesCatalogue& images_;
    bool visible_ = false;
    mutable std::unordered_map<int32_t, std::vector<int32_t>> enfants_;
};
