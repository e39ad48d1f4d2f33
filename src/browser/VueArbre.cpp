#include "browser/VueArbre.h"

#include <QKeyEvent>
#include <QScrollBar>

#include "browser/EtatArbre.h"
#include "browser/ModeleArbre.h"

VueArbre::VueArbre(ModeleArbre& modele) : modele_(modele)
{
    setModel(&modele);
}

std::vector<int32_t> VueArbre::Ouverts() const
{
    std::vector<int32_t> ouverts;
    const auto noter = [&](const QModelIndex& index) {
        if (isExpanded(index))
            ouverts.push_back(ModeleArbre::Noeud(index));
    };
    for (int rang = 0; rang < modele_.rowCount(); ++rang)
        noter(modele_.index(rang, 0));
    for (size_t i = 0; i < ouverts.size(); ++i) {
        const QModelIndex parent = modele_.Index(ouverts[i]);
        for (int rang = 0; rang < modele_.rowCount(parent); ++rang)
            noter(modele_.index(rang, 0, parent));
    }
    return ouverts;
}

void VueArbre::NoterPlace(EtatArbre& etat) const
{
    etat.haut = modele_.Cle(indexAt({0, 0}));
    etat.gauche = horizontalScrollBar()->value();
}

// Ahead of all that makes the view lay its rows out: until then it takes note only, however many there are.
void VueArbre::Rouvrir(const EtatArbre& etat)
{
    for (const EtatArbre::Noeud& noeud : etat.noeuds)
        if (noeud.ouvert)
            expand(modele_.IndexDeCle(noeud.cle));
}

void VueArbre::Replacer(const EtatArbre& etat)
{
    if (const QModelIndex haut = modele_.IndexDeCle(etat.haut); haut.isValid())
        scrollTo(haut, PositionAtTop);
    horizontalScrollBar()->setValue(etat.gauche);
}

void VueArbre::keyPressEvent(QKeyEvent* evenement)
{
    const bool nue = !(evenement->modifiers() & ~Qt::KeypadModifier);
    switch (evenement->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (!nue || !currentIndex().isValid())
                break;
            emit clicked(currentIndex());
            return;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QTreeView::keyPressEvent(evenement);
            if (nue)
                emit parcourue();
            return;
        default: break;
    }
    QTreeView::keyPressEvent(evenement);
}
