#include "extractors/ExtraireDescription.h"

#include <string_view>

#include "extractors/DecrireHTML.h"
#include "extractors/DecrireMP3.h"
#include "extractors/DecrirePDF.h"
#include "extractors/DecrireProjet.h"
#include "extractors/DecrireTexte.h"
#include "extractors/Raccourci.h"

namespace {

struct Sorte {
    std::string_view extension;
    bool (*decrire)(const Fichier& fichier, std::string& resultat);
};

constexpr Sorte Sortes[] = {
    {"htm", DecrireHTML},  {"html", DecrireHTML}, {"pdf", DecrirePDF}, {"diz", DecrireTexte},
    {"nfo", DecrireTexte}, {"bbs", DecrireTexte}, {"mp3", DecrireMP3}, {"vbp", DecrireProjet},
};

}  // namespace

bool ExtraireDescription(const FichierADecrire& source, std::string& resultat)
{
    if (source.extension == "lnk")
        return DecrireRaccourci(source, resultat);
    for (const Sorte& sorte : Sortes)
        if (source.extension == sorte.extension)
            return sorte.decrire(source.fichier, resultat);
    return false;
}
