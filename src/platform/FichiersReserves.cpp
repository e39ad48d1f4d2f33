#include "platform/FichiersReserves.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <mutex>
#include <set>
#include <string_view>

#include "platform/Chemins.h"

namespace {

struct Registre {
    std::mutex verrou;
    std::set<NumeroFichier> numeros;
};

Registre& LeRegistre()
{
    static Registre registre;
    return registre;
}

bool LireNumero(int dossier, const char* nom, int drapeaux, NumeroFichier& numero)
{
    struct statx etat {};
    if (statx(dossier, nom, drapeaux | AT_NO_AUTOMOUNT, STATX_INO, &etat) != 0)
        return false;
    numero = {uint64_t{etat.stx_dev_major} << 32 | etat.stx_dev_minor, etat.stx_ino};
    return true;
}

}  // namespace

bool LireNumeroFichier(const std::string& chemin, NumeroFichier& numero)
{
    return LireNumero(AT_FDCWD, chemin.c_str(), 0, numero);
}

bool FichierReserve::Prendre(const std::string& chemin)
{
    if (pris_ || !LireNumeroFichier(chemin, numero_))
        return false;
    const std::lock_guard garde(LeRegistre().verrou);
    pris_ = LeRegistre().numeros.insert(numero_).second;
    return pris_;
}

FichierReserve::~FichierReserve()
{
    if (!pris_)
        return;
    const std::lock_guard garde(LeRegistre().verrou);
    LeRegistre().numeros.erase(numero_);
}

bool EstReserve(const NumeroFichier& numero)
{
    const std::lock_guard garde(LeRegistre().verrou);
    return LeRegistre().numeros.contains(numero);
}

bool EntreeReservee(int dossier, const char* nom, const NumeroFichier& numero)
{
    if (EstReserve(numero))
        return true;
    const std::string_view texte(nom);
    for (const std::string_view suite : {"-journal", "-wal", "-shm"}) {
        NumeroFichier base;
        if (texte.size() > suite.size() && texte.ends_with(suite) &&
            LireNumero(dossier, std::string(texte.substr(0, texte.size() - suite.size())).c_str(), 0, base) &&
            EstReserve(base))
            return true;
    }
    NumeroFichier ici, programme;
    return texte.starts_with("temp.db") && LireNumero(dossier, "", AT_EMPTY_PATH, ici) &&
           LireNumeroFichier(DossierProgramme(), programme) && ici == programme;
}
