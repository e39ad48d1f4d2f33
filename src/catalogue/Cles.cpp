#include "catalogue/Cles.h"

#include <utility>

#include <fmt/format.h>

#include "commun/Formes.h"

std::string CodeRepertoire(int64_t nombre)
{
    return fmt::format("{:09}", nombre);
}

CleNoeud AnalyserCle(std::string_view cle)
{
    CleNoeud resultat;
    resultat.archive = EstCleArchive(cle);
    const std::string_view texte = resultat.archive ? Trim(cle.substr(1)) : cle;
    const size_t separateur = texte.find(resultat.archive ? ' ' : '-');
    if (separateur == std::string_view::npos)
        return resultat;

    std::string_view avant = Trim(texte.substr(0, separateur)), apres = texte.substr(separateur + 1);
    if (resultat.archive)
        std::swap(avant, apres);
    resultat.valide = true;
    resultat.catalogue = avant;
    resultat.code = apres;
    return resultat;
}

bool EstCleArchive(std::string_view cle)
{
    return cle.starts_with('A');
}

bool EstCleDansArchive(std::string_view cle)
{
    return cle.find('A') != std::string_view::npos;
}

std::string CleRepertoire(int64_t catalogue, std::string_view code)
{
    return Str(catalogue) + "-" + std::string(code);
}

std::string CleArchive(int64_t ligne, int64_t catalogue)
{
    return "A" + Str(ligne) + Str(catalogue);
}

CleItem AnalyserCleItem(std::string_view cle)
{
    const size_t tiret = cle.find('-');
    if (tiret == std::string_view::npos)
        return {};
    return {std::string(Trim(cle.substr(0, tiret))), std::string(Trim(cle.substr(tiret + 1)))};
}

CleResultat AnalyserCleResultat(std::string_view cle)
{
    const size_t tiret = cle.find('-'), diese = cle.find('#');
    if (tiret == cle.npos || diese == cle.npos || diese < tiret)
        return {};
    CleResultat resultat;
    resultat.noeud = cle.substr(0, diese);
    if (EstCleArchive(cle.substr(tiret + 1)))
        resultat.noeud.erase(0, tiret + 1);
    resultat.item = std::string(cle.substr(0, tiret + 1)).append(cle.substr(diese + 1));
    resultat.catalogue = Trim(cle.substr(0, tiret));
    resultat.ligne = Trim(cle.substr(diese + 1));
    return resultat;
}
