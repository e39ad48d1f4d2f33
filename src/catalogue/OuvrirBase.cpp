#include "catalogue/OuvrirBase.h"

#include "store/BaseCourante.h"

namespace {

const char* Phrase(RefusBase refus)
{
    switch (refus) {
        case RefusBase::Aucun: break;
        case RefusBase::Absente: return "La base est introuvable : ";
        case RefusBase::Etrangere: return "Ce n'est pas une base de Velourne : ";
        case RefusBase::Occupee: return "La base est utilisée par un autre programme : ";
        case RefusBase::LectureSeule: return "La base est en lecture seule et ne peut pas être ouverte : ";
        case RefusBase::Illisible: return "La base ne peut pas être lue : ";
    }
    return nullptr;
}

}  // namespace

Base OuvrirBase(const std::stop_token& arret)
{
    const std::string chemin = BaseCourante();
    RefusBase refus = RefusBase::Aucun;
    Base base = OpenDatabase(chemin, arret, &refus);
    const char* phrase = Phrase(refus);
    NoterRefus(phrase ? phrase + chemin : std::string());
    return base;
}
