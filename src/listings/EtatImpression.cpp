#include "listings/EtatImpression.h"

#include <algorithm>

#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "store/ClesReglages.h"
#include "store/Reglages.h"

namespace {

constexpr const char* TousLesChoix = "Tous";

std::string Cle(std::string_view debut, int numero)
{
    return std::string(debut) + Str(numero);
}

ColonnesListing LireOpt(int defaut)
{
    ColonnesListing colonnes;
    for (int i = 0; i < NombreColonnesListing; ++i)
        colonnes[static_cast<size_t>(i)] = GetSettingNombre(SectionSettings, Cle(DebutCleOpt, i), defaut) == 1;
    return colonnes;
}

}  // namespace

ColonnesListing LireColonnesListing()
{
    return LireOpt(0);
}

EtatImpression::EtatImpression() : opt_(LireOpt(1))
{
    for (int i = 0; i < NombreFormatsListing; ++i)
        optFormat_[static_cast<size_t>(i)] = GetSettingNombre(SectionSettings, Cle(DebutCleOptFormat, i), 0) == 1;
}

void EtatImpression::ChargerMedias()
{
    textes_ = {TousLesChoix};
    numeros_ = {0};
    Base base = OuvrirBase();
    for (Recordset medias = MediasParLabel(base); !medias.Eof(); medias.MoveNext()) {
        textes_.emplace_back(medias.Texte("Label"));
        numeros_.push_back(medias.Entier("Num"));
    }
    rang_ = GetSettingEntier(SectionSettings, CleLMedias, 0, static_cast<int>(textes_.size()) - 1);
}

void EtatImpression::ChoisirMedia(int rang)
{
    rang_ = rang;
    SaveSetting(SectionSettings, CleLMedias, std::to_string(rang));
}

void EtatImpression::ChangerOpt(int colonne, bool active)
{
    opt_[static_cast<size_t>(colonne)] = active;
    SaveSetting(SectionSettings, Cle(DebutCleOpt, colonne), active ? "1" : "0");
}

bool EtatImpression::UneColonne() const
{
    return std::find(opt_.begin(), opt_.end(), true) != opt_.end();
}

void EtatImpression::ChoisirFormat(int format)
{
    for (int i = 0; i < NombreFormatsListing; ++i) {
        optFormat_[static_cast<size_t>(i)] = i == format;
        SaveSetting(SectionSettings, Cle(DebutCleOptFormat, i), i == format ? "1" : "0");
    }
    SaveSetting(SectionSettings, CleOptFormatI, std::to_string(format));
}

DemandeListing EtatImpression::Demande() const
{
    DemandeListing demande;
    demande.format =
        static_cast<FormatListing>(GetSettingEntier(SectionSettings, CleOptFormatI, 0, NombreFormatsListing - 1));
    if (static_cast<size_t>(rang_) < numeros_.size())
        demande.media = numeros_[static_cast<size_t>(rang_)];
    demande.colonnes = LireColonnesListing();
    demande.chemin = CheminListing(demande.format);
    return demande;
}
