#include "extraction/Animation.h"

#include <QPainter>

namespace {

constexpr int Cote = 40;
constexpr int PasEnDegres = 12;

}  // namespace

Animation::Animation(QWidget* parent) : QWidget(parent)
{
    setFixedSize(Cote, Cote);
    minuterie_.setInterval(80);
    connect(&minuterie_, &QTimer::timeout, this, [this] {
        angle_ = (angle_ + PasEnDegres) % 360;
        update();
    });
}

void Animation::Demarrer()
{
    minuterie_.start();
    update();
}

void Animation::Arreter()
{
    minuterie_.stop();
    update();
}

void Animation::paintEvent(QPaintEvent*)
{
    if (!minuterie_.isActive())
        return;
    QPainter peintre(this);
    peintre.setRenderHint(QPainter::Antialiasing);
    const QRectF disque = QRectF(rect()).adjusted(3, 3, -3, -3);
    peintre.setPen(QPen(palette().color(QPalette::Mid), 1));
    peintre.setBrush(palette().brush(QPalette::Base));
    peintre.drawEllipse(disque);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(palette().brush(QPalette::Highlight));
    peintre.drawPie(disque, -angle_ * 16, 50 * 16);
    peintre.drawPie(disque, (180 - angle_) * 16, 50 * 16);
    peintre.setBrush(palette().brush(QPalette::Window));
    peintre.drawEllipse(disque.center(), 5, 5);
}
