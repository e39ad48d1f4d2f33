#pragma once

#include <stop_token>
#include <string>

#include <QImage>
#include <QSize>

// Pictures that descriptions link to: JPEG, GIF, PNG and BMP, from anywhere and of any kind. Any thread may call this.

// The frame of a picture, in pixels at 100 %.
inline constexpr QSize TailleCadre(152, 193);

// Size at which a picture is shown in that frame: as wide as the frame unless it would be higher.
QSize TailleMontree(QSize image);

struct Photo {
    bool fichier = false;  // a file stands at the path
    QImage image;          // scaled; null when the file is empty, damaged, no such picture, or too large
};

// Takes no more than 256 MB, and ends soon after a second or a request to stop, unless the file itself does not answer.
Photo ChargerImage(const std::string& chemin, double echelle, const std::stop_token& arret = {});
