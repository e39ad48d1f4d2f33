#include "platform/Lecteurs.h"

#include <blkid/blkid.h>
#include <fcntl.h>
#include <libudev.h>
#include <linux/fs.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <system_error>

#include <fmt/format.h>

#include "commun/Texte.h"
#include "platform/Chemins.h"
#include "platform/Descripteur.h"
#include "platform/MontagesMachine.h"
#include "platform/OperationsFichiers.h"

namespace fs = std::filesystem;

namespace {
constexpr unsigned majeurDisquette = 2;
constexpr unsigned majeurOptique = 11;

// What udev or blkid knows of a volume.
struct Empreinte {
    std::string nom, systeme, uuid;
};

std::string DossierLecteurs()
{
    const std::string dossier = DossierConfiguration() + "/lecteurs";
    mkdir(dossier.c_str(), 0700);
    return dossier;
}

// "d:" leads to the drive; "d::" keeps which volume a given letter belongs to.
std::string LienDeLettre(char lettre)
{
    return DossierLecteurs() + "/" + lettre + ":";
}

std::string LienDeVolume(char lettre)
{
    return LienDeLettre(lettre) + ":";
}

std::string LireLien(const std::string& lien)
{
    std::error_code erreur;
    std::string cible = fs::read_symlink(lien, erreur).string();
    while (cible.size() > 1 && cible.ends_with('/'))
        cible.pop_back();
    return cible;
}

bool EcrireLien(const std::string& lien, const std::string& cible)
{
    const std::string brouillon = fmt::format("{}.{}", lien, getpid());
    unlink(brouillon.c_str());
    if (symlink(cible.c_str(), brouillon.c_str()) != 0)
        return false;
    if (rename(brouillon.c_str(), lien.c_str()) == 0)
        return true;
    unlink(brouillon.c_str());
    return false;
}

bool LettreValide(char lettre)
{
    return lettre >= 'a' && lettre <= 'z';
}

Lettre LireLettre(char lettre)
{
    if (!LettreValide(lettre))
        return {};
    return {LireLien(LienDeLettre(lettre)), LireLien(LienDeVolume(lettre))};
}

std::map<char, Lettre> LireLettres()
{
    std::map<char, Lettre> lettres;
    for (char lettre = 'a'; lettre <= 'z'; ++lettre) {
        Lettre lue = LireLettre(lettre);
        if (!lue.cible.empty())
            lettres.emplace(lettre, std::move(lue));
    }
    return lettres;
}

void EcrireLettres(const std::map<char, Lettre>& avant, const std::map<char, Lettre>& apres)
{
    for (const auto& [lettre, cible] : apres) {
        const auto ancienne = avant.find(lettre);
        if (ancienne != avant.end() && ancienne->second == cible)
            continue;
        if (cible.volume.empty())
            unlink(LienDeVolume(lettre).c_str());
        else
            EcrireLien(LienDeVolume(lettre), cible.volume);
        EcrireLien(LienDeLettre(lettre), cible.cible);
    }
}

// Device number of a block device below /dev, 0 for anything else.
dev_t NumeroDeBloc(const std::string& chemin)
{
    struct stat etat {};
    return stat(chemin.c_str(), &etat) == 0 && S_ISBLK(etat.st_mode) ? etat.st_rdev : 0;
}

// The device a volume lies on. Some file systems have a number of their own; their source then names the device.
dev_t NumeroDuMontage(const Montage& montage)
{
    unsigned majeur = 0;
    unsigned mineur = 0;
    if (sscanf(montage.peripherique.c_str(), "%u:%u", &majeur, &mineur) == 2 && majeur != 0)
        return makedev(majeur, mineur);
    return montage.source.starts_with("/dev/") ? NumeroDeBloc(montage.source) : 0;
}

std::string DecoderUdev(const char* texte)
{
    std::string decode;
    for (; texte && *texte; ++texte) {
        unsigned octet = 0;
        if (texte[0] == '\\' && sscanf(texte, "\\x%2x", &octet) == 1) {
            decode += static_cast<char>(octet);
            texte += 3;
        } else {
            decode += *texte;
        }
    }
    return decode;
}

using Udev = std::unique_ptr<udev, decltype(&udev_unref)>;
using Appareil = std::unique_ptr<udev_device, decltype(&udev_device_unref)>;

Empreinte EmpreinteUdev(dev_t numero)
{
    // The library makes tables of its own at the first use, for one thread at a time. It reads a database and never
    // waits for a drive.
    static std::mutex verrou;
    const std::lock_guard garde(verrou);
    const Udev contexte(udev_new(), &udev_unref);
    if (!contexte)
        return {};
    const Appareil appareil(udev_device_new_from_devnum(contexte.get(), 'b', numero), &udev_device_unref);
    if (!appareil)
        return {};
    const auto valeur = [&](const char* cle) { return udev_device_get_property_value(appareil.get(), cle); };
    const auto texte = [&](const char* cle) { return std::string(valeur(cle) ? valeur(cle) : ""); };
    return {DecoderUdev(valeur("ID_FS_LABEL_ENC")), texte("ID_FS_TYPE"), texte("ID_FS_UUID")};
}

// Reads the device itself, where the user may.
Empreinte EmpreinteSondee(const std::string& source)
{
    const std::unique_ptr<std::remove_pointer_t<blkid_probe>, decltype(&blkid_free_probe)> sonde(
        blkid_new_probe_from_filename(source.c_str()), &blkid_free_probe);
    if (!sonde)
        return {};
    blkid_probe_enable_superblocks(sonde.get(), 1);
    blkid_probe_set_superblocks_flags(sonde.get(), BLKID_SUBLKS_LABEL | BLKID_SUBLKS_UUID | BLKID_SUBLKS_TYPE);
    if (blkid_do_safeprobe(sonde.get()) != 0)
        return {};
    const auto texte = [&](const char* cle) {
        const char* valeur = nullptr;
        return std::string(blkid_probe_lookup_value(sonde.get(), cle, &valeur, nullptr) == 0 ? valeur : "");
    };
    return {texte("LABEL"), texte("TYPE"), texte("UUID")};
}

// What an earlier look of the system left in its cache.
Empreinte EmpreinteGardee(const std::string& source)
{
    blkid_cache cache = nullptr;
    if (blkid_get_cache(&cache, nullptr) != 0)
        return {};
    Empreinte empreinte;
    if (blkid_get_dev(cache, source.c_str(), BLKID_DEV_FIND)) {
        const auto texte = [&](const char* cle) {
            const std::unique_ptr<char, decltype(&free)> valeur(blkid_get_tag_value(cache, cle, source.c_str()), &free);
            return std::string(valeur ? valeur.get() : "");
        };
        empreinte = {texte("LABEL"), texte("TYPE"), texte("UUID")};
    }
    blkid_put_cache(cache);
    return empreinte;
}

Empreinte EmpreinteDuMontage(const Montage& montage)
{
    const dev_t numero = NumeroDuMontage(montage);
    if (numero == 0)
        return {"", montage.systeme, ""};
    Empreinte empreinte = EmpreinteUdev(numero);
    if (empreinte.systeme.empty() && montage.source.starts_with("/dev/"))
        empreinte = EmpreinteSondee(montage.source);
    if (empreinte.systeme.empty() && montage.source.starts_with("/dev/"))
        empreinte = EmpreinteGardee(montage.source);
    if (empreinte.systeme.empty())
        empreinte.systeme = montage.systeme;
    return empreinte;
}

// What stays the same wherever a volume is mounted.
std::string IdentiteDuMontage(const Montage& montage)
{
    if (MontageMemoire(montage))
        return montage.systeme + ":" + montage.point;
    const dev_t numero = MontageReseau(montage) ? 0 : NumeroDuMontage(montage);
    const std::string uuid = numero != 0 ? EmpreinteUdev(numero).uuid : std::string();
    return uuid.empty() ? montage.source : "/dev/disk/by-uuid/" + uuid;
}

// Devices of one kind: "/dev/sr0", "/dev/sr1"...
std::vector<std::string> Appareils(const char* prefixe, unsigned majeur)
{
    std::vector<std::string> trouves;
    std::error_code erreur;
    for (const auto& entree : fs::directory_iterator("/dev", erreur)) {
        const std::string nom = entree.path().filename().string();
        const bool convient = nom.starts_with(prefixe) && nom.size() > std::strlen(prefixe) &&
                              nom.find_first_not_of("0123456789", std::strlen(prefixe)) == std::string::npos;
        if (convient && major(NumeroDeBloc(entree.path().string())) == majeur)
            trouves.push_back(entree.path().string());
    }
    std::sort(trouves.begin(), trouves.end());
    return trouves;
}

// Volumes and optical drives that are due a letter. A disc in a drive goes by the letter of the drive, a folder that
// the user gave a letter by that letter.
std::vector<Volume> VolumesDeLaMachine(const std::vector<std::string>& optiques)
{
    std::vector<Volume> volumes;
    for (const Montage& montage : MontagesALettrer(MontagesMachine(), DossierExiste)) {
        const unsigned majeur = major(NumeroDuMontage(montage));
        if (majeur != majeurOptique && majeur != majeurDisquette)
            volumes.push_back({montage.point, IdentiteDuMontage(montage)});
    }
    for (const std::string& optique : optiques)
        volumes.push_back({optique, ""});
    return volumes;
}

std::string PointDuPeripherique(dev_t numero)
{
    std::string point;
    for (const Montage& montage : MontagesMachine()) {
        if (NumeroDuMontage(montage) == numero && montage.racine == "/" && point.empty())
            point = montage.point;
    }
    return point;
}

// A volume that was taken out leaves its mount point behind: the letter then leads nowhere.
bool VolumePresent(const Lettre& lettre)
{
    const std::vector<Montage> montages = MontagesMachine();
    const auto dernier = std::find_if(montages.rbegin(), montages.rend(),
                                      [&](const Montage& montage) { return montage.point == lettre.cible; });
    return dernier != montages.rend() && IdentiteDuMontage(*dernier) == lettre.volume;
}

std::string RacineDe(const Lettre& lettre)
{
    if (const dev_t numero = NumeroDeBloc(lettre.cible); numero != 0)
        return PointDuPeripherique(numero);
    if (!lettre.volume.empty())  // mounted is enough: a share that does not answer would block any question
        return VolumePresent(lettre) ? lettre.cible : std::string();
    return DossierExiste(lettre.cible) ? lettre.cible : std::string();
}

std::string LireAttributSysteme(const fs::path& chemin)
{
    std::string valeur(1, '\0');
    const Descripteur fichier(open(chemin.c_str(), O_RDONLY | O_CLOEXEC));
    return fichier.Ouvert() && read(fichier.Valeur(), valeur.data(), 1) == 1 ? valeur : std::string();
}

// A partition takes this from its disk, a mapped device from the one below it.
bool PeripheriqueAmovible(dev_t numero)
{
    std::error_code erreur;
    fs::path dossier = fs::canonical(fmt::format("/sys/dev/block/{}:{}", major(numero), minor(numero)), erreur);
    for (int etage = 0; etage < 8 && !erreur; ++etage) {
        const fs::directory_iterator dessous(dossier / "slaves", erreur);
        if (erreur || dessous == fs::directory_iterator())
            break;
        dossier = fs::canonical(dessous->path(), erreur);
    }
    if (fs::exists(dossier / "partition", erreur))
        dossier = dossier.parent_path();
    return LireAttributSysteme(dossier / "removable") == "1";
}

uint32_t TypeDuPeripherique(dev_t numero)
{
    if (major(numero) == majeurOptique)
        return LecteurOptique;
    return major(numero) == majeurDisquette || PeripheriqueAmovible(numero) ? LecteurAmovible : LecteurFixe;
}

uint32_t TypeDuMontage(const Montage& montage)
{
    if (MontageReseau(montage))
        return LecteurReseau;
    if (MontageMemoire(montage))
        return LecteurMemoire;
    if (montage.systeme == "iso9660")
        return LecteurOptique;
    const dev_t numero = NumeroDuMontage(montage);
    return numero != 0 ? TypeDuPeripherique(numero) : LecteurFixe;
}

std::string Canonique(const std::string& dossier)
{
    std::error_code erreur;
    return fs::canonical(dossier, erreur).string();
}

// All letters, after those that were missing have been given.
std::map<char, Lettre> RegarderMachine()
{
    const VerrouFichier verrou(DossierLecteurs() + "/.verrou", true);
    const std::map<char, Lettre> avant = LireLettres();
    const std::vector<std::string> optiques = Appareils("sr", majeurOptique);
    std::map<char, Lettre> apres =
        ChoisirLettres(avant, VolumesDeLaMachine(optiques), Appareils("fd", majeurDisquette));
    EcrireLettres(avant, apres);
    return apres;
}

bool Presente(const Lettre& lettre)
{
    return NumeroDeBloc(lettre.cible) != 0 || !RacineDe(lettre).empty();
}

// A folder's letter, or one whose drive is gone. The letter of a drive that is there would be given again at once.
bool Retirable(char lettre, const Lettre& lue)
{
    if (lettre == 'c' && lue.cible == "/")
        return false;
    const bool dossier = lue.volume.empty() && NumeroDeBloc(lue.cible) == 0;
    return dossier || !Presente(lue);
}
}  // namespace

