#include "catalogue/IconesExtensions.h"

#include "catalogue/ArbreCatalogue.h"
#include "platform/TypesSysteme.h"

int32_t IconesExtensions::Chercher(const std::string& extension)
{
    if (extension.empty())
        return ImageGenerique;
    const std::lock_guard garde(verrou_);
    const auto [place, nouvelle] = icones_.try_emplace(extension, ImageGenerique);
    if (nouvelle && !NomIconeFichier(extension).empty()) {
        place->second = Premiere + static_cast<int32_t>(extensions_.size());
        extensions_.push_back(extension);
    }
    return place->second;
}

std::string IconesExtensions::Extension(int32_t icone) const
{
    const std::lock_guard garde(verrou_);
    return extensions_.at(static_cast<size_t>(icone - Premiere));
}
