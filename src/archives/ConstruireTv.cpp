#include "archives/ConstruireTv.h"

#include "store/CycleBase.h"

void ConstruireTv(const std::vector<std::string>& lignes, ArbreArchive& tv)
{
    tv = ArbreArchive();
    for (const std::string& ligne : lignes) {
        if (ExtractionAbandonnee())
            return;
        std::string_view membre;
        const int32_t dossier = tv.Dossiers(ligne, '/', membre);
        tv.Membre(dossier, std::string(membre));
    }
}
