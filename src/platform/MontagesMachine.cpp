#include "platform/MontagesMachine.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Descripteur.h"

namespace {
// Files of /proc have no size: read until nothing comes.
std::string LireJusquAuBout(const char* chemin)
{
    const Descripteur fichier(open(chemin, O_RDONLY | O_CLOEXEC));
    std::string contenu;
    char bloc[16 * 1024];
    ssize_t lus = 0;
    while (fichier.Ouvert() && (lus = read(fichier.Valeur(), bloc, sizeof bloc)) > 0)
        contenu.append(bloc, static_cast<size_t>(lus));
    return contenu;
}

bool EstDessous(const std::string& dossier, const std::string& point)
{
    return point == "/" || dossier == point || dossier.starts_with(point + "/");
}
}  // namespace

std::vector<Montage> MontagesMachine()
{
    return LireMontages(LireJusquAuBout("/proc/self/mountinfo"));
}

bool MontageDuDossier(const std::string& dossier, Montage& montage)
{
    struct statx etat {};
    if (statx(AT_FDCWD, dossier.c_str(), AT_STATX_DONT_SYNC, STATX_MNT_ID, &etat) != 0)
        return false;
    const bool numeroConnu = (etat.stx_mask & STATX_MNT_ID) != 0;
    bool trouve = false;
    for (Montage& autre : MontagesMachine()) {
        const bool convient =
            numeroConnu ? autre.numero == etat.stx_mnt_id
                        : EstDessous(dossier, autre.point) && (!trouve || autre.point.size() >= montage.point.size());
        if (!convient)
            continue;
        montage = std::move(autre);
        trouve = true;
    }
    return trouve;
}
