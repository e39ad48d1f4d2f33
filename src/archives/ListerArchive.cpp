#include "archives/ListerArchive.h"

#include "archives/ConstruireTv.h"
#include "archives/ListerArj.h"
#include "archives/ListerLha.h"
#include "archives/ListerRar.h"
#include "archives/ListerZip.h"

namespace {

struct Lecteur {
    std::string_view extension;
    void (*lister)(const Fichier&, ArbreArchive&);
};

// To add a kind of archive, name its reader here and its extension in the dispatch.
constexpr Lecteur Lecteurs[] = {
    {"zip", [](const Fichier& fichier, ArbreArchive& tv) { ConstruireTv(ListerZip(fichier), tv); }},
    {"arj", ListerArj},
    {"lha", ListerLha},
    {"lzh", ListerLha},
    {"rar", ListerRar},
};

}  // namespace

ArbreArchive ListerArchive(const Fichier& fichier, std::string_view extension)
{
    ArbreArchive tv;
    for (const Lecteur& lecteur : Lecteurs)
        if (lecteur.extension == extension)
            lecteur.lister(fichier, tv);
    return tv;
}
