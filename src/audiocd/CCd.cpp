#include "audiocd/CCd.h"

#include "audiocd/IdentiteDisque.h"
#include "audiocd/cMCI.h"

namespace {

int Secondes(const Msf& place)
{
    return place.minute * 60 + place.seconde;
}

}  // namespace

void CCd::Init(std::string_view lecteur)
{
    lecteur_ = lecteur;
    if (const auto appareil = machine_.Ouvrir(lecteur_))
        LoadCDInfo(*appareil);
}

void CCd::LoadCDInfo(LecteurCD& lecteur)
{
    PistesDisque pistes;
    if (!LirePistes(lecteur, pistes))
        return;
    entrees_ = pistes.debuts;
    int64_t somme = 0;
    for (const Msf& debut : entrees_)
        somme += SommeChiffres(Secondes(debut));
    const auto nombre = static_cast<int64_t>(entrees_.size());
    entrees_.push_back(EnMsf(Trames(entrees_.back()) + Trames(pistes.dureeDerniere) + 1));
    identite_ = ComposerIdentite(somme, Secondes(entrees_.back()) - Secondes(entrees_.front()), nombre);
}

std::string CCd::QueryString() const
{
    if (entrees_.empty())
        return "Le Lecteur n'est pas disponible";
    std::string requete = "cddb query " + identite_ + ' ' + std::to_string(entrees_.size() - 1);
    for (size_t i = 0; i + 1 < entrees_.size(); ++i)
        requete += ' ' + std::to_string(Trames(entrees_[i]));
    return requete + ' ' + std::to_string(Secondes(entrees_.back()));
}
