#include "extractors/DecrireHTML.h"

#include <string_view>
#include <utility>

#include "extractors/AjouterTexte.h"
#include "platform/LecteurOctets.h"

bool DecrireHTML(const Fichier& fichier, std::string& resultat)
{
    constexpr std::string_view ouvrante = "<title>", fermante = "</title>";
    const uint64_t place = Chercher(fichier, ouvrante, 0, UINT64_MAX, Casse::Ignoree);
    if (place == Introuvable)
        return false;
    const uint64_t debut = place + ouvrante.size();
    const uint64_t fin = Chercher(fichier, fermante, debut, UINT64_MAX, Casse::Ignoree);
    std::string texte = "Titre: ";
    if (fin == Introuvable || !AjouterTexte(fichier, debut, fin, texte))
        return false;
    resultat = std::move(texte);
    return true;
}
