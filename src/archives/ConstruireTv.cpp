#include "archives/ConstruireTv.h"

#include <string>

void ConstruireTv(std::string_view ligne, ArbreArchive& tv)
{
    std::string_view membre;
    const int32_t dossier = tv.Dossiers(ligne, '/', membre);
    tv.Membre(dossier, std::string(membre));
}