std::vector<char> LettresMachine()
{
    std::vector<char> presentes;
    for (const auto& [lettre, cible] : RegarderMachine()) {
        if (Presente(cible))
            presentes.push_back(lettre);
    }
    return presentes;
}

std::vector<LettreDonnee> LettresDonnees()
{
    std::vector<LettreDonnee> donnees;
    for (const auto& [lettre, cible] : RegarderMachine())
        donnees.push_back(
            {lettre, NomEnTexte(cible.cible), TypeDuLecteur(lettre), Presente(cible), Retirable(lettre, cible)});
    return donnees;
}

uint32_t TypeDuLecteur(char lettre)
{
    const Lettre lue = LireLettre(lettre);
    if (const dev_t numero = NumeroDeBloc(lue.cible); numero != 0)
        return TypeDuPeripherique(numero);
    const std::string racine = RacineDe(lue);
    if (racine.empty())
        return LecteurInexistant;
    Montage montage;
    return MontageDuDossier(racine, montage) ? TypeDuMontage(montage) : uint32_t{LecteurInconnu};
}

bool EspaceDuLecteur(char lettre, EspaceLecteur& espace)
{
    const std::string racine = RacineDuLecteur(lettre);
    struct statvfs etat {};
    if (racine.empty() || statvfs(racine.c_str(), &etat) != 0)
        return false;
    const uint64_t bloc = etat.f_frsize != 0 ? etat.f_frsize : etat.f_bsize;
    espace = {std::max<uint64_t>(etat.f_blocks * bloc, 1), etat.f_bfree * bloc, etat.f_bavail * bloc};
    return true;
}

