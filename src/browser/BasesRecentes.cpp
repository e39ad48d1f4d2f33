#include "browser/BasesRecentes.h"

#include <algorithm>

#include "commun/Formes.h"
#include "store/Reglages.h"

namespace {

std::string CleBase(size_t rang)
{
    return std::string(DebutCleBaseRecente) + Str(static_cast<int64_t>(rang) + 1);
}

}  // namespace

std::vector<std::string> BasesRecentes()
{
    std::vector<std::string> bases;
    for (size_t rang = 0; rang < BasesRecentesMaximum; ++rang)
        if (std::string chemin = GetSetting(SectionSettings, CleBase(rang), ""); !chemin.empty())
            bases.push_back(std::move(chemin));
    return bases;
}

void RetenirBase(const std::string& chemin)
{
    if (chemin.empty())
        return;
    const std::vector<std::string> avant = BasesRecentes();
    std::vector<std::string> bases = avant;
    std::erase(bases, chemin);
    bases.insert(bases.begin(), chemin);
    for (size_t rang = 0; rang < std::min(bases.size(), BasesRecentesMaximum); ++rang)
        if (rang >= avant.size() || bases[rang] != avant[rang])
            SaveSetting(SectionSettings, CleBase(rang), bases[rang]);
}
