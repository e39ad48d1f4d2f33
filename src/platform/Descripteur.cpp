#include "platform/Descripteur.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

void Descripteur::Fermer()
{
    if (valeur_ >= 0)
        close(Ceder());
}

Descripteur OuvrirChemin(const std::string& chemin, int drapeaux)
{
    Descripteur direct(open(chemin.c_str(), drapeaux | O_CLOEXEC));
    if (direct.Ouvert() || errno != ENAMETOOLONG)
        return direct;

    Descripteur dossier(open(chemin.starts_with('/') ? "/" : ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    size_t debut = chemin.find_first_not_of('/');
    while (dossier.Ouvert() && debut != std::string::npos) {
        const size_t fin = chemin.find('/', debut);
        const std::string nom = chemin.substr(debut, fin == std::string::npos ? fin : fin - debut);
        const size_t suite = fin == std::string::npos ? fin : chemin.find_first_not_of('/', fin);
        if (suite == std::string::npos)
            return Descripteur(openat(dossier.Valeur(), nom.c_str(), drapeaux | O_CLOEXEC));
        dossier = Descripteur(openat(dossier.Valeur(), nom.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        debut = suite;
    }
    return {};
}

bool NomSimple(const std::string& nom)
{
    return !nom.empty() && nom != "." && nom != ".." && nom.find('/') == std::string::npos &&
           nom.find('\0') == std::string::npos;
}
