#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "catalogue/Descriptions.h"

// What is known of one entry of the browser, and the category of its media. Each operation opens the current base for
// itself and gives nothing when that fails. Numbers of media are decimal texts.

enum class GenrePropriete { Media, Repertoire, Fichier };  // in the order of the tabs
inline constexpr int NombreGenres = 3;

struct SujetPropriete {
    GenrePropriete genre = GenrePropriete::Media;
    std::string media;
    std::string code;  // of a directory; number of the row for a file
};
// From the key of a tree node or a list item; `fichier` tells of an item that is no directory.
SujetPropriete SujetDeCle(std::string_view cle, bool fichier);

// Fields of a media in the order of the window's labels: Label, NSerie, Standard, Total, Occupe, Libre, Identifiant.
inline constexpr int NombreTextesMedia = 7;
struct ProprietesMedia {
    std::array<std::string, NombreTextesMedia> textes;
    std::string type;   // of its drive, in words
    std::string icone;  // bytes of its own icon; empty without one
};
ProprietesMedia LireProprietesMedia(std::string_view media);

struct ProprietesEntree {
    std::string nom;  // the alias, where there is one
    std::string heure, date, taille, attribut;
    Description description;
};
ProprietesEntree LireProprietesEntree(const SujetPropriete& sujet);

std::string VerifierCategorie(std::string_view media);
// At most 50 characters; an empty one becomes a blank. False when nothing was written.
bool ValiderCategorie(std::string_view media, std::string_view categorie);
// The same, for who shows the media in the colour of its category: the colours that these have. None when nothing was
// written.
struct CouleursMedia {
    uint32_t avant = 0, apres = 0;
};
std::optional<CouleursMedia> ChangerCategorie(std::string_view media, std::string_view categorie);

// The tab last used, and its keeping.
int LireOngletPropriete();
void EcrireOngletPropriete(int onglet);
