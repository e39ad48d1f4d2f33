#include "search/ChoixRecherche.h"

#include <algorithm>

#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "store/ClesReglages.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

ChoixMedias ChargerMedias(const char* champ)
{
    ChoixMedias choix;
    choix.textes.emplace_back(Tous);
    Base base = OuvrirBase();
    for (Recordset medias = TousLesMedias(base); !medias.Eof(); medias.MoveNext()) {
        choix.textes.emplace_back(medias.Texte(champ));
        choix.numeros.push_back(medias.Entier("Num"));
    }
    return choix;
}

std::string CleMot(int64_t numero)
{
    return std::string(DebutCleSaisie) + Str(numero);
}

std::string CleOption(int option)
{
    return std::string(DebutCleRec) + Str(option);
}

int64_t NombreSaisies()
{
    constexpr double plusQuOnNEnTape = 1e6;
    return static_cast<int64_t>(std::clamp(GetSettingNombre(SectionSettings, CleCptSaisie, 0), 0.0, plusQuOnNEnTape));
}

}  // namespace

std::vector<std::string> ChargerExtension()
{
    std::vector<std::string> extensions;
    const std::string connues = ListeExtensions();
    for (std::string_view reste = connues; !reste.empty();)
        if (const std::string_view extension = Detacher(reste, '|'); !Trim(extension).empty())
            extensions.emplace_back(extension);
    std::sort(extensions.begin(), extensions.end(),
              [](const std::string& a, const std::string& b) { return ComparerFrancais(a, b) < 0; });
    extensions.emplace(extensions.begin(), Tous);
    return extensions;
}

int64_t ChoixMedias::Numero(int rang) const
{
    return rang >= 1 && static_cast<size_t>(rang) <= numeros.size() ? numeros[static_cast<size_t>(rang) - 1] : 0;
}

ChoixMedias ChargerIdentifiant()
{
    return ChargerMedias("Identifiant");
}

ChoixMedias ChargerLabel()
{
    return ChargerMedias("Label");
}

std::vector<std::string> LireSaisies()
{
    std::vector<std::string> saisies;
    const int64_t nombre = NombreSaisies();
    for (int64_t i = 1; i <= nombre; ++i)
        saisies.push_back(GetSetting(SectionSettings, CleMot(i), ""));
    return saisies;
}

void NoterSaisie(const std::string& mot)
{
    if (mot.empty())
        return;
    const std::vector<std::string> saisies = LireSaisies();
    for (const std::string& saisie : saisies)
        if (Trim(saisie) == mot)
            return;
    const auto numero = static_cast<int64_t>(saisies.size()) + 1;
    SaveSetting(SectionSettings, CleMot(numero), mot);
    SaveSettingNombre(SectionSettings, CleCptSaisie, static_cast<double>(numero));
}

bool OptionActive(int option)
{
    return GetSettingNombre(SectionSettings, CleOption(option), 0) == 1;
}

void FixerOption(int option, bool active)
{
    SaveSetting(SectionSettings, CleOption(option), active ? "1" : "0");
}
