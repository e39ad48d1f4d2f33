#include "archives/ListerRar.h"

#include <fmt/format.h>

#include "archives/Rar.h"
#include "commun/Formes.h"
#include "platform/FormesLocales.h"

void ListerRar(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv)
{
    tv = ArbreArchive();
    ArchiveRar archive(fichier);
    if (!archive.RAROpenArchive())
        return;

    EnteteRar entete;
    while (!arret.stop_requested() && archive.RARReadHeader(entete)) {
        archive.RARProcessFile();
        std::string_view dernier;
        const int32_t parent = tv.Dossiers(entete.FileName, '\\', dernier);
        if (entete.UnpSize == 0) {  // kept, particularité 23
            if (!dernier.empty())
                tv.Dossier(parent, dernier);
            continue;
        }
        const std::string taille = entete.UnpSize ? FormatTaille(static_cast<double>(*entete.UnpSize)) : std::string();
        tv.Membre(parent, fmt::format("{}:{}", dernier, taille));
    }
}
