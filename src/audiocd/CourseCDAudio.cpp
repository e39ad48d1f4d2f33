#include "audiocd/CourseCDAudio.h"

#include <utility>

CourseCDAudio::CourseCDAudio(std::string base, int64_t media, char lettre, long haut, long gauche, MachineCD& machine,
                             std::unique_ptr<ChoixCddb> choix)
    : CourseMedia(std::move(base), media),
      demande_{base_, media, lettre, haut, gauche, {}},
      machine_(machine),
      choix_(std::move(choix))
{
}

FinExtraction CourseCDAudio::Executer()
{
    return CataloguerCDAudio(demande_, {machine_, *choix_}, suivi_, arret_);
}
