#include "audiocd/BaseLocaleCddb.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <functional>
#include <system_error>
#include <vector>

#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/OperationsFichiers.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Categories[] = {"blues", "country", "classical", "data", "folk",      "jazz",
                                           "misc",  "newage",  "reggae",    "rock", "soundtrack"};
constexpr std::string_view MarqueFin = "PLAYORDER=";

int Hexadecimal(std::string_view chiffres)
{
    int valeur = 0;
    std::from_chars(chiffres.data(), chiffres.data() + chiffres.size(), valeur, 16);
    return valeur;
}

std::vector<std::string> Noms(const std::string& dossier)
{
    std::vector<std::string> noms;
    std::error_code erreur;
    for (fs::directory_iterator entree(dossier, erreur), fin; !erreur && entree != fin; entree.increment(erreur))
        noms.push_back(entree->path().filename().string());
    std::sort(noms.begin(), noms.end());
    return noms;
}

// Real path of the category's folder; "" when there is none.
std::string DossierCategorie(const std::string& dossier, std::string_view categorie)
{
    const std::string voulue = Minuscules(categorie);
    for (const std::string& nom : Noms(dossier))
        if (Minuscules(nom) == voulue)
            return dossier + '/' + nom;
    return {};
}

// Hands over the lines of the entry, without their ends, up to the one that holds the mark. False without an entry.
// Any line that holds the identity begins it: kept, particularité 48.
bool ParcourirEntree(const std::string& chemin, std::string_view identite, std::string_view marqueFin,
                     const std::function<void(std::string_view)>& recevoir)
{
    const std::string texte = LireFichierTexte(chemin);
    std::string_view reste = texte;
    Detacher(reste, '\n');
    for (bool trouvee = false; !reste.empty();) {
        std::string_view ligne = Detacher(reste, '\n');
        if (ligne.ends_with('\r'))
            ligne.remove_suffix(1);
        if (!trouvee) {
            trouvee = ligne.find(identite) != ligne.npos;
            if (trouvee && reste.empty())
                return true;
            continue;
        }
        recevoir(ligne);
        if (reste.empty() || ligne.find(marqueFin) != ligne.npos)
            return true;
    }
    return false;
}

std::string CheminIndex(const std::string& dossier, std::string_view categorie, const std::string& fichier)
{
    return DossierCategorie(dossier, categorie) + '/' + fichier;
}

}  // namespace

std::string ChercherFichierIndex(const std::string& dossier, std::string_view categorie, std::string_view identite)
{
    const int voulue = Hexadecimal(identite.substr(0, 2));
    const std::string chemin = DossierCategorie(dossier, categorie);
    if (chemin.empty())
        return {};
    for (const std::string& nom : Noms(chemin)) {
        const bool index = nom.size() == 6 && Minuscules(nom).compare(2, 2, "to") == 0 && nom.find('.') == nom.npos;
        if (index && Hexadecimal(nom.substr(0, 2)) <= voulue && voulue <= Hexadecimal(nom.substr(4)))
            return nom;
    }
    return {};
}

std::string LireEntree(const std::string& dossier, std::string_view categorie, const std::string& fichier,
                       std::string_view identite, std::string_view marqueFin)
{
    std::string entree;
    const bool trouvee = ParcourirEntree(CheminIndex(dossier, categorie, fichier), identite, marqueFin,
                                         [&](std::string_view ligne) { entree.append(ligne).append("\r\n"); });
    return trouvee ? entree + '.' : std::string();
}

std::string LireTitreEntree(const std::string& dossier, std::string_view categorie, const std::string& fichier,
                            std::string_view identite, std::string_view marqueFin)
{
    constexpr std::string_view marqueTitre = "DTITLE=";
    std::string titre;
    ParcourirEntree(CheminIndex(dossier, categorie, fichier), identite, marqueFin, [&](std::string_view ligne) {
        if (ligne.find(marqueTitre) == ligne.npos)
            return;
        titre = std::string(categorie) + ' ' + std::string(identite) + ' ';
        titre += ligne.substr(std::min(marqueTitre.size(), ligne.size()));
    });
    return titre;
}

std::string LireFichierTexte(const std::string& chemin)
{
    std::string texte;
    if (FichierExiste(chemin))
        LireFichier(chemin, texte);
    return texte;
}

std::string ReponseRequeteLocale(const std::string& dossier, std::string_view identite)
{
    std::string liste;
    int nombre = 0;
    for (const std::string_view categorie : Categories) {
        const std::string fichier = ChercherFichierIndex(dossier, categorie, identite);
        if (fichier.empty())
            continue;
        const std::string titre = LireTitreEntree(dossier, categorie, fichier, identite, MarqueFin);
        if (titre.empty())
            continue;
        liste += titre + "\r\n";
        ++nombre;
    }
    if (nombre == 0)
        return "202 No match for disc ID " + std::string(identite) + ".";
    if (nombre == 1)
        return "200 " + liste;
    return "210 Found exact matches, list follows (until terminating `.')\r\n" + liste + ".";
}

std::string ReponseLectureLocale(const std::string& dossier, std::string_view categorie, std::string_view identite)
{
    const std::string fichier = ChercherFichierIndex(dossier, categorie, identite);
    const std::string entree =
        fichier.empty() ? std::string() : LireEntree(dossier, categorie, fichier, identite, MarqueFin);
    if (entree.empty())
        return {};
    return "210 " + std::string(categorie) + ' ' + std::string(identite) +
           " CD database entry follows (until terminating `.')\r\n" + entree;
}
