#include "platform/LecteurCD.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <scsi/sg.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "commun/Formes.h"
#include "platform/Descripteur.h"
#include "platform/Lecteurs.h"

namespace fs = std::filesystem;

namespace {

constexpr unsigned DelaiCommande = 5000;  // milliseconds
constexpr uint8_t TailleSens = 14;

Msf EnMsf(const cdrom_msf0& place)
{
    return {place.minute, place.second, place.frame};
}

class LecteurNoyau : public LecteurCD {
public:
    // Not blocking: opening closes no tray and waits for no disc.
    explicit LecteurNoyau(const std::string& chemin) : fichier_(OuvrirChemin(chemin, O_RDONLY | O_NONBLOCK)) {}

    bool Ouvert() const { return fichier_.Ouvert(); }

    bool EnvoyerCommande(const Cdb& cdb, std::span<uint8_t> reponse) override
    {
        Cdb commande = cdb;
        std::array<uint8_t, TailleSens> sens{};
        sg_io_hdr_t requete{};
        requete.interface_id = 'S';
        requete.dxfer_direction = SG_DXFER_FROM_DEV;
        requete.cmdp = commande.data();
        requete.cmd_len = static_cast<unsigned char>(commande.size());
        requete.dxferp = reponse.data();
        requete.dxfer_len = static_cast<unsigned>(reponse.size());
        requete.sbp = sens.data();
        requete.mx_sb_len = TailleSens;
        requete.timeout = DelaiCommande;
        return Demander(SG_IO, &requete) && requete.status == 0 && requete.host_status == 0 &&
               (requete.info & SG_INFO_OK_MASK) == SG_INFO_OK;
    }

    bool LireBornes(int& premiere, int& derniere) override
    {
        cdrom_tochdr entete{};
        if (!Demander(CDROMREADTOCHDR, &entete))
            return false;
        premiere = entete.cdth_trk0;
        derniere = entete.cdth_trk1;
        return true;
    }

    bool LireDebut(int piste, Msf& debut) override
    {
        cdrom_tocentry entree{};
        entree.cdte_track = static_cast<uint8_t>(piste);
        entree.cdte_format = CDROM_MSF;
        if (!Demander(CDROMREADTOCENTRY, &entree))
            return false;
        debut = EnMsf(entree.cdte_addr.msf);
        return true;
    }

    EtatLecteur LireEtat() override
    {
        switch (fichier_.Ouvert() ? ioctl(fichier_.Valeur(), CDROM_DRIVE_STATUS, CDSL_CURRENT) : CDS_NO_INFO) {
            case CDS_DISC_OK: return EtatLecteur::Pret;
            case CDS_NO_DISC: return EtatLecteur::SansDisque;
            case CDS_TRAY_OPEN: return EtatLecteur::TiroirOuvert;
            default: return EtatLecteur::PasPret;
        }
    }

    bool LirePlace(PlaceLecture& place) override
    {
        cdrom_subchnl canal{};
        canal.cdsc_format = CDROM_MSF;
        if (!Demander(CDROMSUBCHNL, &canal))
            return false;
        place.etat = canal.cdsc_audiostatus == CDROM_AUDIO_PLAY     ? EtatLecture::EnCours
                     : canal.cdsc_audiostatus == CDROM_AUDIO_PAUSED ? EtatLecture::Pause
                                                                    : EtatLecture::Arret;
        place.piste = canal.cdsc_trk;
        place.surDisque = EnMsf(canal.cdsc_absaddr.msf);
        place.dansPiste = EnMsf(canal.cdsc_reladdr.msf);
        return true;
    }

    bool Jouer(const Msf& debut, const Msf& fin) override
    {
        const auto octet = [](int valeur) { return static_cast<uint8_t>(std::clamp(valeur, 0, 255)); };
        cdrom_msf places{octet(debut.minute), octet(debut.seconde), octet(debut.trame),
                         octet(fin.minute),   octet(fin.seconde),   octet(fin.trame)};
        return Demander(CDROMPLAYMSF, &places);
    }

