#include "store/DrapeauxRecharge.h"

#include <atomic>

namespace {

std::atomic<bool> arbre{false};
std::atomic<bool> icones{false};

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
