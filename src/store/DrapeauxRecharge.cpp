#include "store/DrapeauxRecharge.h"

#include <atomic>

namespace {

std::atomic<bool> arbre{false};
std::atomic<bool> icones{false};
std::atomic<int64_t> media{0};

}  // namespace

bool ArbreARecharger()
{
    return arbre;
}

void FixerArbreARecharger(bool recharger)
{
    arbre = recharger;
}

bool IconesARecharger()
{
    return icones;
}

void FixerIconesARecharger(bool recharger)
{
    icones = recharger;
}

int64_t ReprendreMediaAMontrer()
{
    return media.exchange(0);
}

void FixerMediaAMontrer(int64_t numero)
{
    media = numero;
}
