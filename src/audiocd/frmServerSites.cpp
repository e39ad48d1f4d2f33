#include "audiocd/frmServerSites.h"

#include "audiocd/ChoixCddb.h"
#include "audiocd/ConfigurationCddb.h"
#include "fenetres/TextesQt.h"
#include "store/Reglages.h"

frmServerSites::frmServerSites(const std::vector<std::string>& rangees, QWidget* parent)
    : FenetreChoix("Liste des serveurs", "Sélectionner parmis les serveurs ...", rangees, parent), rangees_(rangees)
{
    AjouterLigne(" Serveur actuel : " + EnQString(GetSetting(SectionFreedb, "Serveur", ServeurCddbParDefaut)));
}

void frmServerSites::Valider()
{
    accept();
    if (const int choisi = Choisi(); choisi > 0)
        EnregistrerServeur(rangees_[static_cast<size_t>(choisi) - 1]);
}
