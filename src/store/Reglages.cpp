#include "store/Reglages.h"

#include <charconv>
#include <cmath>
#include <map>
#include <mutex>

#include "platform/Chemins.h"
#include "platform/OperationsFichiers.h"

namespace {

using Section = std::map<std::string, std::string, std::less<>>;
using Sections = std::map<std::string, Section, std::less<>>;

struct Magasin {
    std::mutex verrou;
    bool lu = false;
    Sections valeurs;
    Sections nonEcrites;  // held for this process only, the file having refused them
};

Magasin& LeMagasin()
{
    static Magasin magasin;
    return magasin;
}

std::string CheminReglages()
{
    return DossierConfiguration() + "/reglages";
}

// One line per value: section, key, value between tabs; what would break a line is escaped by a backslash.
void Proteger(std::string& ligne, std::string_view texte)
{
    for (const char c : texte) {
        switch (c) {
            case '\t': ligne += "\\t"; break;
            case '\n': ligne += "\\n"; break;
            case '\\': ligne += "\\\\"; break;
            case '\0': ligne += "\\0"; break;
            default: ligne += c;
        }
    }
}

std::string Deproteger(std::string_view texte)
{
    std::string resultat;
    for (size_t i = 0; i < texte.size(); ++i) {
        if (texte[i] != '\\' || i + 1 == texte.size()) {
            resultat += texte[i];
            continue;
        }
        const char c = texte[++i];
        resultat += c == 't' ? '\t' : c == 'n' ? '\n' : c == '0' ? '\0' : c;
    }
    return resultat;
}

Sections LireReglages()
{
    std::string octets;
    LireFichier(CheminReglages(), octets);
    Sections sections;
    std::string_view reste = octets;
    while (!reste.empty()) {
        const std::string_view ligne = reste.substr(0, reste.find('\n'));
        reste.remove_prefix(std::min(ligne.size() + 1, reste.size()));
        const size_t un = ligne.find('\t');
        const size_t deux = un == std::string_view::npos ? un : ligne.find('\t', un + 1);
        if (deux == std::string_view::npos)
            continue;
        sections[Deproteger(ligne.substr(0, un))][Deproteger(ligne.substr(un + 1, deux - un - 1))] =
            Deproteger(ligne.substr(deux + 1));
    }
    return sections;
}

bool EcrireReglages(const Sections& sections)
{
    std::string octets;
    for (const auto& [section, cles] : sections) {
        for (const auto& [cle, valeur] : cles) {
            Proteger(octets, section);
            octets += '\t';
            Proteger(octets, cle);
            octets += '\t';
            Proteger(octets, valeur);
            octets += '\n';
        }
    }
    return EcrireFichier(CheminReglages(), octets, true);
}

void Superposer(Sections& sections, const Sections& dessus)
{
    for (const auto& [section, cles] : dessus) {
        for (const auto& [cle, valeur] : cles)
            sections[section][cle] = valeur;
    }
}

// Under the lock of the store; null when the key was never written.
const std::string* Chercher(Magasin& magasin, std::string_view section, std::string_view cle)
{
    if (!magasin.lu) {
        magasin.valeurs = LireReglages();
        magasin.lu = true;
    }
    const auto cles = magasin.valeurs.find(section);
    if (cles == magasin.valeurs.end())
        return nullptr;
    const auto place = cles->second.find(cle);
    return place == cles->second.end() ? nullptr : &place->second;
}

double EnNombre(std::string_view texte)
{
    texte.remove_prefix(std::min(texte.find_first_not_of(' '), texte.size()));
    if (texte.starts_with('+'))
        texte.remove_prefix(1);
    const std::string_view chiffres = texte.substr(texte.starts_with('-') ? 1 : 0);
    if (chiffres.empty() || !(chiffres[0] == '.' || (chiffres[0] >= '0' && chiffres[0] <= '9')))
        return 0;
    double valeur = 0;
    std::from_chars(texte.data(), texte.data() + texte.size(), valeur);
    return valeur;
}

}  // namespace

std::string GetSetting(std::string_view section, std::string_view cle, std::string_view defaut)
{
    Magasin& magasin = LeMagasin();
    const std::lock_guard garde(magasin.verrou);
    const std::string* valeur = Chercher(magasin, section, cle);
    return valeur ? *valeur : std::string(defaut);
}

double GetSettingNombre(std::string_view section, std::string_view cle, double defaut)
{
    Magasin& magasin = LeMagasin();
    const std::lock_guard garde(magasin.verrou);
    const std::string* valeur = Chercher(magasin, section, cle);
    return valeur ? EnNombre(*valeur) : defaut;
}

int GetSettingEntier(std::string_view section, std::string_view cle, int defaut, int maximum)
{
    const double valeur = GetSettingNombre(section, cle, defaut);
    return valeur >= 0 && valeur <= maximum ? static_cast<int>(valeur) : defaut;
}

bool SaveSetting(std::string_view section, std::string_view cle, std::string_view valeur)
{
    Magasin& magasin = LeMagasin();
    const std::lock_guard garde(magasin.verrou);
    const VerrouFichier verrou(CheminReglages() + ".verrou", true);
    // Another process may have written since: its keys are kept.
    magasin.valeurs = LireReglages();
    magasin.lu = true;
    const std::string* present = Chercher(magasin, section, cle);
    if (magasin.nonEcrites.empty() && present && *present == valeur)
        return true;
    magasin.nonEcrites[std::string(section)][std::string(cle)] = valeur;
    Superposer(magasin.valeurs, magasin.nonEcrites);
    if (!verrou.Pris() || !EcrireReglages(magasin.valeurs))
        return false;
    magasin.nonEcrites.clear();
    return true;
}

bool SaveSettingNombre(std::string_view section, std::string_view cle, double valeur)
{
    char tampon[512];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, valeur, std::chars_format::fixed).ptr;
    return SaveSetting(section, cle, {tampon, static_cast<size_t>(fin - tampon)});
}

void OublierReglages()
{
    Magasin& magasin = LeMagasin();
    const std::lock_guard garde(magasin.verrou);
    magasin.lu = false;
    magasin.valeurs.clear();
    magasin.nonEcrites.clear();
}
