#include "fenetres/LargeurTextes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QAbstractItemModel>
#include <QFontMetrics>
#include <QHash>

namespace {

constexpr int LignesVues = 100'000;

// Widths of letters, each asked for once.
class LargeursLettres {
public:
    explicit LargeursLettres(const QFontMetrics& lettres) : lettres_(lettres) { courantes_.fill(-1); }

    int operator()(QChar lettre)
    {
        if (lettre.unicode() >= courantes_.size()) {
            auto place = autres_.find(lettre);
            return place != autres_.end() ? *place : *autres_.insert(lettre, lettres_.horizontalAdvance(lettre));
        }
        int& largeur = courantes_[lettre.unicode()];
        if (largeur < 0)
            largeur = lettres_.horizontalAdvance(lettre);
        return largeur;
    }

private:
    const QFontMetrics& lettres_;
    std::array<int, 256> courantes_;
    QHash<QChar, int> autres_;
};

}  // namespace

int LargeurTextes(const QAbstractItemModel& modele, int colonne, const QFontMetrics& lettres, int plafond)
{
    LargeursLettres largeurs(lettres);
    int plusLarge = 0;
    QString precedent;
    const int lignes = std::min(modele.rowCount(), LignesVues);
    for (int ligne = 0; ligne < lignes && plusLarge < plafond; ++ligne) {
        const QString texte = modele.index(ligne, colonne).data().toString();
        if (texte == precedent)
            continue;
        int largeur = 0;
        for (const QChar lettre : texte)
            largeur += largeurs(lettre);
        plusLarge = std::max(plusLarge, largeur);
        precedent = texte;
    }
    return std::min(plusLarge, plafond);
}
