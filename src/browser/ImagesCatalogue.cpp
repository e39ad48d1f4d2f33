#include "browser/ImagesCatalogue.h"

#include "catalogue/ImagesTypes.h"
#include "fenetres/IconeMedia.h"
#include "platform/TypesSysteme.h"

namespace {

QIcon ImagePropreDuType(std::string_view image)
{
    return QIcon(QString(":/images/types/%1.svg").arg(QLatin1String(image.data(), image.size())));
}

QIcon ImageInterne(int32_t image)
{
    switch (image) {
        case ImageDisque: return QIcon(":/images/disquedef.svg");
        case ImageRepertoire: return QIcon(":/images/repertoire.svg");
        case ImageRepertoireOuvert: return QIcon(":/images/repertoire-ouvert.svg");
        case ImageRacine: return QIcon(":/images/cddef.svg");
        case ImageReseau: return QIcon(":/images/reseaudef.svg");
        case ImageInconnue: return QIcon(":/images/removedef.svg");
        case ImageGenerique: return ImagePropreDuType(ImageFichier);
        default: return {};
    }
}

// The directory's two pictures in one icon: open while it is selected.
QIcon ImageRepertoireDouble()
{
    QIcon icone(":/images/repertoire.svg");
    icone.addFile(":/images/repertoire-ouvert.svg", {}, QIcon::Selected);
    return icone;
}

// The icon of exactly this name: a theme that lacks it offers those of shorter names ("application" for
// "application-x-font"), which mean something else, and what lies about where no theme is set is no desktop's choice.
QIcon IconeDuTheme(const std::string& nom)
{
    const QString theme = QIcon::themeName(), icone = QString::fromStdString(nom);
    const bool choisi = !theme.isEmpty() && theme != "hicolor";
    return choisi && QIcon::hasThemeIcon(icone) ? QIcon::fromTheme(icone) : QIcon();
}

QIcon IconeDuType(const std::string& extension)
{
    for (const std::string& nom : {NomIconeFichier(extension), NomIconeGenerique(extension)})
        if (const QIcon icone = IconeDuTheme(nom); !icone.isNull())
            return icone;
    return ImagePropreDuType(ImageDuType(extension));
}

QIcon IconeArchive()
{
    const QIcon icone = IconeDuTheme("package-x-generic");
    return icone.isNull() ? ImagePropreDuType(ImageArchive) : icone;
}

}  // namespace

QIcon ImagesCatalogue::DuNoeud(const ArbreCatalogue& arbre, int32_t noeud)
{
    const ArbreCatalogue::Noeud& n = arbre[noeud];
    if (n.image == SansImage) {
        if (archive_.isNull())
            archive_ = IconeArchive();
        return archive_;
    }
    if (n.image == ImagePropre) {
        auto icone = medias_.find(noeud);
        if (icone == medias_.end())
            icone = medias_.insert(noeud, IconeDeMedia(arbre.Icone(noeud)));
        return icone->isNull() ? DeItem(ImageRacine) : *icone;
    }
    if (n.imageSelection != ImageRepertoireOuvert)
        return DeItem(n.image);
    static const QIcon repertoire = ImageRepertoireDouble();
    return repertoire;
}

const QIcon& ImagesCatalogue::DeItem(int32_t icone)
{
    QIcon& image = images_[icone];
    if (image.isNull())
        image = icone >= IconesExtensions::Premiere ? IconeDuType(extensions_.Extension(icone)) : ImageInterne(icone);
    return image;
}
