#include "audiocd/cSPTI.h"

bool cSPTI::InitMediaToc(std::string_view lecteur)
{
    const auto appareil = machine_.Ouvrir(lecteur);
    if (!appareil || !LireToc(*appareil))
        return false;
    LireCdText(*appareil);  // a drive without it has told enough
    return true;
}
