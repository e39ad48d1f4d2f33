#include "store/BaseCourante.h"

#include <mutex>
#include <utility>

namespace {

struct Etat {
    std::mutex verrou;
    std::string courante;
    std::string remplacee;
    std::string refus;
    std::string avis;
};

Etat& LEtat()
{
    static Etat etat;
    return etat;
}

}  // namespace

std::string BaseCourante()
{
    const std::lock_guard garde(LEtat().verrou);
    return LEtat().courante;
}

void FixerBaseCourante(const std::string& chemin)
{
    FixerRemplacante(chemin, "");
}

void FixerRemplacante(const std::string& chemin, const std::string& remplacee)
{
    const std::lock_guard garde(LEtat().verrou);
    LEtat().courante = chemin;
    LEtat().remplacee = remplacee;
    LEtat().refus.clear();
}

std::string BaseRemplacee()
{
    const std::lock_guard garde(LEtat().verrou);
    return LEtat().remplacee;
}

std::string RefusBaseCourante()
{
    const std::lock_guard garde(LEtat().verrou);
    return LEtat().refus;
}

void NoterRefus(const std::string& refus)
{
    const std::lock_guard garde(LEtat().verrou);
    LEtat().refus = refus;
}

std::string ReprendreAvis()
{
    const std::lock_guard garde(LEtat().verrou);
    return std::exchange(LEtat().avis, {});
}

void LaisserAvis(const std::string& avis)
{
    const std::lock_guard garde(LEtat().verrou);
    LEtat().avis = avis;
}
