#include "search/Infobulle.h"

#include <algorithm>
#include <cmath>

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <QVBoxLayout>

namespace {

constexpr int Duree = 5000;  // ms
constexpr int Ecart = 18;    // pixels from the pointer
constexpr int Marge = 3;
constexpr qsizetype TexteMesure = 4000;

}  // namespace

Infobulle::Infobulle(QWidget* parent) : QFrame(parent), texte_(new QPlainTextEdit)
{
    setObjectName("ToolTip");
    setAccessibleName("Description");
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    texte_->setObjectName("ToolTipT");
    texte_->setReadOnly(true);
    texte_->setFrameShape(QFrame::NoFrame);
    texte_->setFocusPolicy(Qt::NoFocus);
    texte_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    texte_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(Marge, Marge, Marge, Marge);
    mise->addWidget(texte_);

    minuterie_.setObjectName("Timer1");
    minuterie_.setParent(this);
    minuterie_.setSingleShot(true);
    minuterie_.setInterval(Duree);
    connect(&minuterie_, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

// As wide and high as the text needs, up to a part of the window.
void Infobulle::Remplir(const QString& texte)
{
    const int marge = 2 * (frameWidth() + Marge);
    const int largeur = std::min(parentWidget()->width() * 3 / 5, fontMetrics().averageCharWidth() * 70);
    const int hauteur = parentWidget()->height() / 3;
    QTextDocument document;
    document.setDefaultFont(texte_->font());
    document.setPlainText(texte.left(TexteMesure));
    document.setTextWidth(largeur - marge);
    const QSize besoin(static_cast<int>(std::ceil(document.idealWidth())),
                       static_cast<int>(std::ceil(document.size().height())));
    const bool deborde = besoin.height() > hauteur - marge || texte.size() > TexteMesure;
    const int defilement = deborde ? texte_->verticalScrollBar()->sizeHint().width() : 0;
    // Not left to the box, which would wrap for a bar that it then no longer needs.
    texte_->setVerticalScrollBarPolicy(deborde ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    resize(std::min(besoin.width() + marge + defilement + 2, largeur), std::min(besoin.height() + marge + 2, hauteur));
    texte_->setPlainText(texte);
}

void Infobulle::Montrer(const QString& texte, const QPoint& place)
{
    QPalette couleurs = QToolTip::palette();
    couleurs.setColor(QPalette::Window, couleurs.color(QPalette::ToolTipBase));
    couleurs.setColor(QPalette::Base, couleurs.color(QPalette::ToolTipBase));
    couleurs.setColor(QPalette::WindowText, couleurs.color(QPalette::ToolTipText));
    couleurs.setColor(QPalette::Text, couleurs.color(QPalette::ToolTipText));
    setPalette(couleurs);
    Remplir(texte);
    Suivre(place);
    show();
    raise();
    minuterie_.start();
}

// Below the pointer on its right, above where there is no room; never out of the window.
void Infobulle::Suivre(const QPoint& place)
{
    const QRect cadre = parentWidget()->rect();
    QPoint coin = place + QPoint(Ecart, Ecart);
    if (coin.y() + height() > cadre.height())
        coin.setY(place.y() - Ecart / 2 - height());
    move(std::clamp(coin.x(), 0, std::max(cadre.width() - width(), 0)),
         std::clamp(coin.y(), 0, std::max(cadre.height() - height(), 0)));
}

void Infobulle::Cacher()
{
    minuterie_.stop();
    hide();
}

void Infobulle::enterEvent(QEnterEvent*)
{
    minuterie_.stop();
}

void Infobulle::leaveEvent(QEvent*)
{
    if (isVisible())
        minuterie_.start();
}
