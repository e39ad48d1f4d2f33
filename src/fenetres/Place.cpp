#include "fenetres/Place.h"

#include <algorithm>
#include <string>

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

int LirePixels(std::string_view section, std::string_view cle, int defaut)
{
    const double twips = GetSettingNombre(section, cle, defaut * TwipsParPixel);
    return static_cast<int>(std::clamp(twips / TwipsParPixel, 0.0, 10000.0));
}

void EcrirePixels(std::string_view section, std::string_view cle, int pixels)
{
    SaveSettingNombre(section, cle, pixels * TwipsParPixel);
}

void PlacerFenetrePrincipale(QWidget& fenetre)
{
    const auto lire = [](std::string_view cle, int defaut) { return LirePixels(SectionSettings, cle, defaut); };
    const QSize ecran = QGuiApplication::primaryScreen()->availableSize();
    fenetre.resize(std::max(lire(CleMainWidth, std::min(1000, ecran.width())), 320),
                   std::max(lire(CleMainHeight, std::min(660, ecran.height() - 40)), 240));
    if (GetSetting(SectionSettings, CleMainLeft, "").empty())
        fenetre.move(0, 0);
    else
        PlacerFenetre(fenetre, CleMainTop, CleMainLeft);
    if (GetSettingEntier(SectionSettings, CleMainState, 0, 2) == 2)
        fenetre.setWindowState(Qt::WindowMaximized);
}

void EnregistrerPlacePrincipale(const QWidget& fenetre)
{
    const int etat = fenetre.isMinimized() ? 1 : fenetre.isMaximized() ? 2 : 0;
    SaveSetting(SectionSettings, CleMainState, std::to_string(etat));
    if (etat != 0)
        return;
    EnregistrerPlace(fenetre, CleMainTop, CleMainLeft);
    EcrirePixels(SectionSettings, CleMainWidth, fenetre.width());
    EcrirePixels(SectionSettings, CleMainHeight, fenetre.height());
}

void PrendreLaPlace(QWidget& fenetre, QWidget& autre)
{
    fenetre.setWindowState(autre.isMaximized() ? Qt::WindowMaximized : Qt::WindowNoState);
    if (!autre.isMaximized()) {
        // By the corner of the frame: that of a window not yet shown is unknown, and would end up beyond the screen.
        fenetre.resize(autre.size());
        fenetre.move(autre.pos());
    }
    fenetre.show();
    fenetre.raise();
    fenetre.activateWindow();
    autre.hide();
}
