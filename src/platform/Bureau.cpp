#include "platform/Bureau.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <thread>

#include "platform/Chemins.h"
#include "platform/OperationsFichiers.h"

namespace {
// An absolute path is neither an option nor a web address to the opener.
std::string Absolu(const std::string& chemin)
{
    if (chemin.starts_with('/'))
        return chemin;
    std::error_code erreur;
    return std::filesystem::current_path(erreur).string() + "/" + chemin;
}
}  // namespace

bool OuvrirAvecBureau(const std::string& cheminReel)
{
    if (cheminReel.empty())
        return false;
    std::string programme = "xdg-open";
    std::string chemin = Absolu(cheminReel);
    char* const arguments[] = {programme.data(), chemin.data(), nullptr};

    posix_spawnattr_t attributs;
    posix_spawnattr_init(&attributs);
    posix_spawnattr_setflags(&attributs, POSIX_SPAWN_SETSID);
    pid_t processus = 0;
    const int erreur = posix_spawnp(&processus, programme.c_str(), nullptr, &attributs, arguments, environ);
    posix_spawnattr_destroy(&attributs);
    if (erreur != 0)
        return false;

    std::thread([processus] {
        while (waitpid(processus, nullptr, 0) < 0 && errno == EINTR) {
        }
    }).detach();
    return true;
}

bool PremiereInstance()
{
    static const std::string dossier = DossierConfiguration();
    static const VerrouFichier verrou(dossier + "/instance.lock", false);
    // Where nothing can be written no copy can be told from another: none is refused.
    return verrou.Pris() || access(dossier.c_str(), W_OK) != 0;
}
