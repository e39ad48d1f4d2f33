#include "audiocd/IdentiteDisque.h"

#include <algorithm>

#include <fmt/format.h>

#include "commun/Formes.h"
#include "platform/LecteurCD.h"

namespace {

constexpr size_t NombresMaximum = 100;

int64_t Duree(const std::vector<int64_t>& trames)
{
    return trames.back() / TramesParSeconde - trames.front() / TramesParSeconde;
}

}  // namespace

int64_t Valeur(std::string_view texte)
{
    constexpr int64_t maximum = INT32_MAX;
    texte = Trim(texte);
    const bool negatif = texte.starts_with('-');
    if (negatif || texte.starts_with('+'))
        texte.remove_prefix(1);
    int64_t valeur = 0;
    for (const char c : texte) {
        if (c < '0' || c > '9')
            break;
        valeur = std::min(valeur * 10 + (c - '0'), maximum);
    }
    return negatif ? -valeur : valeur;
}

std::vector<int64_t> TramesToc(std::string_view toc)
{
    toc = Trim(toc);
    if (toc.find(' ') == toc.npos)
        return {};
    std::vector<int64_t> trames;
    for (bool encore = true; encore;) {
        encore = toc.find(' ') != toc.npos && trames.size() + 1 < NombresMaximum;
        trames.push_back(Valeur(encore ? Detacher(toc, ' ') : toc));
    }
    return trames;
}

int64_t SommeChiffres(int64_t nombre)
{
    int64_t somme = 0;
    for (; nombre > 0; nombre /= 10)
        somme += nombre % 10;
    return somme;
}

std::string ComposerIdentite(int64_t sommeChiffres, int64_t duree, int64_t pistes)
{
    return fmt::format("{:02x}{:04x}{:02x}", sommeChiffres % 255, static_cast<uint16_t>(duree), pistes);
}

std::string CalMediaID(std::string_view toc)
{
    const std::vector<int64_t> trames = TramesToc(toc);
    if (trames.empty())
        return {};
    int64_t somme = 0;
    for (size_t i = 0; i + 1 < trames.size(); ++i)
        somme += SommeChiffres(trames[i] / TramesParSeconde);
    return ComposerIdentite(somme, Duree(trames), static_cast<int64_t>(trames.size()) - 1);
}

int64_t CalAlbumlength(std::string_view toc)
{
    const std::vector<int64_t> trames = TramesToc(toc);
    return trames.empty() ? 0 : Duree(trames);
}

std::string CalTracklength(std::string_view toc)
{
    const std::vector<int64_t> trames = TramesToc(toc);
    std::string durees;
    for (size_t i = 1; i < trames.size(); ++i)
        durees += (i > 1 ? " " : "") + std::to_string((trames[i] - trames[i - 1]) / TramesParSeconde);
    return durees;
}

std::string ArgumentsRequete(std::string_view toc)
{
    const std::vector<int64_t> trames = TramesToc(toc);
    if (trames.empty())
        return {};
    std::string arguments = fmt::format("{}+{}", CalMediaID(toc), trames.size() - 1);
    for (size_t i = 0; i + 1 < trames.size(); ++i)
        arguments += fmt::format("+{}", trames[i]);
    return arguments + fmt::format("+{}", trames.back() / TramesParSeconde);
}