    bool Suspendre() override { return Demander(CDROMPAUSE, nullptr); }
    bool Reprendre() override { return Demander(CDROMRESUME, nullptr); }
    bool Arreter() override { return Demander(CDROMSTOP, nullptr); }
    bool OuvrirTiroir() override { return Demander(CDROMEJECT, nullptr); }
    bool FermerTiroir() override { return Demander(CDROMCLOSETRAY, nullptr); }

private:
    bool Demander(unsigned long requete, void* argument)
    {
        return fichier_.Ouvert() && ioctl(fichier_.Valeur(), requete, argument) == 0;
    }

    Descripteur fichier_;
};

std::unique_ptr<LecteurCD> OuvrirChemins(const std::vector<std::string>& chemins)
{
    for (const std::string& chemin : chemins)
        if (auto lecteur = std::make_unique<LecteurNoyau>(chemin); lecteur->Ouvert())
            return lecteur;
    return nullptr;
}

// A SCSI generic device of the machine.
struct AppareilScsi {
    unsigned hote = 0, canal = 0, cible = 0, unite = 0;
    int type = -1;
    std::vector<std::string> chemins;  // of the generic device, then of the drive itself
};

std::vector<AppareilScsi> AppareilsScsi()
{
    std::vector<AppareilScsi> appareils;
    std::error_code erreur;
    for (const auto& entree : fs::directory_iterator("/sys/class/scsi_generic", erreur)) {
        AppareilScsi appareil;
        const fs::path dossier = fs::canonical(entree.path() / "device", erreur);
        if (sscanf(dossier.filename().c_str(), "%u:%u:%u:%u", &appareil.hote, &appareil.canal, &appareil.cible,
                   &appareil.unite) != 4)
            continue;
        std::ifstream(dossier / "type") >> appareil.type;
        appareil.chemins.push_back("/dev/" + entree.path().filename().string());
        for (const auto& bloc : fs::directory_iterator(dossier / "block", erreur))
            appareil.chemins.push_back("/dev/" + bloc.path().filename().string());
        appareils.push_back(std::move(appareil));
    }
    return appareils;
}

class MachineNoyau : public MachineCD {
public:
    std::unique_ptr<LecteurCD> Ouvrir(std::string_view lecteur) override
    {
        const std::string chemin = lecteur.empty() ? std::string() : PeripheriqueOptique(LettreBasse(lecteur[0]));
        return chemin.empty() ? nullptr : OuvrirChemins({chemin});
    }

    int Adaptateurs() override { return static_cast<int>(Hotes(AppareilsScsi()).size()); }

    int TypeAppareil(int adaptateur, int cible, int unite) override { return Chercher(adaptateur, cible, unite).type; }

    std::unique_ptr<LecteurCD> OuvrirAppareil(int adaptateur, int cible, int unite) override
    {
        return OuvrirChemins(Chercher(adaptateur, cible, unite).chemins);
    }

private:
    // Host and channel of each adapter, in their order.
    using Hote = std::pair<unsigned, unsigned>;
    static std::vector<Hote> Hotes(const std::vector<AppareilScsi>& appareils)
    {
        std::vector<Hote> hotes;
        for (const AppareilScsi& appareil : appareils)
            hotes.emplace_back(appareil.hote, appareil.canal);
        std::sort(hotes.begin(), hotes.end());
        hotes.erase(std::unique(hotes.begin(), hotes.end()), hotes.end());
        return hotes;
    }

    static AppareilScsi Chercher(int adaptateur, int cible, int unite)
    {
        const std::vector<AppareilScsi> appareils = AppareilsScsi();
        const std::vector<Hote> hotes = Hotes(appareils);
        for (const AppareilScsi& appareil : appareils) {
            if (adaptateur >= 0 && static_cast<size_t>(adaptateur) < hotes.size() &&
                Hote(appareil.hote, appareil.canal) == hotes[static_cast<size_t>(adaptateur)] &&
                appareil.cible == static_cast<unsigned>(cible) && appareil.unite == static_cast<unsigned>(unite))
                return appareil;
        }
        return {};
    }
};

}  // namespace

MachineCD& MachineReelle()
{
    static MachineNoyau machine;
    return machine;
}
