#pragma once

#include <memory>
#include <string>

#include "audiocd/CataloguerCDAudio.h"

// The run over an audio disc, as the wizard conducts it.
class CourseCDAudio : public CourseMedia {
public:
    // `haut`, `gauche`: where the lists of discs open, pixels of the screen.
    CourseCDAudio(std::string base, int64_t media, char lettre, long haut, long gauche, MachineCD& machine,
                  std::unique_ptr<ChoixCddb> choix);

    FinExtraction Executer() override;
    Avancement Lire() const override { return suivi_.Lire(); }

private:
    const DemandeCDAudio demande_;
    MachineCD& machine_;
    const std::unique_ptr<ChoixCddb> choix_;
    SuiviCDAudio suivi_;
};
