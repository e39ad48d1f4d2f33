#include "extractors/DecrireLBM.h"

#include <fmt/format.h>

#include <array>
#include <cstdint>

#include "commun/Texte.h"
#include "platform/LecteurOctets.h"

namespace {

constexpr uint64_t TailleEnteteForm = 8, TailleEnteteBloc = 8;  // name and length of the chunk

// The chunk BMHD of an IFF ILBM picture up to what is described; big-endian.
struct BlocBmhd {
    uint16_t largeur = 0, hauteur = 0;
    uint16_t x = 0, y = 0;
    uint8_t plans = 0;

    bool Lire(LecteurOctets& lecteur)
    {
        return lecteur.GrosBoutiste(largeur) && lecteur.GrosBoutiste(hauteur) && lecteur.GrosBoutiste(x) &&
               lecteur.GrosBoutiste(y) && lecteur.GrosBoutiste(plans);
    }
};

BlocBmhd bloc;  // kept from file to file, as meant: fields that a file lacks stay those of the one before it

}  // namespace

bool DecrireLBM(const Fichier& fichier, std::string_view extension, std::string& resultat)
{
    LecteurOctets lecteur(fichier);
    std::array<char, 4> nom;
    if (!lecteur.Lire(nom.data(), nom.size()) || std::string_view(nom.data(), nom.size()) != "FORM")
        return false;
    // Wherever the letters lie: chunks are not followed.
    const uint64_t place = Chercher(fichier, "BMHD", TailleEnteteForm);
    if (place != Introuvable) {
        lecteur.Aller(place + TailleEnteteBloc);
        bloc.Lire(lecteur);
    }
    resultat = fmt::format("{}x{}x{}x{}", bloc.largeur, bloc.hauteur, bloc.plans, Majuscules(extension));
    return true;
}
