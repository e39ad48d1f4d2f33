#include "extraction/EtatAssistant.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string_view>

#include "archives/ListerArchive.h"
#include "extraction/FiltreFichiers.h"
#include "store/ClesReglages.h"
#include "store/Reglages.h"

namespace {

constexpr const char* CacherDetails = " Cacher Détails ";
constexpr const char* MontrerDetails = " Montrer Détails ";
constexpr const char* AucunOnglet = "A99";

std::string_view CleDe(int indice)
{
    return SortesArchives()[static_cast<size_t>(indice)].cle;
}

}  // namespace

EtatAssistant::EtatAssistant()
{
    details_ = GetSetting(SectionSettings, CleMethode, CacherDetails) != MontrerDetails;
    for (int indice = 0; indice < 4; ++indice)
        compressions_[static_cast<size_t>(indice)] = GetSetting(SectionSettings, CleDe(indice), "0");
    filtre_ = GetSettingEntier(SectionSettings, CleExtension, 0, static_cast<int>(FiltresFichiers().size()) - 1);
}

void EtatAssistant::RecevoirLecteurs(const std::vector<LecteurVu>& lecteurs)
{
    for (auto& rangee : rangees_)
        rangee.clear();
    const bool amovibles = std::any_of(lecteurs.begin(), lecteurs.end(), std::mem_fn(&LecteurVu::Amovible));
    for (const LecteurVu& lecteur : lecteurs)
        rangees_[lecteur.Amovible() || !amovibles ? 0 : 1].push_back(lecteur);
    onglet_ = {};
}

OngletLecteur EtatAssistant::AChoisir() const
{
    std::string choix = GetSetting(SectionSettings, CleDrive, "0");
    if (choix == AucunOnglet)
        choix = "0";
    const size_t a = choix.find('A');
    // Kept while there was a disc to be taken out: the disks have moved up meanwhile.
    const int rangee = a == std::string::npos || Lecteurs(1).empty() ? 0 : 1;
    const OngletLecteur memorise{rangee, std::atoi(choix.c_str() + (a == std::string::npos ? 0 : a + 1))};
    const auto existe = [this](const OngletLecteur& onglet) {
        return onglet.numero >= 0 && onglet.numero < static_cast<int>(Lecteurs(onglet.rangee).size()) &&
               (onglet.rangee == 0 || details_);
    };
    for (const OngletLecteur& onglet : {memorise, OngletLecteur{0, 0}, OngletLecteur{1, 0}})
        if (existe(onglet))
            return onglet;
    return {};
}

OngletLecteur EtatAssistant::OngletDe(char lettre) const
{
    for (int rangee = 0; rangee < 2; ++rangee)
        for (size_t numero = 0; numero < Lecteurs(rangee).size(); ++numero)
            if (Lecteurs(rangee)[numero].lettre == lettre)
                return {rangee, static_cast<int>(numero)};
    return {};
}

void EtatAssistant::Choisir(const OngletLecteur& onglet)
{
    onglet_ = onglet;
    SaveSetting(SectionSettings, CleDrive,
                onglet.Choisi() ? (onglet.rangee == 1 ? "A" : "") + std::to_string(onglet.numero) : AucunOnglet);
}

char EtatAssistant::Lettre() const
{
    return onglet_.Choisi() ? Lecteurs(onglet_.rangee)[static_cast<size_t>(onglet_.numero)].lettre : char{0};
}

OngletLecteur EtatAssistant::BasculerDetails()
{
    details_ = !details_;
    SaveSetting(SectionSettings, CleMethode, details_ ? CacherDetails : MontrerDetails);
    if (details_)
        return onglet_.Choisi() ? onglet_ : AChoisir();
    if (onglet_.Choisi() && onglet_.rangee == 0)
        return onglet_;
    return Lecteurs(0).empty() ? OngletLecteur{} : OngletLecteur{0, 0};
}

bool EtatAssistant::Compression(int indice) const
{
    return compressions_[static_cast<size_t>(indice)] == "1";
}

// The 3 counts as on, as for whoever reads RAR archives while nothing is stored: kept, particularité 4.
void EtatAssistant::BasculerCompression(int indice)
{
    std::string& etat = compressions_[static_cast<size_t>(indice)];
    const int valeur = std::atoi(etat.c_str());
    etat = valeur == 1 || valeur == 3 ? "0" : "1";
    SaveSetting(SectionSettings, CleDe(indice), etat);
}

void EtatAssistant::ChoisirFiltre(int rang)
{
    filtre_ = rang;
    SaveSetting(SectionSettings, CleExtension, std::to_string(rang));
}

bool EtatAssistant::Montre(const std::string& nom) const
{
    std::string_view seul = nom;
    if (seul.ends_with('\\'))
        seul.remove_suffix(1);
    return CorrespondFiltre(FiltresFichiers()[static_cast<size_t>(filtre_)].motifs, seul);
}
