#include "catalogue/IconesExtensions.h"

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/ImagesTypes.h"

int32_t IconesExtensions::Chercher(const std::string& extension)
{
    if (extension.empty())
        return ImageGenerique;
    const std::lock_guard garde(verrou_);
    if (const auto place = icones_.find(extension); place != icones_.end())
        return place->second;
    if (icones_.size() >= Maximum)
        return ImageGenerique;
    int32_t icone = ImageGenerique;
    if (!ImageDuType(extension).empty()) {
        icone = Premiere + static_cast<int32_t>(extensions_.size());
        extensions_.push_back(extension);
    }
    icones_.emplace(extension, icone);
    return icone;
}

std::string IconesExtensions::Extension(int32_t icone) const
{
    const std::lock_guard garde(verrou_);
    return extensions_.at(static_cast<size_t>(icone - Premiere));
}
