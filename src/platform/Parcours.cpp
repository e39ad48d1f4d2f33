#include "platform/Parcours.h"

#include <fcntl.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "commun/Texte.h"
#include "platform/Descripteur.h"
#include "platform/Lecteurs.h"
#include "platform/Locale.h"
#include "platform/MontagesMachine.h"
#include "platform/NomsDossier.h"

namespace {
constexpr size_t tailleTampon = 128 * 1024;
constexpr size_t descripteursGardes = 32;
constexpr int drapeauxDossier = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

// An entry as getdents64 gives it, up to the name.
struct EnteteEntree {
    uint64_t inode;
    int64_t suite;
    uint16_t longueur;
    uint8_t type;
} __attribute__((packed));

// Where a volume keeps attributes of its own.
enum class Attributs { Aucuns, Fat, Ntfs, Smb };

// One directory for good: the volume it is on and its number there.
struct Identite {
    uint64_t montage = 0;
    uint64_t inode = 0;
    uint64_t peripherique = 0;
    bool operator==(const Identite&) const = default;
};

Identite Identifier(int dossier, const char* nom, bool& reussi)
{
    struct statx etat {};
    const int drapeaux = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_EMPTY_PATH;
    reussi = statx(dossier, nom, drapeaux, STATX_INO | STATX_MNT_ID, &etat) == 0;
    const uint64_t peripherique = uint64_t{etat.stx_dev_major} << 32 | etat.stx_dev_minor;
    // Kernels before 5.8 do not tell the mount; the device then stands for it.
    const bool montageConnu = (etat.stx_mask & STATX_MNT_ID) != 0;
    return {montageConnu ? etat.stx_mnt_id : peripherique, etat.stx_ino, peripherique};
}

Attributs AttributsDuSysteme(const std::string& systeme)
{
    if (systeme == "vfat" || systeme == "msdos" || systeme == "exfat")
        return Attributs::Fat;
    if (systeme == "ntfs" || systeme == "ntfs3" || systeme == "fuseblk")
        return Attributs::Ntfs;
    if (systeme == "cifs" || systeme == "smb3")
        return Attributs::Smb;
    return Attributs::Aucuns;
}

bool AttributsFat(int dossier, const char* nom, uint32_t& attributs)
{
    const Descripteur entree(openat(dossier, nom, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
    return entree.Ouvert() && ioctl(entree.Valeur(), FAT_IOCTL_GET_ATTRIBUTES, &attributs) == 0;
}

bool AttributsEtendus(int dossier, const char* nom, const char* cle, uint32_t& attributs)
{
    const std::string chemin = "/proc/self/fd/" + std::to_string(dossier) + "/" + nom;
    return lgetxattr(chemin.c_str(), cle, &attributs, sizeof attributs) == ssize_t{sizeof attributs};
}

bool AttributsPropres(Attributs sorte, int dossier, const char* nom, uint32_t& attributs)
{
    switch (sorte) {
        case Attributs::Fat: return AttributsFat(dossier, nom, attributs);
        case Attributs::Ntfs: return AttributsEtendus(dossier, nom, "system.ntfs_attrib", attributs);
        case Attributs::Smb: return AttributsEtendus(dossier, nom, "user.cifs.dosattrib", attributs);
        case Attributs::Aucuns: break;
    }
    return false;
}

uint32_t AttributsGeneraux(const struct statx& etat, const char* nom)
{
    uint32_t attributs = 0;
    if ((etat.stx_mode & 0222) == 0)
        attributs |= AttributLectureSeule;
    if (nom[0] == '.')
        attributs |= AttributCache;
    if (S_ISREG(etat.stx_mode))
        attributs |= AttributArchive;
    const uint64_t marques = etat.stx_attributes & etat.stx_attributes_mask;
    if (marques & STATX_ATTR_COMPRESSED)
        attributs |= AttributCompresse;
    if (marques & STATX_ATTR_ENCRYPTED)
        attributs |= AttributChiffre;
    return attributs;
}

int64_t EnTemps1601(const struct statx_timestamp& temps)
{
    return TempsDepuis1601(temps.tv_sec, temps.tv_nsec);
}

int64_t Creation(const struct statx& etat)
{
    const bool naissance = (etat.stx_mask & STATX_BTIME) && (etat.stx_btime.tv_sec != 0 || etat.stx_btime.tv_nsec != 0);
    if (naissance)
        return EnTemps1601(etat.stx_btime);
    return etat.stx_mask & STATX_MTIME ? EnTemps1601(etat.stx_mtime) : 0;
}

// Directory entry types are the file type bits of a mode, shifted.
uint16_t ModeDepuisType(uint8_t type)
{
    return static_cast<uint16_t>(type << 12 | 0644);
}

// False when the entry has gone meanwhile.
bool Decrire(int dossier, const char* nom, uint8_t type, Attributs sorte, EntreeDossier& entree)
{
    struct statx etat {};
    constexpr unsigned voulu = STATX_TYPE | STATX_MODE | STATX_INO | STATX_SIZE | STATX_BTIME | STATX_MTIME;
    constexpr int drapeaux = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
    if (statx(dossier, nom, drapeaux, voulu, &etat) != 0) {
        if (errno == ENOENT)
            return false;
        etat = {};
        etat.stx_mode = ModeDepuisType(type);  // a directory that may be listed but not searched
    }
    const bool estDossier = S_ISDIR(etat.stx_mode);
    const bool estLien = S_ISLNK(etat.stx_mode);
    entree.nomReel = nom;
    entree.nom = NomEnTexte(entree.nomReel);
    entree.ordinaire = S_ISREG(etat.stx_mode);
    entree.numero = {uint64_t{etat.stx_dev_major} << 32 | etat.stx_dev_minor, etat.stx_ino};
    entree.taille = entree.ordinaire || estLien ? etat.stx_size : 0;
    entree.creation = Creation(etat);
    const bool propres = sorte != Attributs::Aucuns &&
                         (estDossier || (entree.ordinaire && !EntreeReservee(dossier, nom, entree.numero)));
    if (!propres || !AttributsPropres(sorte, dossier, nom, entree.attributs))
        entree.attributs = AttributsGeneraux(etat, nom);
    entree.attributs &= ~(AttributDossier | AttributLien);
    if (estDossier)
        entree.attributs |= AttributDossier;
    if (estLien)
        entree.attributs |= AttributLien;
    return true;
}

bool PointOuDeuxPoints(const char* nom)
{
    return nom[0] == '.' && (nom[1] == '\0' || (nom[1] == '.' && nom[2] == '\0'));
}

// False when the directory can't be read to its end.
bool LireNoms(int dossier, char* tampon, NomsDossier& noms)
{
    long lus = 0;
    while ((lus = syscall(SYS_getdents64, dossier, tampon, tailleTampon)) > 0) {
        for (long place = 0; place < lus;) {
            EnteteEntree entete;
            std::memcpy(&entete, tampon + place, sizeof entete);
            const char* nom = tampon + place + sizeof entete;
            place += entete.longueur;
            if (!PointOuDeuxPoints(nom))
                noms.Ajouter(nom, entete.type);
        }
    }
    return lus == 0;
}
}  // namespace

struct Parcours::Etat {
    // A directory on the way from the top; its descriptor is closed while the walk is far below.
    struct Niveau {
        std::string nom;
        Identite identite;
        Descripteur dossier;
    };

    std::vector<Niveau> niveaux;
    Attributs attributs = Attributs::Aucuns;
    std::unique_ptr<char[]> tampon;
    NomsDossier noms;

    int Courant() const { return niveaux.empty() ? -1 : niveaux.back().dossier.Valeur(); }
    void Rouvrir(const Descripteur& dessous);
    Descripteur RouvrirDepuisSommet() const;
};

// Opens the current directory again, which must be the same as before: through ".." of the directory left, else by its
// names from the top.
void Parcours::Etat::Rouvrir(const Descripteur& dessous)
{
    Niveau& niveau = niveaux.back();
    if (niveau.dossier.Ouvert())
        return;
    if (dessous.Ouvert()) {
        Descripteur dessus(openat(dessous.Valeur(), "..", drapeauxDossier));
        bool reussi = false;
        if (dessus.Ouvert() && Identifier(dessus.Valeur(), "", reussi) == niveau.identite && reussi) {
            niveau.dossier = std::move(dessus);
            return;
        }
    }
    niveau.dossier = RouvrirDepuisSommet();
}

Descripteur Parcours::Etat::RouvrirDepuisSommet() const
{
    size_t rang = niveaux.size() - 1;
    while (rang > 0 && !niveaux[rang].dossier.Ouvert())
        --rang;
    Descripteur dossier(openat(niveaux[rang].dossier.Valeur(), ".", drapeauxDossier));
    while (dossier.Ouvert() && ++rang < niveaux.size()) {
        dossier = Descripteur(openat(dossier.Valeur(), niveaux[rang].nom.c_str(), drapeauxDossier));
        bool reussi = false;
        if (dossier.Ouvert() && (Identifier(dossier.Valeur(), "", reussi) != niveaux[rang].identite || !reussi))
            dossier.Fermer();
    }
    return dossier;
}

Parcours::Parcours(char lettre) : etat_(std::make_unique<Etat>())
{
    const std::string racine = RacineDuLecteur(lettre);
    if (racine.empty())
        return;
    Descripteur sommet = OuvrirChemin(racine, drapeauxDossier & ~O_NOFOLLOW);
    bool reussi = false;
    const Identite identite = Identifier(sommet.Valeur(), "", reussi);
    if (!reussi)
        return;
    Montage montage;
    if (MontageDuDossier(racine, montage))
        etat_->attributs = AttributsDuSysteme(montage.systeme);
    etat_->niveaux.push_back({"", identite, std::move(sommet)});
}

Parcours::~Parcours() = default;

bool Parcours::Lister(const std::function<bool(const EntreeDossier&)>& recevoir)
{
    const int dossier = etat_->Courant();
    if (dossier < 0 || lseek(dossier, 0, SEEK_SET) != 0)
        return false;
    // Both are this listing's own while it runs: the function may list another directory.
    std::unique_ptr<char[]> tampon = std::move(etat_->tampon);
    if (!tampon)
        tampon = std::make_unique_for_overwrite<char[]>(tailleTampon);
    NomsDossier noms = std::move(etat_->noms);
    noms.Vider();
    const bool lu = LireNoms(dossier, tampon.get(), noms);
    noms.Trier();

    EntreeDossier entree;
    bool continuer = true;
    for (size_t rang = 0; continuer && rang < noms.Nombre(); ++rang)
        if (Decrire(dossier, noms.Nom(rang), noms.Type(rang), etat_->attributs, entree))
            continuer = recevoir(entree);
    etat_->tampon = std::move(tampon);
    etat_->noms = std::move(noms);
    return lu;
}

bool Parcours::Entrer(const std::string& nomReel)
{
    const int dossier = etat_->Courant();
    if (dossier < 0 || !NomSimple(nomReel))
        return false;
    // Looked at before it is opened, so that no automatic mount is set off.
    bool reussi = false;
    const uint64_t montage = etat_->niveaux.front().identite.montage;
    if (Identifier(dossier, nomReel.c_str(), reussi).montage != montage || !reussi)
        return false;
    Descripteur dessous(openat(dossier, nomReel.c_str(), drapeauxDossier));
    if (!dessous.Ouvert())
        return false;
    const Identite identite = Identifier(dessous.Valeur(), "", reussi);
    if (!reussi || identite.montage != montage)
        return false;

    etat_->niveaux.push_back({nomReel, identite, std::move(dessous)});
    if (etat_->niveaux.size() > descripteursGardes)  // the top stays open
        etat_->niveaux[etat_->niveaux.size() - descripteursGardes].dossier.Fermer();
    return true;
}

void Parcours::Remonter()
{
    if (etat_->niveaux.size() < 2)
        return;
    const Descripteur dessous = std::move(etat_->niveaux.back().dossier);
    etat_->niveaux.pop_back();
    etat_->Rouvrir(dessous);
}

Fichier Parcours::Ouvrir(const EntreeDossier& entree) const
{
    const int dossier = etat_->Courant();
    if (dossier < 0 || !entree.ordinaire || !NomSimple(entree.nomReel) ||
        EntreeReservee(dossier, entree.nomReel.c_str(), entree.numero))
        return {};
    constexpr int drapeaux = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    return Fichier(openat(dossier, entree.nomReel.c_str(), drapeaux));
}
