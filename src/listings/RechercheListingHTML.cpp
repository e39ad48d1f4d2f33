#include "listings/RechercheListingHTML.h"

#include <fmt/format.h>

namespace {

constexpr std::string_view FinCellule = "</font></td>";

constexpr std::array<std::string_view, MediaLibre + 1> Titres = {
    "Identifiant",
    "&nbsp;&nbsp;Label",
    "&nbsp;&nbsp;Standard",
    "&nbsp;&nbsp;Type de Média",
    "&nbsp;&nbsp;N° Série",
    "&nbsp;&nbsp;Capacité totale",
    "&nbsp;&nbsp;Capacité utilisée ",
    "&nbsp;&nbsp;Capacité libre",
};

struct EnTete {
    std::string_view allume, eteint;
};
#define POLICE "size='2' face='Verdana, Arial, Helvetica, sans-serif'"
#define BLANCS "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;"
#define COULEUR " color='#FFFFFF'>"
constexpr std::string_view Etroit = "<td width='10%'>" BLANCS "</td>", Large = "<td width='25%'>" BLANCS "</td>";
constexpr std::array<EnTete, NombreColonnesListing - 1> EnTetes = {{
    {"<td width='10%'><font " POLICE COULEUR "Taille</font></td>", Etroit},
    {"<td width='25%'><font " POLICE COULEUR "Type de fichier</font></td>", Large},
    {"<td width='10%'><font " POLICE COULEUR "Date </font></td>", Etroit},
    {"<td width='10%'><font " POLICE COULEUR "Heure</font></td>", Etroit},
    {"<td width='10%'><font " POLICE COULEUR "Attribut</font></td>", Etroit},
}};
constexpr std::string_view TitreRepertoire =
    "<td width='12%'><font " POLICE COULEUR "&nbsp;&nbsp;<b>Répertoire &nbsp;&nbsp;</b>";
constexpr std::string_view CheminRepertoire = "<td width='35%'><font " POLICE " color='#FFFF00'>";
constexpr std::string_view TitreIdentifiant = "<td width='20%'><font " POLICE COULEUR "<b>&nbsp;&nbsp;Identifiant</b>";
constexpr std::string_view ValeurIdentifiant = "<td width='80%'><font " POLICE COULEUR;
constexpr std::string_view TitreMedia = "<td width='20%'><font color='#FFFFFF' " POLICE ">";
constexpr std::string_view ValeurMedia = "<td width='80%'><font color='#FFFFFF' " POLICE ">";
constexpr std::string_view FinCelluleMedia = "</font> </td>";

// `largeur` with the blank behind "<td"; the last cell has none but keeps its blank.
std::string DebutCellule(std::string_view largeur, std::string_view couleur)
{
    return fmt::format("<td {} bgcolor='{}'><font color='#6666FF' " POLICE ">", largeur, couleur);
}
#undef POLICE
#undef BLANCS
#undef COULEUR

}  // namespace

RechercheListingHTML::RechercheListingHTML(SortieListing& sortie, const ColonnesListing& colonnes)
    : EcrivainListing(sortie, colonnes)
{
    constexpr std::array<std::string_view, NombreColonnesListing + 2> largeurs = {
        "width='5%'", "width='35%'", "width='10%'", "width='15%'", "width='10%'", "width='10%'", "width='10%'", ""};
    const std::string fin = std::string(FinCellule) + "\r\n";
    for (const bool blanche : {false, true}) {
        std::array<std::string, largeurs.size()> debuts;
        for (size_t i = 0; i < largeurs.size(); ++i)
            debuts[i] = DebutCellule(largeurs[i], blanche ? "#FFFFFF" : "#CCCCCC");
        Gabarit& gabarit = gabarits_[blanche ? 1 : 0];
        for (size_t i = 0; i < gabarit.size(); ++i)
            gabarit[i] = (i == 0 ? "<tr>\r\n" + debuts[0] : std::string()) + fin + debuts[i + 1];
        gabarit.back() += fin + "</tr>";
    }
}

void RechercheListingHTML::Debut()
{
    for (const char* ligne :
         {"<html>", "<head>", "<meta name='description' content='...'>", "<meta name='keywords' content='...'>",
          "<title>Site en construction</title>", "</head>", "<body>"})
        sortie_.Ligne(ligne);
}

void RechercheListingHTML::Media(const TeteMedia& media, bool premier)
{
    if (!premier) {
        sortie_.Ligne("</table>");
        sortie_.Ligne("<br><br>");
    }
    sortie_.Ligne("<table width='100%' border='0' cellspacing='0' cellpadding='0'>");
    sortie_.Ligne("<tr bgcolor='#6666FF'>");
    sortie_.Ligne(TitreIdentifiant);
    sortie_.Ligne(FinCellule);
    sortie_.Fixe(ValeurIdentifiant).Texte(media[MediaIdentifiant]).Ligne(FinCellule);
    sortie_.Ligne("</tr>");
    for (size_t i = MediaLabel; i < media.size(); ++i) {
        sortie_.Ligne("<tr bgcolor='#0066CC'>");
        sortie_.Fixe(TitreMedia).Fixe(Titres[i]).Ligne(FinCelluleMedia);
        sortie_.Fixe(ValeurMedia).Texte(media[i]).Ligne(FinCelluleMedia);
        sortie_.Ligne("</tr>");
    }
    sortie_.Ligne("</table>");
    sortie_.Ligne("<table border='0' cellspacing='0' cellpadding='0'>");
    enTable_ = true;
}

void RechercheListingHTML::Repertoire(std::string_view chemin)
{
    for (const char* ligne : {"<tr>", "<td width='100%'>&nbsp;</font></td>", "</tr>", "<tr bgcolor='#666666'>"})
        sortie_.Ligne(ligne);
    sortie_.Ligne(TitreRepertoire);
    sortie_.Ligne(" </font></td>");
    sortie_.Fixe(CheminRepertoire).Texte(chemin).Ligne(" </font></td>");
    for (int i = ListingTaille; i < NombreColonnesListing; ++i) {
        const EnTete& enTete = EnTetes[static_cast<size_t>(i - ListingTaille)];
        sortie_.Ligne(Active(i) ? enTete.allume : enTete.eteint);
    }
    sortie_.Ligne("</tr>");
    blanche_ = false;
}

void RechercheListingHTML::Fichier(const LigneListing& ligne)
{
    const Gabarit& gabarit = gabarits_[blanche_ ? 1 : 0];
    for (size_t i = 0; i < ligne.size(); ++i)
        sortie_.Brut(gabarit[i]).Texte(ligne[i]);
    sortie_.Brut(gabarit.back()).FinLigne();
    blanche_ = !blanche_;
}

void RechercheListingHTML::Fin()
{
    if (enTable_)
        sortie_.Ligne("</table>");
    sortie_.Ligne("</body>");
}
