#include "platform/Montages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

#include "commun/Texte.h"

namespace {
// A word up to the next blank, its octal escapes ("\040") decoded.
std::string PrendreMot(std::string_view& ligne)
{
    const size_t fin = std::min(ligne.find(' '), ligne.size());
    const std::string_view brut = ligne.substr(0, fin);
    ligne.remove_prefix(std::min(fin + 1, ligne.size()));

    const auto octal = [&](size_t rang) { return rang < brut.size() && brut[rang] >= '0' && brut[rang] <= '7'; };
    std::string mot;
    for (size_t rang = 0; rang < brut.size(); ++rang) {
        if (brut[rang] == '\\' && octal(rang + 1) && octal(rang + 2) && octal(rang + 3)) {
            mot += static_cast<char>((brut[rang + 1] - '0') * 64 + (brut[rang + 2] - '0') * 8 + brut[rang + 3] - '0');
            rang += 3;
        } else {
            mot += brut[rang];
        }
    }
    return mot;
}

// "36 35 98:0 /racine /point rw,noatime master:1 - ext4 /dev/sda1 rw": any number of optional fields before the "-".
bool LireMontage(std::string_view ligne, Montage& montage)
{
    const std::string numero = PrendreMot(ligne);
    if (std::from_chars(numero.data(), numero.data() + numero.size(), montage.numero).ec != std::errc())
        return false;
    PrendreMot(ligne);
    montage.peripherique = PrendreMot(ligne);
    montage.racine = PrendreMot(ligne);
    montage.point = PrendreMot(ligne);
    while (!ligne.empty() && PrendreMot(ligne) != "-") {
    }
    montage.systeme = PrendreMot(ligne);
    montage.source = PrendreMot(ligne);
    return !montage.systeme.empty() && montage.point.starts_with('/');
}

template <size_t N>
bool Parmi(const std::array<std::string_view, N>& noms, std::string_view nom)
{
    return std::find(noms.begin(), noms.end(), nom) != noms.end();
}

bool Sous(std::string_view chemin, std::string_view dossier)
{
    return chemin == dossier ||
           (chemin.size() > dossier.size() && chemin.starts_with(dossier) && chemin[dossier.size()] == '/');
}

template <size_t N>
bool SousUnDe(const std::array<std::string_view, N>& dossiers, std::string_view chemin)
{
    return std::any_of(dossiers.begin(), dossiers.end(), [&](auto dossier) { return Sous(chemin, dossier); });
}

constexpr std::array<std::string_view, 3> dossiersUtilisateur = {"/media", "/mnt", "/run/media"};
constexpr std::array<std::string_view, 10> dossiersInternes = {"/proc",
                                                               "/sys",
                                                               "/dev",
                                                               "/snap",
                                                               "/var/snap",
                                                               "/var/lib/docker",
                                                               "/var/lib/snapd",
                                                               "/run/snapd/ns",
                                                               "/var/lib/containers",
                                                               "/var/lib/containerd"};

// Volumes whose source is no device file.
bool VolumeSansFichier(const Montage& montage)
{
    constexpr std::array<std::string_view, 4> systemes = {"zfs", "bcachefs", "fuse.mergerfs", "ubifs"};
    return MontageReseau(montage) || Parmi(systemes, montage.systeme);
}

bool VolumeReel(const Montage& montage)
{
    if (montage.point == "/" || montage.systeme == "autofs" || montage.systeme == "overlay")
        return false;
    if (SousUnDe(dossiersInternes, montage.point))
        return false;
    if (MontageMemoire(montage))
        return SousUnDe(dossiersUtilisateur, montage.point);
    if (montage.systeme == "squashfs")
        return SousUnDe(dossiersUtilisateur, montage.point);
    return VolumeSansFichier(montage) || (montage.source.starts_with("/dev/") && !montage.systeme.starts_with("dev"));
}

// Network shares of one server may share a device number, and several mounts of one share do not.
std::string CleDuVolume(const Montage& montage)
{
    return VolumeSansFichier(montage) ? montage.source : montage.peripherique;
}

// Hexadecimal digits of the text as bytes.
std::vector<uint8_t> OctetsHexa(std::string_view texte)
{
    std::vector<uint8_t> octets;
    bool moitie = false;
    for (const char caractere : texte) {
        unsigned valeur = 0;
        if (std::from_chars(&caractere, &caractere + 1, valeur, 16).ec != std::errc())
            continue;
        if (moitie)
            octets.back() = static_cast<uint8_t>(octets.back() << 4 | valeur);
        else
            octets.push_back(static_cast<uint8_t>(valeur));
        moitie = !moitie;
    }
    return octets;
}

void Attribuer(std::map<char, Lettre>& lettres, const Volume& volume)
{
    for (char lettre = 'd'; lettre <= 'z'; ++lettre) {
        if (lettres.try_emplace(lettre, Lettre{volume.cible, volume.identite}).second)
            return;
    }
}
}  // namespace

