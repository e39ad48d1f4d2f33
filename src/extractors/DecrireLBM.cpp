#include "extractors/DecrireLBM.h"

#include <fmt/format.h>

#include <array>

#include "commun/Texte.h"

bool DecrireLBM(const Fichier& fichier, std::string_view extension, BlocBmhd& bloc, std::string& resultat)
{
    constexpr uint64_t tailleEnteteForm = 8, tailleEnteteBloc = 8;  // name and length of a chunk

    LecteurOctets lecteur(fichier);
    std::array<char, 4> nom;
    if (!lecteur.Lire(nom.data(), nom.size()) || std::string_view(nom.data(), nom.size()) != "FORM")
        return false;
    // Wherever the letters lie: chunks are not followed (kept, particularité 37).
    const uint64_t place = Chercher(fichier, "BMHD", tailleEnteteForm);
    if (place != Introuvable) {
        lecteur.Aller(place + tailleEnteteBloc);
        bloc.Lire(lecteur);
    }
    resultat = fmt::format("{}x{}x{}x{}", bloc.largeur, bloc.hauteur, bloc.plans, Majuscules(extension));
    return true;
}
