#include "extraction/bsDrive.h"

#include <stdexcept>

#include <fmt/format.h>

#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/FormesLocales.h"
#include "platform/Lecteurs.h"

namespace {

char LettreBasse(std::string_view lettre)
{
    return lettre.size() == 1 ? Minuscules(lettre)[0] : '\0';
}

}  // namespace

void bsDrive::GetInfo(std::string_view lettre)
{
    if (NombreCaracteres(lettre) != 1)
        throw std::invalid_argument("8001 bsDrive.GetInfo(): Drive letter must be a single character.");

    lettre_ = lettre;
    const char basse = LettreBasse(lettre);
    type_ = TypeDuLecteur(basse);

    EspaceLecteur espace;
    EspaceDuLecteur(basse, espace);
    total_ = static_cast<double>(espace.total);
    libre_ = static_cast<double>(espace.libre);
    disponible_ = static_cast<double>(espace.disponible);

    VolumeLecteur volume;
    VolumeDuLecteur(basse, volume);
    nom_ = volume.nom.substr(0, volume.nom.find('\0'));
    dossier_ = volume.dossier;
    serie_ = TexteSerie(volume.serie);
    systeme_ = volume.systeme.substr(0, volume.systeme.find('\0'));
}

bool bsDrive::SetDriveLabel(const std::string& nom)
{
    return NommerVolume(LettreBasse(lettre_), nom);
}

const char* NomTypeLecteur(uint32_t type)
{
    constexpr const char* noms[] = {"Inconnu",      "Inexistant",       "Lecteur de Disquette",
                                    "Disque Local", "Connexion Réseau", "Lecteur DVD/CD-ROM",
                                    "Disque RAM"};
    return type < std::size(noms) ? noms[type] : "Unknown";
}

std::string TexteSerie(uint32_t serie)
{
    const std::string chiffres = fmt::format("{:X}", serie);
    const size_t fin = chiffres.size() > 4 ? chiffres.size() - 4 : 0;  // a short number overlaps in the two halves
    return chiffres.substr(0, 4) + '-' + chiffres.substr(fin);
}

std::string LibelleLecteur(char lettre)
{
    const char basse = LettreBasse(std::string(1, lettre));
    const std::string capitale = Majuscules(std::string(1, lettre));
    if (basse == 'a' || basse == 'b')
        return capitale;
    VolumeLecteur volume;
    VolumeDuLecteur(basse, volume);
    return capitale + " [" + volume.nom + ']';
}

InfosLecteur AfficherInfo(const bsDrive& lecteur)
{
    InfosLecteur infos;
    infos.standard = lecteur.DriveFileSystem();
    infos.type = NomTypeLecteur(lecteur.DriveType());
    infos.serie = lecteur.DriveSerial();
    const double occupes = lecteur.DriveSpaceTotal() - lecteur.DriveSpaceFree();
    infos.octetsOccupes = lecteur.EstDossier() ? 0 : occupes;
    infos.total = FormatCapacite(lecteur.DriveSpaceTotal());
    infos.libre = FormatCapacite(lecteur.DriveSpaceFree());
    infos.occupe = FormatCapacite(occupes);
    return infos;
}
