#include "search/FenetreInfobulle.h"

#include <algorithm>

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QToolTip>
#include <QVBoxLayout>

namespace {

constexpr int Duree = 5000;  // ms
constexpr int Ecart = 18;    // pixels from the pointer
constexpr qsizetype TexteMesure = 4000;

}  // namespace

FenetreInfobulle::FenetreInfobulle(QWidget* parent) : QFrame(parent), texte_(new QPlainTextEdit)
{
    setObjectName("ToolTip");
    setAccessibleName("Description");
    setFrameShape(QFrame::Box);
    setPalette(QToolTip::palette());
    setAutoFillBackground(true);
    texte_->setObjectName("ToolTipT");
    texte_->setReadOnly(true);
    texte_->setFrameShape(QFrame::NoFrame);
    texte_->setFocusPolicy(Qt::NoFocus);
    texte_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    texte_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QPalette couleurs = QToolTip::palette();
    couleurs.setColor(QPalette::Base, couleurs.color(QPalette::ToolTipBase));
    couleurs.setColor(QPalette::Text, couleurs.color(QPalette::ToolTipText));
    texte_->setPalette(couleurs);
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(3, 3, 3, 3);
    mise->addWidget(texte_);

    minuterie_.setObjectName("Timer1");
    minuterie_.setParent(this);
    minuterie_.setSingleShot(true);
    minuterie_.setInterval(Duree);
    connect(&minuterie_, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

// As wide and high as the text needs, up to a part of the window.
QSize FenetreInfobulle::TaillePour(const QString& texte) const
{
    const QFontMetrics lettres = texte_->fontMetrics();
    const int marge = 2 * (frameWidth() + 3 + static_cast<int>(texte_->document()->documentMargin()));
    const int largeur = std::min(parentWidget()->width() * 3 / 5, lettres.averageCharWidth() * 70) - marge;
    const int hauteur = parentWidget()->height() / 3 - marge;
    const QRect besoin = lettres.boundingRect(QRect(0, 0, largeur, hauteur), Qt::TextWordWrap | Qt::TextWrapAnywhere,
                                              texte.left(TexteMesure));
    const bool deborde = besoin.height() > hauteur || texte.size() > TexteMesure;
    const int defilement = deborde ? texte_->verticalScrollBar()->sizeHint().width() : 0;
    return {std::min(besoin.width() + 2, largeur) + marge + defilement, std::min(besoin.height(), hauteur) + marge};
}

void FenetreInfobulle::Montrer(const QString& texte, const QPoint& place)
{
    texte_->setPlainText(texte);
    resize(TaillePour(texte));
    Suivre(place);
    show();
    raise();
    minuterie_.start();
}

// Below the pointer on its right, above where there is no room; never out of the window.
void FenetreInfobulle::Suivre(const QPoint& place)
{
    const QRect cadre = parentWidget()->rect();
    QPoint coin = place + QPoint(Ecart, Ecart);
    if (coin.y() + height() > cadre.height())
        coin.setY(place.y() - Ecart / 2 - height());
    move(std::clamp(coin.x(), 0, std::max(cadre.width() - width(), 0)),
         std::clamp(coin.y(), 0, std::max(cadre.height() - height(), 0)));
}

void FenetreInfobulle::Cacher()
{
    minuterie_.stop();
    hide();
}

void FenetreInfobulle::enterEvent(QEnterEvent*)
{
    minuterie_.stop();
}

void FenetreInfobulle::leaveEvent(QEvent*)
{
    if (isVisible())
        minuterie_.start();
}
