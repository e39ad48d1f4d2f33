#include "commun/Formes.h"

#include <fmt/format.h>

#include "commun/Texte.h"

std::string Str(int64_t nombre)
{
    return fmt::format("{: d}", nombre);
}

std::string_view Trim(std::string_view texte)
{
    const size_t debut = texte.find_first_not_of(' ');
    if (debut == std::string_view::npos)
        return {};
    return texte.substr(debut, texte.find_last_not_of(' ') - debut + 1);
}

std::string ExtensionFichier(std::string_view nom)
{
    const size_t point = nom.rfind('.');
    if (point == std::string_view::npos || point + 1 == nom.size())
        return {};
    return Minuscules(nom.substr(point + 1));
}

std::string GetAttrString(uint32_t attributs)
{
    constexpr std::string_view lettres = "rhsvdalnt?lco?e";
    std::string texte(lettres.size(), '.');
    for (size_t i = 0; i < lettres.size(); ++i)
        if (attributs >> i & 1U)
            texte[i] = lettres[i];
    return texte;
}

std::string_view Detacher(std::string_view& reste, char separateur)
{
    const size_t fin = reste.find(separateur);
    const std::string_view morceau = reste.substr(0, fin);
    reste.remove_prefix(fin == std::string_view::npos ? reste.size() : fin + 1);
    return morceau;
}

char LettreBasse(char lettre)
{
    const char basse = static_cast<char>(lettre | 0x20);
    return basse >= 'a' && basse <= 'z' ? basse : '\0';
}

char LettreCapitale(char lettre)
{
    const char basse = LettreBasse(lettre);
    return basse ? static_cast<char>(basse & ~0x20) : '\0';
}
