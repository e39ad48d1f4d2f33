#include <algorithm>
#include <map>

#include "outils/Environnement.h"
#include "platform/Chemins.h"
#include "platform/LecteurCD.h"
#include "platform/Lecteurs.h"
#include "platform/Montages.h"

namespace fs = std::filesystem;

namespace {
constexpr const char* machine =
    "22 27 0:21 / /proc rw,relatime - proc proc rw\n"
    "24 27 0:6 / /dev rw - devtmpfs udev rw\n"
    "27 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda rw\n"
    "30 27 254:0 /srv/partie /mnt/partie rw shared:1 - ext4 /dev/vda rw\n"
    "31 27 8:2 / /home rw,noatime shared:29 master:3 - xfs /dev/sda2 rw\n"
    "32 27 8:17 / /media/moi/CL\\303\\211\\040\\134USB rw - vfat /dev/sdb1 rw\n"
    "33 27 8:33 /hosts /etc/hosts rw - ext4 /dev/sdc1 rw\n"
    "34 27 7:3 / /snap/core/1 ro - squashfs /dev/loop3 ro\n"
    "35 27 0:50 / /media/moi/nuage rw - fuse.sshfs moi@nuage:/ rw\n"
    "36 27 0:51 / /mnt/cache rw - ext4 /dev/sdd1 rw\n"
    "37 36 8:65 / /mnt/cache rw - ntfs3 /dev/sde1 rw\n"
    "39 27 0:45 / /mnt/ram rw - tmpfs tmpfs rw\n"
    "41 27 0:47 / /nfs rw - nfs4 serveur:/a rw\n"
    "43 27 0:48 / /run/user/1000/doc rw - fuse.portal portal rw\n"
    "45 27 11:0 / /media/moi/DISQUE ro - iso9660 /dev/sr0 ro\n"
    "46 27 8:81 / /sans/tiret rw shared:4\n"
    "\n"
    "illisible";

class Lettres : public Environnement {
protected:
    fs::path Lien(const std::string& nom) const { return racine_ / "config/velourne/lecteurs" / nom; }
};

bool Contient(const std::vector<char>& lettres, char lettre)
{
    return std::find(lettres.begin(), lettres.end(), lettre) != lettres.end();
}
}  // namespace

TEST(Montages, VolumesReelsSeulement)
{
    const auto pasUnFichier = [](const std::string& point) { return point != "/etc/hosts"; };
    const std::vector<std::string> attendus = {
        "/home", "/media/moi/CLÉ \\USB", "/media/moi/nuage", "/mnt/cache", "/mnt/ram", "/nfs", "/media/moi/DISQUE"};
    const std::vector<Montage> retenus = MontagesALettrer(LireMontages(machine), pasUnFichier);
    ASSERT_EQ(retenus.size(), attendus.size());
    for (size_t rang = 0; rang < attendus.size(); ++rang)
        EXPECT_EQ(retenus[rang].point, attendus[rang]);
    EXPECT_EQ(retenus[3].source, "/dev/sde1");  // the mount on top
}

TEST(Montages, LettreResteAuVolume)
{
    const Volume cle{"/media/moi/CLE", "cle"}, disque{"/media/moi/DISQUE", "disque"}, graveur{"/dev/sr0", ""};
    auto lettres = ChoisirLettres({}, {cle, graveur}, {"/dev/fd0"});
    EXPECT_EQ(lettres.at('a').cible, "/dev/fd0");
    EXPECT_EQ(lettres.at('c').cible, "/");
    EXPECT_EQ(lettres.at('d').volume, "cle");
    EXPECT_EQ(lettres.at('e').cible, "/dev/sr0");

    // The key is out, another disk takes its mount point; then the key is back elsewhere.
    lettres = ChoisirLettres(lettres, {{"/media/moi/CLE", "disque"}, graveur}, {});
    lettres = ChoisirLettres(lettres, {disque, {"/media/moi/CLE1", "cle"}, graveur}, {});
    EXPECT_EQ(lettres.at('d'), (Lettre{"/media/moi/CLE1", "cle"}));
    EXPECT_EQ(lettres.at('f'), (Lettre{"/media/moi/DISQUE", "disque"}));
    EXPECT_EQ(lettres.size(), 5U);

    std::vector<Volume> foule;
    for (int rang = 0; rang < 40; ++rang)
        foule.push_back({"/mnt/" + std::to_string(rang), std::to_string(rang)});
    EXPECT_EQ(ChoisirLettres({}, foule, {}).size(), 24U);  // "a" and "b" are for diskettes only
    EXPECT_EQ(ChoisirLettres({{'m', {"/mnt/0", ""}}}, {foule[0]}, {}).size(), 2U);  // pointed there by hand
}

TEST(Montages, NumerosDeSerie)
{
    EXPECT_EQ(SerieDepuisUuid("vfat", "1A2B-3C4D"), 0x1A2B3C4DU);
    EXPECT_EQ(SerieDepuisUuid("ntfs", "01D5A6B7C8D9EAFB"), 0xC8D9EAFBU);
    EXPECT_EQ(SerieDepuisUuid("ext4", "00000001-0002-0003-0000-000400000080"), 0x00020003U ^ 1U ^ 4U ^ 0x80U);
    EXPECT_EQ(SerieDepuisUuid("iso9660", "2021-08-19-12-34-56-00"), 0x20210819U ^ 0x12345600U);
    EXPECT_EQ(SerieDepuisUuid("tmpfs", ""), 0U);
}

