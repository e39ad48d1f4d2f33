#include "platform/Fichier.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

#include "platform/Descripteur.h"
#include "platform/FichiersReserves.h"

Fichier::Fichier(int descripteur)
{
    Descripteur garde(descripteur);
    struct stat etat {};
    if (!garde.Ouvert() || fstat(garde.Valeur(), &etat) != 0 || !S_ISREG(etat.st_mode))
        return;
    taille_ = static_cast<uint64_t>(etat.st_size);
    descripteur_ = garde.Ceder();
}

Fichier::Fichier(const std::string& cheminReel)
{
    // The look before opening keeps devices from being woken; the one after it is the one that counts.
    const Descripteur entree = OuvrirChemin(cheminReel, O_PATH);
    struct stat etat {};
    if (!entree.Ouvert() || fstat(entree.Valeur(), &etat) != 0 || !S_ISREG(etat.st_mode))
        return;
    if (EstReserve({uint64_t{major(etat.st_dev)} << 32 | minor(etat.st_dev), etat.st_ino}))
        return;
    *this = Fichier(OuvrirChemin(cheminReel, O_RDONLY | O_NONBLOCK | O_NOCTTY).Ceder());
}

Fichier::~Fichier()
{
    if (descripteur_ >= 0)
        close(descripteur_);
}

Fichier::Fichier(Fichier&& autre) noexcept
{
    *this = std::move(autre);
}

Fichier& Fichier::operator=(Fichier&& autre) noexcept
{
    std::swap(descripteur_, autre.descripteur_);
    std::swap(taille_, autre.taille_);
    std::swap(debutLu_, autre.debutLu_);
    std::swap(debut_, autre.debut_);
    return *this;
}

size_t Fichier::Lire(uint64_t position, void* tampon, size_t nombre) const
{
    char* const cible = static_cast<char*>(tampon);
    constexpr size_t coupDOeil = 4;
    if (position >= PremierBloc || nombre > PremierBloc || (nombre <= coupDOeil && !debutLu_))
        return LireDuDisque(position, cible, nombre);
    if (!debutLu_) {
        debut_.resize(static_cast<size_t>(std::min<uint64_t>(PremierBloc, taille_)));
        debut_.resize(LireDuDisque(0, debut_.data(), debut_.size()));
        debutLu_ = true;
    }
    const size_t connus = position < debut_.size() ? debut_.copy(cible, nombre, static_cast<size_t>(position)) : 0;
    if (connus == nombre || position + connus >= taille_)
        return connus;
    return connus + LireDuDisque(position + connus, cible + connus, nombre - connus);
}

size_t Fichier::LireDuDisque(uint64_t position, char* tampon, size_t nombre) const
{
    size_t lus = 0;
    while (descripteur_ >= 0 && lus < nombre) {
        if (position > static_cast<uint64_t>(std::numeric_limits<off_t>::max()) - lus)
            break;
        const ssize_t venus = pread(descripteur_, tampon + lus, nombre - lus, static_cast<off_t>(position + lus));
        if (venus < 0 && errno == EINTR)
            continue;
        if (venus <= 0)
            break;
        lus += static_cast<size_t>(venus);
    }
    return lus;
}
