#include "extraction/RangeeOnglets.h"

#include <algorithm>

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

#include "fenetres/TextesQt.h"
#include "fenetres/Touches.h"

namespace {

// White on dark and black on light, whatever the colours of the desktop.
constexpr const char* CouleursOnglets = R"(
QToolButton { background: #36454f; color: #ffffff; border: 2px solid #36454f; border-radius: 4px; padding: 2px 8px; }
QToolButton:hover { background: #4a5d6a; }
QToolButton:checked { background: #f4f4f4; color: #000000; border-color: #8a9aa5; }
QToolButton:focus { border-color: #3daee9; }
QToolButton:disabled { color: #c0c8cc; }
QToolButton:checked:disabled { background: #d4d8da; color: #000000; }
)";

}  // namespace

RangeeOnglets::RangeeOnglets(const QString& nomVide, QWidget* parent)
    : QWidget(parent), nomVide_(nomVide), zone_(new QScrollArea), gauche_(new QToolButton), droit_(new QToolButton)
{
    gauche_->setArrowType(Qt::LeftArrow);
    gauche_->setAccessibleName("Gauche");
    droit_->setArrowType(Qt::RightArrow);
    droit_->setAccessibleName("Droit");
    // The arrow keys bring every tab into view, so the keyboard passes these two by.
    for (QToolButton* bouton : {gauche_, droit_}) {
        bouton->setAutoRaise(true);
        bouton->setAutoRepeat(true);
        bouton->setFocusPolicy(Qt::NoFocus);
    }
    zone_->setFrameShape(QFrame::NoFrame);
    zone_->viewport()->setAutoFillBackground(false);
    zone_->setWidgetResizable(true);
    zone_->setFocusPolicy(Qt::NoFocus);
    zone_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zone_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zone_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);

    auto* mise = new QHBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(gauche_);
    mise->addWidget(zone_, 1);
    mise->addWidget(droit_);

    connect(gauche_, &QToolButton::clicked, this, [this] { Defiler(-1); });
    connect(droit_, &QToolButton::clicked, this, [this] { Defiler(1); });
    connect(zone_->horizontalScrollBar(), &QScrollBar::rangeChanged, this, &RangeeOnglets::AjusterBoutons);
    connect(zone_->horizontalScrollBar(), &QScrollBar::valueChanged, this, &RangeeOnglets::AjusterBoutons);
    Remplir({});
}

void RangeeOnglets::Remplir(const std::vector<LecteurVu>& lecteurs)
{
    lettres_.clear();
    onglets_.clear();
    choisi_ = Aucun;

    auto* contenu = new QWidget;
    contenu->setStyleSheet(CouleursOnglets);
    auto* mise = new QHBoxLayout(contenu);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->setSpacing(2);
    for (const LecteurVu& lecteur : lecteurs) {
        lettres_.push_back(lecteur.lettre);
        const int numero = static_cast<int>(onglets_.size());
        auto* onglet = new QToolButton;
        onglet->setCheckable(true);
        onglet->setFocusPolicy(Qt::StrongFocus);
        onglet->setText(QString::fromStdString(lecteur.libelle).replace("&", "&&"));
        onglet->setToolTip(EnBulle(lecteur.emplacement));
        onglet->setAccessibleDescription(EnQString(lecteur.emplacement));
        onglet->installEventFilter(this);
        connect(onglet, &QToolButton::clicked, this, [this, numero](bool presse) {
            if (presse)
                emit Presse(numero);
            else
                Marquer(numero, true);
        });
        onglets_.push_back(onglet);
        mise->addWidget(onglet);
    }
    if (lettres_.empty()) {
        auto* vide = new QLabel(nomVide_);
        vide->setEnabled(false);
        mise->addWidget(vide);
    }
    mise->addStretch(1);
    zone_->setWidget(contenu);
    contenu->setAutoFillBackground(false);  // what is behind the row shows through
    // One line of tabs, bold ones included.
    QToolButton etalon(contenu);
    etalon.setText("X");
    zone_->setFixedHeight(std::max(etalon.sizeHint().height() + 4, contenu->sizeHint().height()));
    AjusterBoutons();
}

int RangeeOnglets::Position(char lettre) const
{
    const auto trouve = std::find(lettres_.begin(), lettres_.end(), lettre);
    return trouve == lettres_.end() ? Aucun : static_cast<int>(trouve - lettres_.begin());
}

void RangeeOnglets::Choisir(int numero)
{
    if (choisi_ < Nombre())
        Marquer(choisi_, false);
    choisi_ = numero;
    if (choisi_ >= Nombre())
        return;
    Marquer(choisi_, true);
    zone_->ensureWidgetVisible(Onglet(choisi_));
}

void RangeeOnglets::Marquer(int numero, bool choisi)
{
    QToolButton* onglet = Onglet(numero);
    onglet->setChecked(choisi);
    QFont police = onglet->font();
    police.setBold(choisi);
    onglet->setFont(police);
}

void RangeeOnglets::Renommer(int numero, const QString& texte)
{
    Onglet(numero)->setText(QString(texte).replace("&", "&&"));
}

void RangeeOnglets::Defiler(int sens)
{
    QScrollBar* barre = zone_->horizontalScrollBar();
    barre->setValue(barre->value() + sens * zone_->viewport()->width() / 2);
}

void RangeeOnglets::AjusterBoutons()
{
    const QScrollBar* barre = zone_->horizontalScrollBar();
    const bool trop = barre->maximum() > 0;
    gauche_->setVisible(trop);
    droit_->setVisible(trop);
    gauche_->setEnabled(barre->value() > 0);
    droit_->setEnabled(barre->value() < barre->maximum());
}

bool RangeeOnglets::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() == QEvent::FocusIn)
        zone_->ensureWidgetVisible(static_cast<QWidget*>(objet));
    if (evenement->type() == QEvent::KeyPress) {
        if (EstEntree(static_cast<QKeyEvent*>(evenement)->key())) {
            static_cast<QToolButton*>(objet)->click();
            return true;
        }
    }
    return QWidget::eventFilter(objet, evenement);
}

void RangeeOnglets::resizeEvent(QResizeEvent* evenement)
{
    QWidget::resizeEvent(evenement);
    if (choisi_ < Nombre())
        zone_->ensureWidgetVisible(Onglet(choisi_));
}
