#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// What the kernel's list of mounts says, and which mounts get a drive letter. Texts in, records out: no look at the
// machine here.

// A line of /proc/self/mountinfo.
struct Montage {
    uint64_t numero = 0;       // of the mount
    std::string peripherique;  // "8:1"
    std::string racine;        // directory of the volume that is mounted
    std::string point;         // where it is mounted
    std::string systeme;       // "ext4", "fuse.sshfs"...
    std::string source;        // "/dev/sda1", "//serveur/partage"...
};

// A letter: where its link leads, and the volume it was given to; no volume when the user pointed it at a folder.
struct Lettre {
    std::string cible;
    std::string volume;
    bool operator==(const Lettre&) const = default;
};

// Something that may get a letter.
struct Volume {
    std::string cible;     // mount point, or device of an optical drive
    std::string identite;  // the same whenever and wherever the volume is mounted; empty for a device
};

// Lines that are not understood are left out.
std::vector<Montage> LireMontages(std::string_view mountinfo);

bool MontageReseau(const Montage& montage);
bool MontageMemoire(const Montage& montage);

// The mounts that are drives of their own: one for each real volume, mounted on a directory. Mounts hidden by a later
// one at the same point are left out.
std::vector<Montage> MontagesALettrer(const std::vector<Montage>& montages,
                                      const std::function<bool(const std::string&)>& estDossier);

// Letters after a look at the machine: known letters follow their volume to where it is mounted now, "c" is the root,
// diskettes get "a" and "b", what has no letter yet gets the next free one from "d" on.
std::map<char, Lettre> ChoisirLettres(std::map<char, Lettre> connues, const std::vector<Volume>& volumes,
                                      const std::vector<std::string>& disquettes);

// 32-bit serial number: the one of FAT and NTFS volumes, else the groups of 4 bytes of the UUID folded by XOR.
uint32_t SerieDepuisUuid(std::string_view systeme, std::string_view uuid);

// Whether the name that the kernel or a volume gives stands for FAT12, FAT16 or FAT32. exFAT is none of them.
bool EstSystemeFat(const std::string& systeme);
