#pragma once

#include <array>
#include <string>
#include <vector>

#include "extraction/RegardLecteurs.h"

// A tab of the wizard: a place in one of its two rows.
struct OngletLecteur {
    static constexpr int Aucun = 99;
    int rangee = 0;  // 0: "Menu", 1: "MenuA"
    int numero = Aucun;
    bool operator==(const OngletLecteur&) const = default;
    bool Choisi() const { return numero != Aucun; }
};

// What the wizard holds, without its widgets: the drives and the chosen one, the details pane, the switches of the
// archives and the filter. Each choice of the user is stored at once.
class EtatAssistant {
public:
    EtatAssistant();  // as the settings have it

    // Discs that can be taken out have the first row of tabs, those that stay the second; without any of the former all
    // stand in the first, which is seen with the details hidden too.
    void RecevoirLecteurs(const std::vector<LecteurVu>& lecteurs);
    const std::vector<LecteurVu>& Lecteurs(int rangee) const { return rangees_[static_cast<size_t>(rangee)]; }

    // The tab to be pressed: the remembered one, else the first there is; the second row only while it is seen.
    OngletLecteur AChoisir() const;
    // Where a drive stands; none when it is not there.
    OngletLecteur OngletDe(char lettre) const;
    // None is remembered too.
    void Choisir(const OngletLecteur& onglet);
    const OngletLecteur& Onglet() const { return onglet_; }
    char Lettre() const;  // 0 for no tab

    bool DetailsMontres() const { return details_; }
    // A hidden pane must not leave a drive chosen that the user no longer sees: the tab to be pressed in its stead, or
    // the one that is chosen.
    OngletLecteur BasculerDetails();

    bool Compression(int indice) const;
    void BasculerCompression(int indice);

    int Filtre() const { return filtre_; }
    void ChoisirFiltre(int rang);
    // Whether a name at the top of the drive is shown.
    bool Montre(const std::string& nom) const;

private:
    std::array<std::vector<LecteurVu>, 2> rangees_;
    OngletLecteur onglet_;
    bool details_ = true;
    std::array<std::string, 4> compressions_;  // as stored
    int filtre_ = 0;
};
