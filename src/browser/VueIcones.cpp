#include "browser/VueIcones.h"

#include <algorithm>

#include <QEvent>
#include <QStyle>

#include "browser/DelegueIcones.h"
#include "fenetres/LargeurTextes.h"

namespace {

constexpr int CoteGrandes = 48;
// Of the names, in letters of middle width.
constexpr int LettresMinimum = 10, LettresParLigne = 20, LettresMaximum = 40;
constexpr int Autour = 12;  // pixels around picture and name

}  // namespace

VueIcones::VueIcones(QWidget* parent) : QListView(parent), delegue_(new DelegueIcones(this))
{
    setItemDelegate(delegue_);
    setUniformItemSizes(true);
    setResizeMode(QListView::Adjust);
    setWrapping(true);
    setTextElideMode(Qt::ElideMiddle);
    setMovement(QListView::Static);
}

void VueIcones::setModel(QAbstractItemModel* modele)
{
    // Ahead of the view's own answer to a reset, so that this one lays out cells of the new size.
    connect(modele, &QAbstractItemModel::modelReset, this, [this] {
        mesuree_ = false;
        MesurerSiVue();
    });
    QListView::setModel(modele);
}

void VueIcones::Afficher(Affichage mode)
{
    mode_ = mode;
    setViewMode(mode == GrandesIcones ? QListView::IconMode : QListView::ListMode);
    setFlow(mode == EnListe ? QListView::TopToBottom : QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setMovement(QListView::Static);
    Mesurer();
}

void VueIcones::showEvent(QShowEvent* evenement)
{
    MesurerSiVue();
    QListView::showEvent(evenement);
}

void VueIcones::changeEvent(QEvent* evenement)
{
    QListView::changeEvent(evenement);
    if (evenement->type() == QEvent::FontChange || evenement->type() == QEvent::StyleChange) {
        mesuree_ = false;
        MesurerSiVue();
    }
}

void VueIcones::MesurerSiVue()
{
    if (!mesuree_ && isVisible())
        Mesurer();
}

void VueIcones::Mesurer()
{
    mesuree_ = true;
    const bool grandes = mode_ == GrandesIcones;
    const int cote = grandes ? CoteGrandes : style()->pixelMetric(QStyle::PM_SmallIconSize);
    setIconSize({cote, cote});
    const QFontMetrics lettres = fontMetrics();
    const int lettre = lettres.averageCharWidth(), ligne = lettres.lineSpacing();
    const int plafond = lettre * (grandes ? LettresParLigne : LettresMaximum);
    const int noms =
        model() ? std::max(LargeurTextes(*model(), 0, lettres, plafond), lettre * LettresMinimum) : plafond;
    const QSize cellule = grandes ? QSize(std::max(noms, cote) + Autour, cote + 2 * ligne + Autour)
                                  : QSize(cote + noms + 2 * Autour, std::max(cote, ligne) + Autour / 2);
    delegue_->Fixer(cellule, grandes);
    setGridSize(cellule);
    scheduleDelayedItemsLayout();
}
