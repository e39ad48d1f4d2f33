#include "catalogue/Cles.h"

#include <utility>

#include <fmt/format.h>

#include "commun/Formes.h"

std::string CodeRepertoire(int64_t nombre)
{
    return fmt::format("{:09}", nombre);
}

std::string CodeArchive(int64_t ligne, int64_t media, int64_t place)
{
    return "A" + Str(ligne) + Str(media + place - 1);
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
    resultat.contenu = resultat.archive ? cle : apres;
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
    return Str(catalogue).append("-").append(code);
}

std::string CleRepertoire(std::string_view catalogue, std::string_view code)
{
    return std::string(" ").append(catalogue).append("-").append(code);
}

std::string CleMedia(int64_t catalogue)
{
    return CleRepertoire(catalogue, CodeRacine);
}

std::string CleArchive(int64_t ligne, int64_t catalogue)
{
    return "A" + Str(ligne) + Str(catalogue);
}

std::string CleContenant(std::string_view catalogue, std::string_view code)
{
    return EstCleArchive(code) && AnalyserCle(code).catalogue == catalogue ? std::string(code)
                                                                           : CleRepertoire(catalogue, code);
}

std::string CleFichier(int64_t catalogue, int64_t ligne)
{
    return CleRepertoire(catalogue, Str(ligne));
}

std::string CleResultatDe(int64_t catalogue, std::string_view code, int64_t ligne)
{
    return CleRepertoire(catalogue, code).append("#").append(Str(ligne));
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
    resultat.catalogue = Trim(cle.substr(0, tiret));
    resultat.noeud = CleContenant(resultat.catalogue, cle.substr(tiret + 1, diese - tiret - 1));
    resultat.item = std::string(cle.substr(0, tiret + 1)).append(cle.substr(diese + 1));
    resultat.ligne = Trim(cle.substr(diese + 1));
    return resultat;
}
