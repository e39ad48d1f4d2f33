#pragma once

#include <QHash>
#include <QIcon>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/IconesExtensions.h"

// The picture lists of the browser: built-in pictures, icons of media and of file extensions, each made once.
class ImagesCatalogue {
public:
    explicit ImagesCatalogue(const IconesExtensions& extensions) : extensions_(extensions) {}

    // Only archives are given no picture in the tree: they have that of their kind.
    QIcon DuNoeud(const ArbreCatalogue& arbre, int32_t noeud);
    const QIcon& DeItem(int32_t icone);

    // Forgets the icons of media, whose nodes are gone.
    void OublierMedias() { medias_.clear(); }
    // The same of one media, whose icon is another now.
    void OublierMedia(int32_t noeud) { medias_.remove(noeud); }

private:
    const IconesExtensions& extensions_;
    QHash<int32_t, QIcon> images_, medias_;
    QIcon archive_;
};
