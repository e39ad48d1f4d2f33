#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Drives are letters. The letters of a user are symbolic links ("c:" -> "/") in the folder "lecteurs" of the
// program's configuration directory. A letter is given and taken in lower case, 'a' to 'z'.

enum TypeLecteur : uint32_t {
    LecteurInconnu = 0,
    LecteurInexistant = 1,
    LecteurAmovible = 2,
    LecteurFixe = 3,
    LecteurReseau = 4,
    LecteurOptique = 5,
    LecteurMemoire = 6,
};

// Bytes of a volume.
struct EspaceLecteur {
    uint64_t total = 0;
    uint64_t libre = 0;
    uint64_t disponible = 0;
};

struct VolumeLecteur {
    std::string nom;       // label, or the folder's own name for a folder given a letter
    uint32_t serie = 0;    // FAT or NTFS serial, else 32 bits folded from the UUID
    std::string systeme;   // "ext4", "vfat", "iso9660"...
    bool dossier = false;  // a folder given a letter: all but its name is its volume's
};

// Looks at the machine, gives letters to volumes and optical drives that have none yet, and returns all letters that
// lead somewhere, in alphabetical order.
std::vector<char> LettresMachine();

// A letter that was given, as the user sees it.
struct LettreDonnee {
    char lettre = 0;
    std::string cible;       // text of the folder or device that it leads to
    uint32_t type = 0;       // one of TypeLecteur
    bool presente = false;   // the drive is there now
    bool retirable = false;  // the next look at the machine would not give it back
};

// Looks at the machine like LettresMachine, and returns all letters, those that lead nowhere too.
std::vector<LettreDonnee> LettresDonnees();

// Kind of the drive, one of TypeLecteur; LecteurInexistant for a letter without a drive.
uint32_t TypeDuLecteur(char lettre);

// False, and nothing filled, when the letter leads to no mounted volume or folder. A volume that is there has at least
// one byte, even where the system does not know its size: no capacity at all is what an optical drive without a mounted
// volume has.
bool EspaceDuLecteur(char lettre, EspaceLecteur& espace);
bool VolumeDuLecteur(char lettre, VolumeLecteur& volume);

// True when the drive's file system is known and no FAT.
bool EstVolumeNonFat(char lettre);

// Gives the mounted volume its label where its file system lets a user do so; false otherwise.
bool NommerVolume(char lettre, const std::string& nom);

// Real folder at the top of the drive, without a trailing "/" unless it is "/"; empty when there is none.
std::string RacineDuLecteur(char lettre);

// Real path of the optical drive that the letter is; empty for a letter of any other kind.
std::string PeripheriqueOptique(char lettre);

// Points a letter at a folder, replacing what it led to. False when the link can't be written.
bool DonnerLettre(char lettre, const std::string& dossier);

// Makes a letter free again. False, and the letter stays, when it is not to be taken away.
bool RetirerLettre(char lettre);

// The letter that leads to exactly this folder, else a free letter newly given to it; 0 when no letter is left
// or the folder does not exist.
char LettreDuDossier(const std::string& dossier);
