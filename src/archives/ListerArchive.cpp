#include "archives/ListerArchive.h"

#include <utility>

#include "archives/ListerArj.h"
#include "archives/ListerLha.h"
#include "archives/ListerRar.h"
#include "archives/ListerZip.h"
#include "store/Reglages.h"

namespace {

// To add a kind of archive, add its row. The default of a switch is its own number, and only 1 means wanted: ARJ alone
// is on from the start (kept, particularité 9).
constexpr SorteArchive Sortes[] = {
    {{"zip"}, "Compression 0", 0, ListerZip},
    {{"arj"}, "Compression 1", 1, ListerArj},
    {{"lha", "lzh"}, "Compression 2", 2, ListerLha},
    {{"rar"}, "Compression 3", 3, ListerRar},
};

}  // namespace

bool SorteArchive::Voulue() const
{
    return GetSettingNombre(SectionSettings, cle, defaut) == 1;
}

std::span<const SorteArchive> SortesArchives()
{
    return Sortes;
}

const SorteArchive* ChoisirSorte(std::string_view extension)
{
    for (const SorteArchive& sorte : Sortes)
        for (const std::string_view candidate : sorte.extensions)
            if (!extension.empty() && extension == candidate)
                return &sorte;
    return nullptr;
}

ArbreArchive ListerArchive(const Fichier& fichier, std::string_view extension, std::stop_token arret)
{
    ArbreArchive tv;
    if (const SorteArchive* sorte = ChoisirSorte(extension))
        sorte->lister(fichier, std::move(arret), tv);
    return tv;
}