TEST(Montages, SystemesFat)
{
    for (const char* fat : {"vfat", "msdos", "FAT32", "fat"})
        EXPECT_TRUE(EstSystemeFat(fat)) << fat;
    for (const char* autre : {"exfat", "ext4", "ntfs3", "iso9660", ""})
        EXPECT_FALSE(EstSystemeFat(autre)) << autre;
}

TEST_F(Lettres, DossierCommeLecteur)
{
    const std::vector<char> machineSeule = LettresMachine();
    ASSERT_TRUE(Contient(machineSeule, 'c'));
    EXPECT_EQ(RacineDuLecteur('c'), "/");
    const char lettre = LettreDuDossier(travail_.string() + "/");
    ASSERT_NE(lettre, 0);
    EXPECT_FALSE(Contient(machineSeule, lettre));
    EXPECT_EQ(LettreDuDossier((travail_ / "." / "").string()), lettre);
    EXPECT_EQ(LettreDuDossier((travail_ / "absent").string()), 0);
    EXPECT_TRUE(Contient(LettresMachine(), lettre));

    VolumeLecteur volume;
    EspaceLecteur espace;
    ASSERT_TRUE(VolumeDuLecteur(lettre, volume) && EspaceDuLecteur(lettre, espace));
    EXPECT_EQ(volume.nom, travail_.filename());
    EXPECT_FALSE(NommerVolume(lettre, "AUTRE"));  // the folder is not the volume

    fs::remove(travail_);
    EXPECT_FALSE(Contient(LettresMachine(), lettre));
    EXPECT_FALSE(EspaceDuLecteur(lettre, espace));
    EXPECT_FALSE(DonnerLettre('?', "/"));
}

TEST_F(Lettres, CapaciteNulleDesSeulsLecteursSansVolume)
{
    EspaceLecteur espace;
    ASSERT_TRUE(DonnerLettre('p', "/proc"));  // its system tells no size
    ASSERT_TRUE(EspaceDuLecteur('p', espace));
    EXPECT_EQ(espace.total, 1U);
    EXPECT_FALSE(EspaceDuLecteur('q', espace));
}

TEST_F(Lettres, AucunLecteurOptique)
{
    ASSERT_TRUE(DonnerLettre('p', "/proc"));
    ASSERT_TRUE(DonnerLettre('n', "/dev/null"));
    for (const char lettre : {'n', 'p', 'q', '?'}) {
        EXPECT_EQ(PeripheriqueOptique(lettre), "") << lettre;
        EXPECT_EQ(MachineReelle().Ouvrir(std::string(1, lettre) + ':'), nullptr) << lettre;
    }
    EXPECT_EQ(MachineReelle().Ouvrir(""), nullptr);
    EXPECT_EQ(MachineReelle().TypeAppareil(MachineReelle().Adaptateurs(), 0, 0), -1);
    EXPECT_EQ(MachineReelle().OuvrirAppareil(-1, 0, 0), nullptr);
}

TEST_F(Lettres, RetireCeQuiNeReviendraitPas)
{
    LettresMachine();
    ASSERT_TRUE(DonnerLettre('k', travail_.string()));
    ASSERT_TRUE(DonnerLettre('l', (travail_ / "absent").string()));
    fs::create_symlink(travail_, Lien("m:"));
    fs::create_symlink("/dev/disk/by-uuid/ABSENT", Lien("m::"));
    EXPECT_FALSE(Contient(LettresMachine(), 'm'));  // the mount point is still there, the volume is not
    EXPECT_EQ(RacineDuLecteur('m'), "");
    std::map<char, bool> presentes = {{'c', true}, {'k', true}, {'l', false}, {'m', false}};
    for (const LettreDonnee& donnee : LettresDonnees()) {
        const auto presente = presentes.extract(donnee.lettre);
        if (!presente)
            continue;  // a volume of this machine
        EXPECT_EQ(donnee.presente, presente.mapped()) << donnee.lettre;
        EXPECT_EQ(donnee.retirable, donnee.lettre != 'c') << donnee.lettre;
        EXPECT_EQ(RetirerLettre(donnee.lettre), donnee.retirable) << donnee.lettre;
        EXPECT_EQ(fs::is_symlink(Lien({donnee.lettre, ':'})), donnee.lettre == 'c');
        EXPECT_FALSE(fs::is_symlink(Lien({donnee.lettre, ':', ':'})));
    }
    EXPECT_TRUE(presentes.empty());

    // Pointed elsewhere by the user, taken away, the first letter leads to the root again.
    ASSERT_TRUE(DonnerLettre('c', travail_.string()));
    EXPECT_TRUE(RetirerLettre('c'));
    LettresMachine();
    EXPECT_EQ(RacineDuLecteur('c'), "/");
}
