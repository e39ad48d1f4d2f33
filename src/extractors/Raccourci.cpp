#include "extractors/Raccourci.h"

#include <array>
#include <cstdint>
#include <string_view>

#include <fmt/format.h>

#include "extractors/AjouterTexte.h"
#include "platform/LecteurOctets.h"

namespace {

// What follows the signature of four bytes.
struct EnteteRaccourci {
    std::array<uint8_t, 16> classe;
    std::array<uint8_t, 4> drapeaux;
    std::array<uint8_t, 4> attributs;
    std::array<uint8_t, 24> dates;
    std::array<uint8_t, 4> tailleCible;
    std::array<uint8_t, 20> affichage;  // icon, show mode, hot key, reserved
};
static_assert(sizeof(EnteteRaccourci) == 72);

// Places count from the start of the block; 0: there is none.
struct BlocEmplacement {
    uint32_t taille = 0;
    uint32_t tailleEntete = 0;
    uint32_t drapeaux = 0;
    uint32_t volume = 0;
    uint32_t cheminLocal = 0;
    uint32_t reseau = 0;
    uint32_t suiteChemin = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.PetitBoutiste(taille, tailleEntete, drapeaux, volume, cheminLocal, reseau, suiteChemin);
    }
};

// Appends the text that lies at a place of the block, up to its NUL.
bool AjouterChemin(const Fichier& fichier, uint64_t debutBloc, uint32_t place, std::string& cible)
{
    if (place == 0)
        return true;
    const uint64_t debut = debutBloc + place;
    const uint64_t fin = Chercher(fichier, std::string_view("\0", 1), debut);
    return fin != Introuvable && AjouterTexte(fichier, debut, fin, cible);
}

bool LireCible(const Fichier& fichier, std::string& cible)
{
    LecteurOctets lecteur(fichier);
    std::array<char, 4> signature;
    if (!lecteur.Lire(signature.data(), signature.size()))
        return false;
    if (signature[0] != 'L') {
        cible = "Not a link file";
        return true;
    }
    EnteteRaccourci entete;
    if (!lecteur.Lire(&entete, sizeof entete))
        return false;
    // Any flag of the first byte stands for the ID list, not its own bit alone (kept, particularité 30).
    uint16_t tailleListe = 0;
    if (entete.drapeaux[0] != 0 && !lecteur.PetitBoutiste(tailleListe))
        return false;
    lecteur.Sauter(tailleListe);

    const uint64_t debutBloc = lecteur.Position();
    BlocEmplacement bloc;
    return bloc.Lire(lecteur) && AjouterChemin(fichier, debutBloc, bloc.suiteChemin, cible) &&
           AjouterChemin(fichier, debutBloc, bloc.cheminLocal, cible);
}

}  // namespace

std::string ResolveWindowsShortcut(const FichierADecrire& source)
{
    std::string cible;
    if (LireCible(source.fichier, cible))
        return cible;
    return fmt::format("Error occured in function 'ResolveWindowsShortcut' for \"{}\".", source.chemin);
}

bool DecrireRaccourci(const FichierADecrire& source, std::string& resultat)
{
    resultat = "Raccourci: " + ResolveWindowsShortcut(source);
    return true;
}
