#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "browser/LectureListeFichiers.h"
#include "search/ChoixRecherche.h"
#include "search/Requete.h"
#include "store/ClesReglages.h"

// Columns behind those that all lists have, shown when the user wants them.
enum { ColMedia = NombreColonnes, ColDossier, NombreColonnesRecherche };

// What the search window holds, without its widgets: the tab, the word, the switches, dates and lists, and how the
// results are sorted. Each choice of the user is stored at once.
class EtatRecherche {
public:
    EtatRecherche();  // as the settings have it

    // The lists to choose from, as the base offers them by now, with the stored rows chosen.
    void ChargerChoix();

    int Onglet() const { return onglet_; }
    void ChoisirOnglet(int onglet);
    void RelireOnglet();  // another window may have chosen

    std::string mot;

    bool Option(int option) const { return options_[static_cast<size_t>(option)]; }
    // Turning the dates on reads them from the settings; turning them off forgets them.
    void ChangerOption(int option, bool active);

    // Whether files without a type and what lies in archives are found.
    bool SansType() const { return sansType_; }
    void ChangerSansType(bool inclus);

    // A list by its settings key "LExt", "LIdent" or "LLabel": its texts and the chosen row.
    struct Liste {
        std::string_view cle;
        std::vector<std::string> textes;
        int rang = 0;
    };
    enum { Extensions, Identifiants, Labels, NombreListes };
    const Liste& Choix(int liste) const { return listes_[static_cast<size_t>(liste)]; }
    void Choisir(int liste, int rang);

    // Start (0) and end (1) date: as shown, and as "yyyymmdd"; empty while dates are off.
    struct Jour {
        std::string legende, tag;
    };
    const Jour& Date(int rang) const { return dates_[static_cast<size_t>(rang)]; }
    // False, and the date stays, for an end before the start.
    bool FixerDate(int rang, int annee, int mois, int jour);

    // None: the order of the select.
    const std::optional<TriListe>& Tri() const { return tri_; }
    void TrierColonne(int colonne);

    // One of the two further columns.
    bool ColonneMontree(int colonne) const { return colonnes_[static_cast<size_t>(colonne - ColMedia)]; }
    void MontrerColonne(int colonne, bool montree);
    // Whether it must be known where the results lie.
    bool LieuxVoulus() const;

    DemandeRecherche Demande() const;
    FiltreRecherche Filtre() const;

private:
    void LireDates();

    int onglet_ = RechercheAvancee;
    std::array<bool, NombreOptions> options_{};
    bool sansType_ = true;
    std::array<bool, NombreColonnesRecherche - ColMedia> colonnes_{};
    std::array<Liste, NombreListes> listes_ = {{{CleLExt, {}}, {CleLIdent, {}}, {CleLLabel, {}}}};
    ChoixMedias identifiants_, labels_;
    std::array<Jour, 2> dates_;
    std::optional<TriListe> tri_;
};
