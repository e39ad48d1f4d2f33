#include "outils/Environnement.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/Chemins.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace fs = std::filesystem;

Environnement::Environnement()
{
    std::string modele = (fs::temp_directory_path() / "velourne-test-XXXXXX").string();
    racine_ = mkdtemp(modele.data());
    programme_ = racine_ / "programme";
    travail_ = racine_ / "travail";
    fs::create_directories(programme_);
    fs::create_directories(travail_);
    setenv("XDG_CONFIG_HOME", (racine_ / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (racine_ / "data").c_str(), 1);
    setenv("XDG_CACHE_HOME", (racine_ / "cache").c_str(), 1);
    FixerDossierProgramme(programme_.string());
    OublierReglages();
    FixerBaseCourante("");
    FixerArbreARecharger(false);
}

Environnement::~Environnement()
{
    std::error_code erreur;
    fs::permissions(racine_, fs::perms::owner_all, erreur);
    fs::remove_all(racine_, erreur);
}

void Environnement::Executer(const std::string& commande) const
{
    const std::string appel = "cd '" + travail_.string() + "' && (" + commande + ") >/dev/null 2>&1";
    ASSERT_EQ(std::system(appel.c_str()), 0) << commande;
}

void Ecrire(const fs::path& chemin, std::string_view contenu)
{
    fs::create_directories(chemin.parent_path());
    std::ofstream(chemin, std::ios::binary) << contenu;
}

std::string Contenu(const fs::path& chemin)
{
    std::ifstream flux(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(flux), {}};
}
