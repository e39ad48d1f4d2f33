#include "extractors/LireVersionFichier.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "commun/Formes.h"
#include "extractors/AjouterTexte.h"
#include "extractors/RessourceVersion.h"

namespace {

constexpr char FinTexte = '\x01';  // stands where a text of the block ended

// One line of the description. The characters that end a value are length words of the next entry as they usually
// come; neither they nor the step back from the next key are derived from the block (kept, particularité 29).
struct Rubrique {
    std::string_view libelle, cle;
    std::string_view arrets;  // each cuts the value, in this order
    size_t recul;             // from the next line's key, when the value runs into it
    std::string_view otes;    // removed from the value, beside FinTexte
};

constexpr Rubrique Rubriques[] = {
    {"Nom Compagnie   : ", "CompanyName", "\x1D\x16", 3, ""},
    {"Description     : ", "FileDescription", "\x1D", 1, "\x06\x16"},
    {"Version Fichier : ", "FileVersion", "\x1D", 3, ""},
    {"Nom Interne     : ", "InternalName", "\x1D", 3, ""},
    {"Copyright légal : ", "LegalCopyright", "\x1E", 3, ""},
    {"Nom Original    : ", "OriginalFilename", "\x1D", 1, ""},
    {"Nom Produit     : ", "ProductName", "\x1D", 3, ""},
    {"Version Produit : ", "ProductVersion", "\x1D\x1B", 3, "\x0B"},
    {"Commentaire     : ", "Comments", "\x1D", 0, ""},
};
constexpr const Rubrique& Compagnie = Rubriques[0];
constexpr const Rubrique& Commentaire = *(std::end(Rubriques) - 1);

// Pairs of NULs become one FinTexte, other NULs go: UTF-16 becomes plain text. In place, as a block may be large.
void RendreSimple(std::string& bloc)
{
    size_t fin = 0;
    for (size_t i = 0; i < bloc.size(); ++i) {
        if (bloc[i] != '\0') {
            bloc[fin++] = bloc[i];
        } else if (i + 1 < bloc.size() && bloc[i + 1] == '\0') {
            bloc[fin++] = FinTexte;
            ++i;
        }
    }
    bloc.resize(fin);
}

std::string_view DebutA(std::string_view texte, size_t place)
{
    return texte.substr(std::min(place, texte.size()));
}

// Takes the value of a key that lies at `place`. False when it runs into the next key with no room to step back.
bool Delimiter(std::string_view texte, const Rubrique& rubrique, size_t place, std::string_view& valeur)
{
    size_t debut = place + rubrique.cle.size();
    size_t recherche = 2;  // a FinTexte right behind most keys does not count
    if (&rubrique == &Compagnie || &rubrique == &Commentaire) {
        recherche = 0;
        if (&rubrique == &Commentaire)
            ++debut;
        else if (DebutA(texte, debut).starts_with("\x01\x01"))
            debut += 2;
    }
    valeur = DebutA(texte, debut);
    const size_t fin = valeur.find(FinTexte, recherche);
    if (fin != std::string_view::npos) {
        valeur = valeur.substr(0, fin);
        for (const char arret : rubrique.arrets)
            valeur = valeur.substr(0, valeur.find(arret));
    }
    if (&rubrique == &Commentaire)
        return true;
    const size_t suivante = valeur.find((&rubrique + 1)->cle);
    if (suivante == std::string_view::npos)
        return true;
    if (suivante + 1 < rubrique.recul)
        return false;
    valeur = valeur.substr(0, suivante + 1 - rubrique.recul);
    return true;
}

std::string Epurer(std::string_view valeur, std::string_view otes)
{
    std::string propre;
    for (size_t i = 0; i < valeur.size(); ++i) {
        if (valeur.substr(i, 2) == "\r\n") {
            propre += '-';
            ++i;
        } else if (valeur[i] != FinTexte && otes.find(valeur[i]) == std::string_view::npos) {
            propre += valeur[i];
        }
    }
    return propre;
}

}  // namespace

bool LireVersionFichier(const Fichier& fichier, std::string& resultat)
{
    std::string texte;
    if (!LireRessourceVersion(fichier, texte))
        return false;
    RendreSimple(texte);
    std::string lignes;
    for (const Rubrique& rubrique : Rubriques) {
        const size_t place = texte.find(rubrique.cle);
        if (place == std::string::npos)
            continue;
        std::string_view delimitee;
        if (!Delimiter(texte, rubrique, place, delimitee))
            break;  // the lines made so far stay
        const std::string valeur = Epurer(delimitee, rubrique.otes);
        if (&rubrique == &Commentaire && Trim(valeur).size() <= 2)
            continue;
        lignes += rubrique.libelle;
        if (!AjouterTexte(valeur, lignes))
            return false;
        lignes += "\r\n";
    }
    if (lignes.empty())
        return false;
    resultat = std::move(lignes);
    return true;
}
