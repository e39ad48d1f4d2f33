#include "extractors/DecrireProjet.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "extractors/AjouterTexte.h"
#include "platform/LecteurOctets.h"

namespace {

struct Champ {
    std::string_view cle, libelle;
};

constexpr std::array<Champ, 7> Champs = {{
    {"Title=", "Titre: "},
    {"VersionComments=", "Commentaire: "},
    {"VersionCompanyName=", "Compagnie: "},
    {"VersionFileDescription=", "Description: "},
    {"VersionLegalCopyright=", "Copyright: "},
    {"VersionLegalTrademarks=", "Version légale: "},
    {"VersionProductName=", "Produit: "},
}};

using Valeurs = std::array<std::string_view, Champs.size()>;

// Takes the values that a line gives; one made of quotes and blanks only leaves what an earlier line gave.
void LireLigne(std::string_view ligne, Valeurs& valeurs)
{
    for (size_t rang = 0; rang < Champs.size(); ++rang) {
        // The key counts anywhere in the line, and the first character behind it is taken for a quote unseen (kept,
        // particularité 31).
        const size_t place = ligne.find(Champs[rang].cle);
        if (place == std::string_view::npos)
            continue;
        const std::string_view valeur = ligne.substr(std::min(place + Champs[rang].cle.size() + 1, ligne.size()));
        if (valeur.find_first_not_of("\" ") != std::string_view::npos)
            valeurs[rang] = valeur;
    }
}

}  // namespace

bool DecrireProjet(const Fichier& fichier, std::string& resultat)
{
    if (fichier.Taille() > DescriptionMaximale)
        return false;
    const std::string octets = LecteurOctets(fichier).Octets(fichier.Taille());
    std::string_view reste = octets;
    reste = reste.substr(0, reste.find('\x1A'));  // ends a text file

    Valeurs valeurs;
    while (!reste.empty()) {
        const size_t fin = std::min(reste.find_first_of("\r\n"), reste.size());
        LireLigne(reste.substr(0, fin), valeurs);
        reste.remove_prefix(std::min(fin + 1, reste.size()));
    }

    std::string texte;
    for (size_t rang = 0; rang < Champs.size(); ++rang) {
        std::string valeur(valeurs[rang]);
        std::erase(valeur, '"');
        if (valeur.empty())
            continue;
        texte += Champs[rang].libelle;
        if (!AjouterTexte(valeur, texte))
            return false;
        texte += "\r\n";
    }
    if (texte.empty())
        return false;
    resultat = std::move(texte);
    return true;
}