bool VolumeDuLecteur(char lettre, VolumeLecteur& volume)
{
    const std::string racine = RacineDuLecteur(lettre);
    if (racine.empty())
        return false;
    // Inside a container the mount may not be told: the folder's own name is then all there is.
    Montage montage;
    const Empreinte empreinte = MontageDuDossier(racine, montage) ? EmpreinteDuMontage(montage) : Empreinte{};
    volume.dossier = racine != "/" && Canonique(racine) != montage.point;
    volume.nom = NomEnTexte(volume.dossier ? racine.substr(racine.rfind('/') + 1) : empreinte.nom);
    volume.serie = SerieDepuisUuid(empreinte.systeme, empreinte.uuid);
    volume.systeme = empreinte.systeme;
    return true;
}

bool NommerVolume(char lettre, const std::string& nom)
{
    const std::string racine = RacineDuLecteur(lettre);
    Montage montage;
    char label[FSLABEL_MAX] = {};
    if (racine.empty() || nom.size() >= sizeof label || !MontageDuDossier(racine, montage) ||
        Canonique(racine) != montage.point)
        return false;
    nom.copy(label, nom.size());
    const Descripteur dossier(open(racine.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return dossier.Ouvert() && ioctl(dossier.Valeur(), FS_IOC_SETFSLABEL, label) == 0;
}

std::string RacineDuLecteur(char lettre)
{
    return RacineDe(LireLettre(lettre));
}

std::string PeripheriqueOptique(char lettre)
{
    const Lettre lue = LireLettre(lettre);
    return major(NumeroDeBloc(lue.cible)) == majeurOptique ? lue.cible : std::string();
}

bool DonnerLettre(char lettre, const std::string& dossier)
{
    if (!LettreValide(lettre) || dossier.empty())
        return false;
    std::error_code erreur;
    unlink(LienDeVolume(lettre).c_str());
    return EcrireLien(LienDeLettre(lettre), fs::absolute(dossier, erreur).string());
}

bool RetirerLettre(char lettre)
{
    const VerrouFichier verrou(DossierLecteurs() + "/.verrou", true);
    const Lettre lue = LireLettre(lettre);
    if (lue.cible.empty() || !Retirable(lettre, lue) || unlink(LienDeLettre(lettre).c_str()) != 0)
        return false;
    unlink(LienDeVolume(lettre).c_str());
    return true;
}

char LettreDuDossier(const std::string& dossier)
{
    const std::string voulu = Canonique(dossier);
    if (voulu.empty() || !DossierExiste(voulu))
        return 0;
    LettresMachine();
    const std::map<char, Lettre> lettres = LireLettres();
    for (const auto& [lettre, cible] : lettres) {
        if (const std::string racine = RacineDe(cible); !racine.empty() && Canonique(racine) == voulu)
            return lettre;
    }
    for (char lettre = 'd'; lettre <= 'z'; ++lettre) {
        if (!lettres.contains(lettre))
            return DonnerLettre(lettre, voulu) ? lettre : char{0};
    }
    return 0;
}

bool EstVolumeNonFat(char lettre)
{
    VolumeLecteur volume;
    return VolumeDuLecteur(lettre, volume) && !EstSystemeFat(volume.systeme);
}
