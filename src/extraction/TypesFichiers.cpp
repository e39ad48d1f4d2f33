#include "extraction/TypesFichiers.h"

#include "platform/TypesSysteme.h"

const std::string& TypesFichiers::Nom(const std::string& extension)
{
    const auto [place, nouveau] = noms_.try_emplace(extension);
    if (nouveau && !extension.empty())
        place->second = NomTypeFichier(extension);
    return place->second;
}
