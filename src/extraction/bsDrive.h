#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Holds one drive letter and, after GetInfo, what the system says about that drive.
class bsDrive {
public:
    // Fills all properties. Throws std::invalid_argument, error 8001, unless the text is one character long.
    void GetInfo(std::string_view lettre);
    // False when the volume can't be named.
    bool SetDriveLabel(const std::string& nom);

    const std::string& Drive() const { return lettre_; }
    uint32_t DriveType() const { return type_; }
    double DriveSpaceTotal() const { return total_; }
    double DriveSpaceFree() const { return libre_; }
    double DriveSpaceAvailable() const { return disponible_; }
    const std::string& DriveLabel() const { return nom_; }
    const std::string& DriveSerial() const { return serie_; }
    const std::string& DriveFileSystem() const { return systeme_; }
    // A folder given a letter: the byte counts are those of the volume that it lies on.
    bool EstDossier() const { return dossier_; }

private:
    std::string lettre_ = "C";
    uint32_t type_ = 0;
    double total_ = 0, libre_ = 0, disponible_ = 0;
    std::string nom_, serie_, systeme_;
    bool dossier_ = false;
};

// "Disque Local"...; "Unknown" for a value outside the table.
const char* NomTypeLecteur(uint32_t type);

// Serial as text: the first four hexadecimal digits, "-", the last four; no padding.
std::string TexteSerie(uint32_t serie);

// "D [NOM]", or the letter alone in capitals for "a:" and "b:", which are not looked at.
std::string LibelleLecteur(char lettre);

// What the wizard shows of a drive and VerifierCatalogue stores: texts, ready for display.
struct InfosLecteur {
    std::string standard, type, serie, total, libre, occupe;
    double octetsOccupes = 0;  // of the drive alone; 0 when that is not known
};
InfosLecteur AfficherInfo(const bsDrive& lecteur);
