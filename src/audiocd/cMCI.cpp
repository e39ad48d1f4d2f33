#include "audiocd/cMCI.h"

bool LirePistes(LecteurCD& lecteur, PistesDisque& pistes)
{
    int premiere = 0;
    int derniere = 0;
    if (!lecteur.LireBornes(premiere, derniere) || derniere < premiere)
        return false;
    for (int piste = premiere; piste <= derniere; ++piste)
        if (!lecteur.LireDebut(piste, pistes.debuts.emplace_back())) {
            pistes.debuts.pop_back();
            return false;
        }
    Msf fin;
    if (!lecteur.LireDebut(LecteurCD::PisteFinale, fin))
        return false;
    const int duree = Trames(fin) - Trames(pistes.debuts.back()) - 1;
    pistes.dureeDerniere = EnMsf(duree > 0 ? duree : 0);
    return true;
}

bool cMCI::InitMediaToc(std::string_view lecteur)
{
    const auto appareil = machine_.Ouvrir(lecteur);
    PistesDisque pistes;
    if (!appareil || !LirePistes(*appareil, pistes))
        return false;
    for (const Msf& debut : pistes.debuts)
        toc_ += std::to_string(Trames(debut)) + ' ';
    toc_ += std::to_string(Trames(pistes.debuts.back()) + Trames(pistes.dureeDerniere) + 1);
    return true;
}
