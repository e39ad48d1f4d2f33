#include "browser/ImagesCatalogue.h"

#include "catalogue/ImagesTypes.h"
#include "fenetres/IconeMedia.h"
#include "platform/TypesSysteme.h"

namespace {

// A picture of the program's own keeps its colours where it is selected, or gives way to another: tinted, small ones
// are lost.
QIcon ImageDuProgramme(const QString& nom, const QString& selectionnee)
{
    QIcon icone(QString(":/images/%1.svg").arg(nom));
    icone.addFile(QString(":/images/%1.svg").arg(selectionnee), {}, QIcon::Selected);
    return icone;
}

QIcon ImageDuProgramme(const QString& nom)
{
    return ImageDuProgramme(nom, nom);
}

QIcon ImageDeSorte(std::string_view sorte)
{
    return ImageDuProgramme("types/" + QString::fromLatin1(sorte.data(), static_cast<qsizetype>(sorte.size())));
}

QIcon ImageInterne(int32_t image)
{
    switch (image) {
        case ImageDisque: return ImageDuProgramme("disquedef");
        case ImageRepertoire: return ImageDuProgramme("repertoire");
        case ImageRepertoireOuvert: return ImageDuProgramme("repertoire-ouvert");
        case ImageRacine: return ImageDuProgramme("cddef");
        case ImageReseau: return ImageDuProgramme("reseaudef");
        case ImageInconnue: return ImageDuProgramme("removedef");
        case ImageGenerique: return ImageDeSorte(ImageFichier);
        default: return {};
    }
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
    return ImageDeSorte(ImageDuType(extension));
}

QIcon IconeArchive()
{
    const QIcon icone = IconeDuTheme("package-x-generic");
    return icone.isNull() ? ImageDeSorte(ImageArchive) : icone;
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
    static const QIcon repertoire = ImageDuProgramme("repertoire", "repertoire-ouvert");
    return repertoire;
}

const QIcon& ImagesCatalogue::DeItem(int32_t icone)
{
    QIcon& image = images_[icone];
    if (image.isNull())
        image = icone >= IconesExtensions::Premiere ? IconeDuType(extensions_.Extension(icone)) : ImageInterne(icone);
    return image;
}
