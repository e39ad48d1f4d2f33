#include "shell/Options.h"

#include <algorithm>
#include <string>

bool Option::Lire() const
{
    return GetSettingNombre(section, cle, defaut ? 1 : 0) == 1;
}

void Option::Ecrire(bool active) const
{
    SaveSetting(section, cle, active ? "1" : "0");
}

void EcrireOptionFreedb(size_t rang, bool active)
{
    OptionsFreedb[rang].Ecrire(active);
    OptionsDivers[rang].Ecrire(active);
}

size_t LireRangDescription()
{
    const int rang = GetSettingEntier(SectionDescriptions, CleIndex, 1, OptionsDescriptions.size());
    return static_cast<size_t>(std::max(rang, 1) - 1);
}

void EcrireRangDescription(size_t rang)
{
    SaveSetting(SectionDescriptions, CleIndex, std::to_string(rang + 1));
}

int LireOnglet(int nombre)
{
    return GetSettingEntier(SectionOptions, CleOnglet, 0, nombre - 1);
}

void EcrireOnglet(int onglet)
{
    SaveSetting(SectionOptions, CleOnglet, std::to_string(onglet));
}
