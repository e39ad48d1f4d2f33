#include "audiocd/FenetreChoix.h"

#include <algorithm>

#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "fenetres/TextesQt.h"

FenetreChoix::FenetreChoix(const QString& titre, const QString& entete, const std::vector<std::string>& rangees,
                           QWidget* parent)
    : QDialog(parent), tete_(new QVBoxLayout), liste_(new QTreeWidget)
{
    setWindowTitle(titre);
    liste_->setObjectName("Liste");
    liste_->setAccessibleName(titre);
    liste_->setRootIsDecorated(false);
    liste_->setUniformRowHeights(true);
    liste_->setHeaderHidden(true);
    for (const std::string& rangee : rangees) {
        const QStringList colonnes = EnLignes(rangee).replace('\n', ' ').split('\t');
        liste_->setColumnCount(std::max(liste_->columnCount(), static_cast<int>(colonnes.size())));
        new QTreeWidgetItem(liste_, colonnes);
    }
    for (int colonne = 0; colonne < liste_->columnCount(); ++colonne)
        liste_->resizeColumnToContents(colonne);
    liste_->setCurrentItem(liste_->topLevelItem(0));

    auto* ok = new QPushButton("  &OK");
    ok->setObjectName("OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] { Valider(); });
    connect(liste_, &QTreeWidget::itemDoubleClicked, this, [this] { Valider(); });
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
    return result() == QDialog::Accepted ? liste_->indexOfTopLevelItem(liste_->currentItem()) + 1 : 0;
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
