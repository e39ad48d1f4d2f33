#include "platform/FormesLocales.h"

#include <cmath>

#include <fmt/format.h>

#include "commun/Formes.h"
#include "platform/Locale.h"

namespace {

constexpr int64_t TempsParDefaut = 119600172000000000;  // stands for an unknown time: 1 January 1980, 03:00

DateHeure Date(int64_t temps)
{
    return EnDateLocale(temps != 0 ? temps : TempsParDefaut);
}

}  // namespace

std::string FormatTaille(double octets)
{
    if (octets < 1024)
        return FormatNombre(octets, 0, true) + " b";

    constexpr std::string_view unites = "KMGTPEZY";
    double x = octets / 1024;
    int i = 0;
    for (double borne = 10; x >= borne; borne *= 10)
        if (++i > 23)
            return "Out of bounds";
    const int groupe = i / 3;
    x = std::ldexp(x, -10 * groupe);
    const int chiffres = x < 10 ? 1 : x < 100 ? 2 : x < 1000 ? 3 : 4;
    return FormatNombre(x, 4 - chiffres, true) + ' ' + unites[static_cast<size_t>(groupe)] + 'b';
}

std::string FormatCapacite(double octets)
{
    constexpr std::string_view unites[] = {" Bytes", " Ko", " Mo", " Go"};
    double x = octets;
    size_t n = 0;
    while (x >= 1001 && n <= 3) {
        x /= 1024;
        ++n;
    }
    if (n == 0)
        return Str(std::llround(x)) + std::string(unites[0]);

    std::string nombre = FormatNombre(x, 2, false);
    if (nombre.starts_with('0'))
        nombre.erase(0, 1);  // the form has no obligatory digit before the separator
    return nombre.append(unites[n > 3 ? 3 : n]);
}

bool EstNumerique(std::string_view texte)
{
    texte = Trim(texte);
    if (texte.starts_with('-') || texte.starts_with('+'))
        texte.remove_prefix(1);
    bool chiffre = false;
    bool separateur = false;
    while (!texte.empty()) {
        if (texte[0] >= '0' && texte[0] <= '9') {
            chiffre = true;
            texte.remove_prefix(1);
        } else if (!separateur && (texte[0] == '.' || texte.starts_with(SeparateurDecimal()))) {
            separateur = true;
            texte.remove_prefix(texte[0] == '.' ? 1 : SeparateurDecimal().size());
        } else {
            return false;
        }
    }
    return chiffre;
}

std::string DateFichier(int64_t temps)
{
    const DateHeure date = Date(temps);
    return fmt::format("{:04}{:02}{:02}", date.annee, date.mois, date.jour);
}

std::string HeureFichier(int64_t temps)
{
    const DateHeure date = Date(temps);
    return HeureLongue(date.heure, date.minute, date.seconde);
}
