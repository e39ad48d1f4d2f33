#include "search/EtatRecherche.h"

#include <fmt/format.h>

#include "commun/Formes.h"
#include "platform/Locale.h"
#include "store/ClesReglages.h"
#include "store/Reglages.h"

namespace {

constexpr int NombreOnglets = 3;

std::string CleDate(int rang)
{
    return std::string(DebutCleDate) + Str(rang);
}

EtatRecherche::Jour FaireJour(const DateHeure& date)
{
    return {DateCourteEntiere(date), fmt::format("{:04}{:02}{:02}", date.annee, date.mois, date.jour)};
}

}  // namespace

EtatRecherche::EtatRecherche()
{
    for (int option = 0; option < NombreOptions; ++option)
        options_[static_cast<size_t>(option)] = OptionActive(option);
    if (Option(OptionDates))
        LireDates();
    if (!GetSetting(SectionRecLvListView, CleSortKey, "").empty())
        tri_ = TriListe{GetSettingEntier(SectionRecLvListView, CleSortKey, ColTaille, NombreColonnesRecherche - 1),
                        GetSettingEntier(SectionRecLvListView, CleSortOrder, 0, 1) == 1};
    sansType_ = GetSettingNombre(SectionSettings, CleRecSansType, 1) != 0;
    for (size_t i = 0; i < colonnes_.size(); ++i)
        colonnes_[i] = GetSettingNombre(SectionLvListView, CleRecColonnes[i], 0) == 1;
    RelireOnglet();
}

void EtatRecherche::RelireOnglet()
{
    onglet_ = GetSettingEntier(SectionLvListView, CleOnglet, RechercheAvancee, NombreOnglets - 1);
}

void EtatRecherche::ChoisirOnglet(int onglet)
{
    onglet_ = onglet;
    SaveSetting(SectionLvListView, CleOnglet, std::to_string(onglet));
}

void EtatRecherche::ChargerChoix()
{
    identifiants_ = ChargerIdentifiant();
    labels_ = ChargerLabel();
    listes_[Extensions].textes = ChargerExtension();
    listes_[Identifiants].textes = identifiants_.textes;
    listes_[Labels].textes = labels_.textes;
    for (Liste& liste : listes_)
        liste.rang = GetSettingEntier(SectionSettings, liste.cle, 0, static_cast<int>(liste.textes.size()) - 1);
}

void EtatRecherche::Choisir(int liste, int rang)
{
    listes_[static_cast<size_t>(liste)].rang = rang;
    SaveSetting(SectionSettings, listes_[static_cast<size_t>(liste)].cle, std::to_string(rang));
}

void EtatRecherche::ChangerOption(int option, bool active)
{
    options_[static_cast<size_t>(option)] = active;
    FixerOption(option, active);
    if (option != OptionDates)
        return;
    dates_ = {};
    if (active)
        LireDates();
}

void EtatRecherche::ChangerSansType(bool inclus)
{
    sansType_ = inclus;
    SaveSetting(SectionSettings, CleRecSansType, inclus ? "1" : "0");
}

void EtatRecherche::MontrerColonne(int colonne, bool montree)
{
    const auto i = static_cast<size_t>(colonne - ColMedia);
    colonnes_[i] = montree;
    SaveSetting(SectionLvListView, CleRecColonnes[i], montree ? "1" : "0");
}

bool EtatRecherche::LieuxVoulus() const
{
    return ColonneMontree(ColMedia) || ColonneMontree(ColDossier) || (tri_ && tri_->colonne >= ColMedia);
}

void EtatRecherche::LireDates()
{
    for (int rang = 0; rang < 2; ++rang) {
        DateHeure date;
        if (!LireDateCourte(GetSetting(SectionSettings, CleDate(rang), ""), date))
            date = Aujourdhui();
        dates_[static_cast<size_t>(rang)] = FaireJour(date);
    }
}

bool EtatRecherche::FixerDate(int rang, int annee, int mois, int jour)
{
    const Jour nouveau = FaireJour({annee, mois, jour});
    if (rang == 1 && nouveau.tag < dates_[0].tag)
        return false;
    dates_[static_cast<size_t>(rang)] = nouveau;
    SaveSetting(SectionSettings, CleDate(rang), nouveau.legende);
    return true;
}

// The order kept for the next start is the one before the click turns it round: kept, particularité 3.
void EtatRecherche::TrierColonne(int colonne)
{
    const bool avant = tri_ && tri_->decroissant;
    SaveSetting(SectionRecLvListView, CleSortKey, std::to_string(colonne));
    SaveSetting(SectionRecLvListView, CleSortOrder, avant ? "1" : "0");
    tri_ = TriListe{colonne, !avant};
}

DemandeRecherche EtatRecherche::Demande() const
{
    DemandeRecherche demande;
    demande.onglet = onglet_;
    if (onglet_ == RechercheIdentifiant)
        demande.media = identifiants_.Numero(listes_[Identifiants].rang);
    if (onglet_ == RechercheLabelMedia)
        demande.media = labels_.Numero(listes_[Labels].rang);
    demande.noms = OptionActive(OptionNoms);
    demande.descriptions = OptionActive(OptionDescriptions);
    demande.mot = mot;
    return demande;
}

FiltreRecherche EtatRecherche::Filtre() const
{
    FiltreRecherche filtre;
    const Liste& extensions = listes_[Extensions];
    if (static_cast<size_t>(extensions.rang) < extensions.textes.size())
        filtre.extension = extensions.textes[static_cast<size_t>(extensions.rang)];
    filtre.debut = dates_[0].tag;
    filtre.fin = dates_[1].tag;
    filtre.sansType = sansType_;
    const bool parExtension = Option(OptionExtensions) && Trim(filtre.extension) != Trim(Tous);
    const bool parDates = Option(OptionDates) && !filtre.debut.empty() && !filtre.fin.empty();
    filtre.mode = ChoisirMode(onglet_, parExtension, parDates);
    return filtre;
}
