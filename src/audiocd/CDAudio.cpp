#include "audiocd/CDAudio.h"

#include <algorithm>

#include "audiocd/IdentiteDisque.h"

std::string CDAudio::Envoyer(const std::string& commande)
{
    std::string reponse;
    interprete_.Envoyer(commande, reponse);
    return reponse;
}

int64_t CDAudio::GetNumTracks()
{
    return Valeur(Envoyer("status cd number of tracks wait"));
}

// A number of milliseconds, so the format should be that one.
void CDAudio::Avancer(int64_t ms)
{
    const int64_t place = std::max<int64_t>(Valeur(Envoyer("status cd position wait")) + ms, 0);
    Envoyer((CheckIfPlaying() ? "play cd from " : "seek cd to ") + std::to_string(place));
}