std::vector<Montage> LireMontages(std::string_view mountinfo)
{
    std::vector<Montage> montages;
    while (!mountinfo.empty()) {
        const size_t fin = std::min(mountinfo.find('\n'), mountinfo.size());
        Montage montage;
        if (LireMontage(mountinfo.substr(0, fin), montage))
            montages.push_back(std::move(montage));
        mountinfo.remove_prefix(std::min(fin + 1, mountinfo.size()));
    }
    return montages;
}

bool MontageReseau(const Montage& montage)
{
    constexpr std::array<std::string_view, 25> systemes = {"nfs",
                                                           "nfs4",
                                                           "cifs",
                                                           "smb3",
                                                           "smbfs",
                                                           "ncpfs",
                                                           "afs",
                                                           "ceph",
                                                           "9p",
                                                           "davfs",
                                                           "glusterfs",
                                                           "lustre",
                                                           "vboxsf",
                                                           "virtiofs",
                                                           "fuse.sshfs",
                                                           "fuse.davfs",
                                                           "fuse.davfs2",
                                                           "fuse.rclone",
                                                           "fuse.ceph",
                                                           "fuse.glusterfs",
                                                           "fuse.s3fs",
                                                           "fuse.smbnetfs",
                                                           "fuse.vmhgfs-fuse",
                                                           "fuse.curlftpfs",
                                                           "prl_fs"};
    return Parmi(systemes, montage.systeme);
}

bool MontageMemoire(const Montage& montage)
{
    return montage.systeme == "tmpfs" || montage.systeme == "ramfs";
}

std::vector<Montage> MontagesALettrer(const std::vector<Montage>& montages,
                                      const std::function<bool(const std::string&)>& estDossier)
{
    std::map<std::string, size_t> dernierAuPoint;
    std::set<std::string> vus;
    for (size_t rang = 0; rang < montages.size(); ++rang)
        dernierAuPoint[montages[rang].point] = rang;
    if (const auto racine = dernierAuPoint.find("/"); racine != dernierAuPoint.end())
        vus.insert(CleDuVolume(montages[racine->second]));

    std::vector<Montage> retenus;
    for (size_t rang = 0; rang < montages.size(); ++rang) {
        const Montage& montage = montages[rang];
        if (dernierAuPoint[montage.point] != rang || !VolumeReel(montage) || vus.contains(CleDuVolume(montage)))
            continue;
        // A share that does not answer would block the question; nothing but directories can be shared.
        if (!MontageReseau(montage) && !estDossier(montage.point))
            continue;
        vus.insert(CleDuVolume(montage));
        retenus.push_back(montage);
    }
    return retenus;
}

std::map<char, Lettre> ChoisirLettres(std::map<char, Lettre> connues, const std::vector<Volume>& volumes,
                                      const std::vector<std::string>& disquettes)
{
    connues.try_emplace('c', Lettre{"/", ""});
    for (size_t rang = 0; rang < disquettes.size() && rang < 2; ++rang)
        connues.try_emplace(static_cast<char>('a' + rang), Lettre{disquettes[rang], ""});

    for (const Volume& volume : volumes) {
        const auto meme = std::find_if(connues.begin(), connues.end(), [&](const auto& connue) {
            return connue.second.volume.empty() ? connue.second.cible == volume.cible
                                                : connue.second.volume == volume.identite;
        });
        if (meme == connues.end())
            Attribuer(connues, volume);
        else if (!meme->second.volume.empty())
            meme->second.cible = volume.cible;
    }
    return connues;
}

uint32_t SerieDepuisUuid(std::string_view systeme, std::string_view uuid)
{
    std::vector<uint8_t> octets = OctetsHexa(uuid);
    const bool ntfs = systeme == "ntfs" || systeme == "ntfs3";
    if (ntfs && octets.size() > 4)
        octets.erase(octets.begin(), octets.end() - 4);  // the low half of the 64 bits is the one shown
    uint32_t serie = 0;
    for (size_t rang = 0; rang < octets.size(); ++rang)
        serie ^= uint32_t{octets[rang]} << (24 - 8 * (rang % 4));
    return serie;
}

bool EstSystemeFat(const std::string& systeme)
{
    return systeme == "vfat" || systeme == "msdos" || Majuscules(systeme).starts_with("FAT");
}
