#include "catalogue/OuvrirBase.h"

#include "store/CycleBase.h"

Base OuvrirBase(const std::stop_token& arret)
{
    return OpenDatabase(BaseCourante(), arret);
}
