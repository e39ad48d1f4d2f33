#include "audiocd/cASPI.h"

#include "audiocd/cMCI.h"

bool cASPI::InitMediaToc(std::string_view lecteur)
{
    constexpr int cibles = 8;
    constexpr int unites = 2;
    cMCI reference(machine_);
    reference.InitMediaToc(lecteur);

    const int adaptateurs = machine_.Adaptateurs();
    for (int adaptateur = 0; adaptateur < adaptateurs; ++adaptateur)
        for (int cible = 0; cible < cibles; ++cible)
            for (int unite = 0; unite < unites; ++unite)
                if (Essayer(adaptateur, cible, unite, reference.GetTOC()))
                    return true;
    return false;
}

bool cASPI::Essayer(int adaptateur, int cible, int unite, std::string_view reference)
{
    if (machine_.TypeAppareil(adaptateur, cible, unite) != MachineCD::TypeCdRom)
        return false;
    const auto appareil = machine_.OuvrirAppareil(adaptateur, cible, unite);
    if (!appareil || !LireToc(*appareil))
        return false;
    // The lead-out, behind the last blank, may be told in two ways.
    const size_t debuts = toc_.rfind(' ');
    if (debuts == toc_.npos || reference.substr(0, debuts) != std::string_view(toc_).substr(0, debuts))
        return false;
    LireCdText(*appareil);
    return true;
}
