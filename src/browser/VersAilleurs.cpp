#include "browser/VersAilleurs.h"

#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "platform/OperationsFichiers.h"
#include "store/Reglages.h"

namespace {

constexpr int OngletLabel = 2;  // of the search window

}  // namespace

// Ahead of all media stands "Tous " in the search window's list.
void PreparerRechercheMedia(std::string_view numero)
{
    Base base = OuvrirBase();
    SaveSetting(SectionSettings, CleLLabel, std::to_string(RangParLabel(base, numero) + 1));
    SaveSetting(SectionLvListView, CleOnglet, std::to_string(OngletLabel));
}

std::string CheminAide(std::initializer_list<std::string> dossiers)
{
    for (const char* nom : {"VL.chm", "guide/index.html", "../share/doc/velourne/guide/index.html", "README.md",
                            "../share/doc/velourne/README.md"})
        for (const std::string& dossier : dossiers)
            if (const std::string chemin = dossier + "/" + nom; FichierExiste(chemin))
                return chemin;
    return {};
}
