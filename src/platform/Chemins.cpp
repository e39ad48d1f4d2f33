#include "platform/Chemins.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "commun/Texte.h"
#include "platform/Descripteur.h"
#include "platform/Lecteurs.h"

namespace {
std::string DossierPersonnel()
{
    if (const char* home = getenv("HOME"); home && *home == '/')
        return home;
    const passwd* compte = getpwuid(getuid());
    return compte && compte->pw_dir ? compte->pw_dir : "/";
}

// The desktop's base directory rules: a relative value counts as unset.
std::string DossierDeBase(const char* variable, const char* defaut)
{
    std::string base = DossierPersonnel() + defaut;
    if (const char* valeur = getenv(variable); valeur && *valeur == '/')
        base = valeur;
    while (base.size() > 1 && base.ends_with('/'))
        base.pop_back();
    const std::string dossier = base + "/velourne";
    std::error_code erreur;
    std::filesystem::create_directories(base, erreur);
    mkdir(dossier.c_str(), 0700);
    return dossier;
}

std::string DossierProgrammeInitial()
{
    std::error_code erreur;
    const std::string executable = std::filesystem::read_symlink("/proc/self/exe", erreur).parent_path().string();
    if (!executable.empty() && access(executable.c_str(), W_OK) == 0)
        return executable;
    return DossierDeBase("XDG_DATA_HOME", "/.local/share");
}

std::string& DossierProgrammeCourant()
{
    static std::string dossier;
    return dossier;
}

// One look-up below the top of a drive. Where a directory exists in both spellings, the second one is kept as a place
// to resume from, so that either may lead to the entry.
class Recherche {
public:
    Recherche(std::string racine, const std::vector<std::string>& noms) : noms_(noms)
    {
        Descripteur sommet = OuvrirChemin(racine, O_PATH | O_DIRECTORY);
        if (racine == "/")
            racine.clear();
        if (sommet.Ouvert())
            aFaire_.push_back({0, std::move(sommet), std::move(racine)});
    }

    std::string Resoudre()
    {
        while (!aFaire_.empty()) {
            Place place = std::move(aFaire_.back());
            aFaire_.pop_back();
            if (place.rang == noms_.size())
                return place.chemin.empty() ? "/" : place.chemin;
            if (!NomSimple(noms_[place.rang]))
                return {};
            std::string ansi;
            if (TexteEnAnsi(noms_[place.rang], ansi) && ansi != noms_[place.rang])
                Essayer(place, ansi);
            Essayer(place, noms_[place.rang]);
        }
        return {};
    }

private:
    struct Place {
        size_t rang;
        Descripteur dossier;
        std::string chemin;
    };

    void Essayer(const Place& place, const std::string& nom)
    {
        const bool dernier = place.rang + 1 == noms_.size();
        const int drapeaux = O_PATH | O_NOFOLLOW | O_CLOEXEC | (dernier ? 0 : O_DIRECTORY);
        Descripteur suivant(openat(place.dossier.Valeur(), nom.c_str(), drapeaux));
        if (suivant.Ouvert())
            aFaire_.push_back({place.rang + 1, std::move(suivant), place.chemin + "/" + nom});
    }

    const std::vector<std::string>& noms_;
    std::vector<Place> aFaire_;
};
}  // namespace

const std::string& DossierProgramme()
{
    std::string& dossier = DossierProgrammeCourant();
    if (dossier.empty())
        dossier = DossierProgrammeInitial();
    return dossier;
}

void FixerDossierProgramme(const std::string& dossier)
{
    DossierProgrammeCourant() = dossier;
}

std::string DossierConfiguration()
{
    return DossierDeBase("XDG_CONFIG_HOME", "/.config");
}

std::string DossierCache()
{
    return DossierDeBase("XDG_CACHE_HOME", "/.cache");
}

std::string CheminReel(char lettre, const std::vector<std::string>& noms)
{
    const std::string racine = RacineDuLecteur(lettre);
    return racine.empty() ? std::string() : Recherche(racine, noms).Resoudre();
}

std::string CheminReel(std::string_view chemin)
{
    if (chemin.size() < 2 || chemin[1] != ':')
        return {};
    std::vector<std::string> noms;
    for (size_t debut = 2; debut < chemin.size();) {
        const size_t fin = std::min(chemin.find('\\', debut), chemin.size());
        if (fin > debut)
            noms.emplace_back(chemin.substr(debut, fin - debut));
        debut = fin + 1;
    }
    return CheminReel(chemin[0], noms);
}
