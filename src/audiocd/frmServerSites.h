#pragma once

#include "audiocd/FenetreChoix.h"

// The choice of a CDDB server; OK keeps it in the settings.
class frmServerSites : public FenetreChoix {
public:
    explicit frmServerSites(const std::vector<std::string>& rangees, QWidget* parent = nullptr);

protected:
    void Valider() override;

private:
    std::vector<std::string> rangees_;
};
