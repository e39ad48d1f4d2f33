#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/Fichier.h"
#include "platform/FichiersReserves.h"

// Bits of the attributes of an entry, as the catalogue's attribute letters number them.
enum AttributFichier : uint32_t {
    AttributLectureSeule = 1U << 0,
    AttributCache = 1U << 1,
    AttributSysteme = 1U << 2,
    AttributDossier = 1U << 4,
    AttributArchive = 1U << 5,
    AttributLien = 1U << 10,
    AttributCompresse = 1U << 11,
    AttributChiffre = 1U << 14,
};

struct EntreeDossier {
    std::string nom;         // UTF-8 text
    std::string nomReel;     // bytes on the volume
    uint32_t attributs = 0;  // AttributFichier
    uint64_t taille = 0;     // bytes; 0 for all but ordinary files and links
    int64_t creation = 0;    // 100 ns units since 1 January 1601 UTC; 0 when unknown
    bool ordinaire = false;  // an ordinary file: the only kind that may be opened
    NumeroFichier numero;    // its own, for files
};

// A walk through the directories of one drive, by descriptors, so that neither the length of a path nor the depth of
// nesting is limited. It stays on the drive's volume and follows no symbolic link.
class Parcours {
public:
    explicit Parcours(char lettre);  // stands at the top of the drive
    ~Parcours();
    Parcours(const Parcours&) = delete;
    Parcours& operator=(const Parcours&) = delete;

    // Hands each entry of the current directory over, "." and ".." left out, in the order of their names without regard
    // to case (NomsDossier), until the function returns false. False when the directory can't be read.
    bool Lister(const std::function<bool(const EntreeDossier&)>& recevoir);

    // Goes down into a directory of the current one. False, the place unchanged, when it is gone, unreadable, or the
    // top of another volume.
    bool Entrer(const std::string& nomReel);

    // Goes back up to where Entrer was called. A directory that has gone meanwhile then lists nothing.
    void Remonter();

    // Opens an ordinary file that Lister just gave; a closed Fichier for anything else, and for what belongs to an open
    // base.
    Fichier Ouvrir(const EntreeDossier& entree) const;

private:
    struct Etat;
    std::unique_ptr<Etat> etat_;
};
