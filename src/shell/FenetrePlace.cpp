#include "shell/FenetrePlace.h"

#include <algorithm>

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "store/Reglages.h"

void PlacerFenetre(QWidget& fenetre, std::string_view cleHaut, std::string_view cleGauche)
{
    const QRect principal = QGuiApplication::primaryScreen()->geometry();
    const QPoint centre = principal.topLeft() + QPoint((principal.width() - fenetre.width()) / 2,
                                                       (principal.height() - fenetre.height()) / 2);
    // Bounded before they become pixels: the settings may hold anything.
    const auto lire = [](std::string_view cle, int defaut) {
        const double twips = GetSettingNombre(SectionSettings, cle, defaut * TwipsParPixel);
        return static_cast<int>(std::clamp(twips / TwipsParPixel, -1e6, 1e6));
    };
    QPoint place(lire(cleGauche, centre.x()), lire(cleHaut, centre.y()));

    const auto ecrans = QGuiApplication::screens();
    const auto dansUnEcran = [&](auto contient) {
        return std::any_of(ecrans.begin(), ecrans.end(), [&](QScreen* ecran) { return contient(ecran->geometry()); });
    };
    if (!dansUnEcran([&](const QRect& r) { return place.x() >= r.left() && place.x() <= r.right(); }))
        place.setX(centre.x());
    if (!dansUnEcran([&](const QRect& r) { return place.y() >= r.top() && place.y() <= r.bottom(); }))
        place.setY(centre.y());
    // In the corner that two screens of different sizes leave free.
    if (!dansUnEcran([&](const QRect& r) { return r.contains(place); }))
        place = centre;
    fenetre.move(place);
}

void EnregistrerPlace(const QWidget& fenetre, std::string_view cleHaut, std::string_view cleGauche)
{
    SaveSettingNombre(SectionSettings, cleHaut, fenetre.y() * TwipsParPixel);
    SaveSettingNombre(SectionSettings, cleGauche, fenetre.x() * TwipsParPixel);
}
