#include "extractors/AjouterTexte.h"

#include <algorithm>

#include "commun/Texte.h"
#include "platform/LecteurOctets.h"

namespace {

// Each byte becomes at least one byte of text.
bool Tient(uint64_t octets, const std::string& texte)
{
    return texte.size() <= DescriptionMaximale && octets <= DescriptionMaximale - texte.size();
}

}  // namespace

bool AjouterTexte(std::string_view octets, std::string& texte)
{
    if (!Tient(octets.size(), texte))
        return false;
    const std::string ajout = AnsiEnTexte(octets);
    if (!Tient(ajout.size(), texte))
        return false;
    texte += ajout;
    return true;
}

bool AjouterTexte(const Fichier& fichier, uint64_t debut, uint64_t fin, std::string& texte)
{
    constexpr uint64_t tailleBloc = 64 * 1024;
    if (debut > fin || fin > fichier.Taille() || !Tient(fin - debut, texte))
        return false;
    texte.reserve(texte.size() + static_cast<size_t>(fin - debut));
    LecteurOctets lecteur(fichier, debut);
    while (lecteur.Position() < fin) {
        const std::string bloc = lecteur.Octets(std::min(tailleBloc, fin - lecteur.Position()));
        if (bloc.empty() || !AjouterTexte(bloc, texte))
            return false;
    }
    return true;
}
