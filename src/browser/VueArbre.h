#pragma once

#include <cstdint>
#include <vector>

#include <QTreeView>

struct EtatArbre;
class ModeleArbre;

// The view of the catalogue tree. Enter and the space bar are clicks; what was open can be opened again.
class VueArbre : public QTreeView {
    Q_OBJECT

public:
    explicit VueArbre(ModeleArbre& modele);

    // Nodes that are open below open ones, parents first.
    std::vector<int32_t> Ouverts() const;
    // Opens the nodes that were open.
    void Rouvrir(const EtatArbre& etat);

    // How far the view was moved, and moves it there again.
    void NoterPlace(EtatArbre& etat) const;
    void Replacer(const EtatArbre& etat);

signals:
    void parcourue();  // a key that walks the tree was pressed, whether or not it led to another node

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    ModeleArbre& modele_;
};
