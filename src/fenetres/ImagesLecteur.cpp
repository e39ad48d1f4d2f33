#include "fenetres/ImagesLecteur.h"

#include <QBuffer>
#include <QPixmap>

#include "platform/Lecteurs.h"
#include "platform/OperationsFichiers.h"
#include "store/CycleBase.h"

namespace {

struct Image {
    const char* theme;
    const char* propre;
};

Image ImageDuType(uint32_t type)
{
    switch (type) {
        case LecteurAmovible: return {"drive-removable-media", "removedef"};
        case LecteurReseau: return {"folder-remote", "reseaudef"};
        case LecteurOptique: return {"media-optical", "cddef"};
        default: return {"drive-harddisk", "disquedef"};
    }
}

}  // namespace

QIcon IconeLecteur(uint32_t type)
{
    const auto [theme, propre] = ImageDuType(type);
    return QIcon::fromTheme(theme, QIcon(QString(":/images/%1.svg").arg(propre)));
}

void EcrireIconeTemporaire(uint32_t type)
{
    QByteArray octets;
    QBuffer tampon(&octets);
    if (IconeLecteur(type).pixmap(QSize(32, 32), 1.0).save(&tampon, "PNG"))
        EcrireFichier(CheminIconeTemporaire(),
                      std::string_view(octets.constData(), static_cast<size_t>(octets.size())));
    else
        SupprimerFichier(CheminIconeTemporaire());
}
