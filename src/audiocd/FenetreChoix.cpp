#include "audiocd/FenetreChoix.h"

#include <algorithm>

#include <QAbstractTableModel>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTreeView>
#include <QVBoxLayout>

#include "commun/Formes.h"
#include "fenetres/TextesQt.h"

namespace {

// The rows as they came: a server may send a million of them.
class ModeleRangees : public QAbstractTableModel {
public:
    ModeleRangees(const std::vector<std::string>& rangees, QObject* parent)
        : QAbstractTableModel(parent), rangees_(rangees)
    {
        for (const std::string& rangee : rangees)
            colonnes_ = std::max(colonnes_, static_cast<int>(std::count(rangee.begin(), rangee.end(), '\t')) + 1);
        colonnes_ = std::min(colonnes_, ColonnesMaximum);
    }

    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(rangees_.size());
    }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : colonnes_; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        std::string_view reste = rangees_[static_cast<size_t>(index.row())];
        for (int colonne = 0; colonne < index.column(); ++colonne)
            Detacher(reste, '\t');
        const std::string_view cellule = index.column() + 1 < colonnes_ ? Detacher(reste, '\t') : reste;
        return EnLignes(cellule).replace('\n', ' ');
    }

private:
    static constexpr int ColonnesMaximum = 8;
    std::vector<std::string> rangees_;
    int colonnes_ = 1;
};

}  // namespace

FenetreChoix::FenetreChoix(const QString& titre, const QString& entete, const std::vector<std::string>& rangees,
                           QWidget* parent)
    : QDialog(parent), tete_(new QVBoxLayout), liste_(new QTreeView)
{
    setWindowTitle(titre);
    liste_->setObjectName("Liste");
    liste_->setAccessibleName(titre);
    liste_->setRootIsDecorated(false);
    liste_->setUniformRowHeights(true);
    liste_->setHeaderHidden(true);
    liste_->setModel(new ModeleRangees(rangees, liste_));
    for (int colonne = 0; colonne < liste_->model()->columnCount(); ++colonne)
        liste_->resizeColumnToContents(colonne);
    liste_->setCurrentIndex(liste_->model()->index(0, 0));

    auto* ok = new QPushButton("  &OK");
    ok->setObjectName("OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] { Valider(); });
    connect(liste_, &QTreeView::doubleClicked, this, [this] { Valider(); });
    auto* mise = new QVBoxLayout(this);
    mise->addLayout(tete_);
    mise->addWidget(liste_, 1);
    mise->addWidget(ok, 0, Qt::AlignRight);
    AjouterLigne(entete);
    liste_->setFocus();
    resize(std::max(sizeHint().width(), fontMetrics().averageCharWidth() * 70),
           std::max(sizeHint().height(), fontMetrics().height() * 18));
}

void FenetreChoix::AjouterLigne(const QString& texte)
{
    auto* ligne = new QLabel(texte);
    ligne->setTextFormat(Qt::PlainText);
    ligne->setWordWrap(true);
    tete_->addWidget(ligne);
}

int FenetreChoix::Choisi() const
{
    return result() == QDialog::Accepted ? liste_->currentIndex().row() + 1 : 0;
}

int FenetreChoix::GetSelection()
{
    exec();
    return Choisi();
}

void FenetreChoix::Placer(long haut, long gauche)
{
    const QPoint coin(static_cast<int>(gauche), static_cast<int>(haut));
    const QScreen* ecran = QGuiApplication::screenAt(coin);
    if (coin != QPoint() && ecran && ecran->availableGeometry().contains(QRect(coin, size())))
        move(coin);
}

void FenetreChoix::Valider()
{
    accept();
}
