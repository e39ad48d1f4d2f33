#include "audiocd/ChoixCddb.h"

#include "commun/Formes.h"
#include "commun/Texte.h"
#include "store/Reglages.h"

namespace {

// At most fifteen pieces of a line, cut at blanks.
std::vector<std::string_view> Morceaux(std::string_view ligne)
{
    constexpr size_t maximum = 15;
    std::vector<std::string_view> morceaux;
    while (ligne.find(' ') != ligne.npos && morceaux.size() + 1 < maximum)
        morceaux.push_back(Detacher(ligne, ' '));
    morceaux.push_back(ligne);
    return morceaux;
}

}  // namespace

std::string RangeeServeur(std::string_view ligne)
{
    const std::vector<std::string_view> morceaux = Morceaux(ligne);
    const auto morceau = [&](size_t rang) {
        return std::string(rang < morceaux.size() ? morceaux[rang] : std::string_view());
    };
    std::string rangee = morceau(0) + '\t' + morceau(4) + '\t' + morceau(5) + '\t';
    for (size_t rang = 6; rang < morceaux.size(); ++rang)
        rangee += morceau(rang) + ' ';
    return rangee;
}

std::string HoteServeur(std::string_view ligne)
{
    return std::string(Morceaux(ligne)[0]);
}

// A row without ".org" gives its first three characters: kept, particularité 43.
void EnregistrerServeur(std::string_view rangee)
{
    constexpr std::string_view fin = ".org";
    constexpr size_t debut = 3;
    const size_t place = rangee.find(fin);
    size_t longueur = 0;
    if (place != rangee.npos)
        longueur = place + fin.size();
    else
        for (size_t n = 0; n < debut && longueur < rangee.size(); ++n)
            CaractereSuivant(rangee, longueur);
    SaveSetting(SectionFreedb, "Serveur", rangee.substr(0, longueur));
}
