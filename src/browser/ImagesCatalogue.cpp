#include "browser/ImagesCatalogue.h"

#include "fenetres/IconeMedia.h"
#include "platform/TypesSysteme.h"

namespace {

QIcon ImageInterne(int32_t image)
{
    switch (image) {
        case ImageDisque: return QIcon(":/images/disquedef.svg");
        case ImageRepertoire: return QIcon(":/images/repertoire.svg");
        case ImageRepertoireOuvert: return QIcon(":/images/repertoire-ouvert.svg");
        case ImageRacine: return QIcon(":/images/cddef.svg");
        case ImageReseau: return QIcon(":/images/reseaudef.svg");
        case ImageInconnue: return QIcon(":/images/removedef.svg");
        case ImageGenerique: return QIcon(":/images/fichier.svg");
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

QIcon IconeDuTheme(const std::string& extension)
{
    const QIcon precise = QIcon::fromTheme(QString::fromStdString(NomIconeFichier(extension)));
    if (!precise.isNull())
        return precise;
    const QIcon generique = QIcon::fromTheme(QString::fromStdString(NomIconeGenerique(extension)));
    return generique.isNull() ? ImageInterne(ImageGenerique) : generique;
}

}  // namespace

QIcon ImagesCatalogue::DuNoeud(const ArbreCatalogue& arbre, int32_t noeud)
{
    const ArbreCatalogue::Noeud& n = arbre[noeud];
    if (n.image == SansImage)
        return {};
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
        image = icone >= IconesExtensions::Premiere ? IconeDuTheme(extensions_.Extension(icone)) : ImageInterne(icone);
    return image;
}
