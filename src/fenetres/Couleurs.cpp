#include "fenetres/Couleurs.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

QIcon Pastille(uint32_t couleur, int cote)
{
    const qreal densite = qGuiApp->devicePixelRatio();
    QPixmap carre(QSize(cote, cote) * densite);
    carre.setDevicePixelRatio(densite);
    carre.fill(CouleurDeLong(couleur));
    QPainter dessin(&carre);
    dessin.setPen(Qt::gray);
    dessin.drawRect(0, 0, cote - 1, cote - 1);
    dessin.end();
    QIcon icone(carre);
    icone.addPixmap(carre, QIcon::Selected);
    return icone;
}
