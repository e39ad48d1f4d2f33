#include "search/Requete.h"

#include "commun/Formes.h"
#include "commun/Texte.h"

namespace {

std::string ParDescription(const std::string& mot)
{
    return " Description like '" + mot + "' ";
}

std::string ParNom(const std::string& mot, const char* ou)
{
    return "Nom like '" + mot + ou + mot + "'";
}

}  // namespace

// The blanks of these texts are as they are. Which switches and media count: kept, particularité 60; the word with "'":
// kept, particularité 61.
std::string CorpsRecherche(const DemandeRecherche& demande)
{
    constexpr const char* ou = "' or  Alias like '";
    constexpr const char* ouDansMedia = "' or Alias like '";
    const std::string& mot = demande.mot;
    const bool dansMedia = demande.onglet != RechercheAvancee && demande.media != 0;

    if (demande.descriptions && !demande.noms)
        return ParDescription(mot);
    if (dansMedia && demande.descriptions)
        return " NCatalogue = " + Str(demande.media) + " and (" + ParDescription(mot) + " or (" +
               ParNom(mot, ouDansMedia) + ")) ";
    if (dansMedia)
        return " NCatalogue = " + Str(demande.media) + " and (" + ParNom(mot, ouDansMedia) + ") ";
    if (demande.descriptions)
        return ParDescription(mot) + " or (" + ParNom(mot, ou) + ") ";
    return " " + ParNom(mot, ou) + " ";
}

std::string TexteRecherche(const DemandeRecherche& demande)
{
    const char* debut =
        demande.onglet == RechercheAvancee ? "select * from Liste where  " : "select * from Liste where ";
    return debut + CorpsRecherche(demande) + " order by Nom asc";
}

std::string ExpliquerRien(const DemandeRecherche& demande, const FiltreRecherche& filtre)
{
    if (demande.mot.empty())
        return "Aucun mot à rechercher : saisir * pour tout trouver";
    if (demande.mot.find('\'') != std::string::npos)
        return "Un mot qui contient une apostrophe (') ne trouve rien : saisir ? à sa place";
    if ((filtre.mode & FiltreDates) && filtre.debut > filtre.fin)
        return "La date de début est après la date de fin";
    if (demande.mot.find_first_of("*?") == std::string::npos)
        return "Sans *, seul le texte entier compte : saisir *" + demande.mot + "* pour ce qui contient le mot";
    return {};
}

int ChoisirMode(int onglet, bool parExtension, bool parDates)
{
    if (onglet != RechercheAvancee)
        return FiltreAucun;
    return (parExtension ? FiltreExtension : 0) | (parDates ? FiltreDates : 0);
}

bool PasseFiltre(const FiltreRecherche& filtre, std::string_view nom, std::string_view date)
{
    if (filtre.mode & FiltreExtension) {
        const size_t point = nom.rfind('.');
        const std::string_view extension = point == nom.npos ? std::string_view() : nom.substr(point + 1);
        if (point == nom.npos || Minuscules(Trim(filtre.extension)) != Minuscules(extension))
            return false;
    }
    return !(filtre.mode & FiltreDates) || (date >= filtre.debut && date <= filtre.fin);
}
