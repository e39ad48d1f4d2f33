#include "extractors/DecrirePDF.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "extractors/AjouterTexte.h"
#include "platform/LecteurOctets.h"

namespace {

constexpr std::string_view CleTitre = "/Title <FEFF", CleDate = "/CreationDate (D:", CleAuteur = "/Author <FEFF",
                           CleProducteur = "/Producer";

// The bytes that pairs of hexadecimal digits stand for, without those written "00" and without pairs of anything else;
// an odd last digit stands for itself (kept, particularité 32).
std::string Decoder(std::string_view chiffres)
{
    std::string octets;
    for (size_t place = 0; place < chiffres.size(); place += 2) {
        const std::string_view paire = chiffres.substr(place, 2);
        unsigned valeur = 0;
        const auto [fin, erreur] = std::from_chars(paire.data(), paire.data() + paire.size(), valeur, 16);
        if (erreur == std::errc() && fin == paire.data() + paire.size() && paire != "00")
            octets += static_cast<char>(valeur);
    }
    return octets;
}

bool AjouterHexadecimal(const Fichier& fichier, uint64_t debut, uint64_t fin, std::string& texte)
{
    constexpr uint64_t tailleBloc = 64 * 1024;  // even: no pair is cut
    LecteurOctets lecteur(fichier, debut);
    while (lecteur.Position() < fin) {
        const uint64_t demandes = std::min(tailleBloc, fin - lecteur.Position());
        const std::string chiffres = lecteur.Octets(demandes);
        if (chiffres.size() != demandes || !AjouterTexte(Decoder(chiffres), texte))
            return false;
    }
    return true;
}

// Appends what stands between a key, when there is one, and the first ">" behind it.
bool AjouterValeur(const Fichier& fichier, uint64_t place, std::string_view cle,
                   bool (*ajouter)(const Fichier&, uint64_t, uint64_t, std::string&), std::string& texte)
{
    if (place == Introuvable)
        return true;
    const uint64_t debut = place + cle.size();
    const uint64_t fin = Chercher(fichier, ">", debut);
    return fin != Introuvable && ajouter(fichier, debut, fin, texte);
}

// "20031225143000" as "25/12/2003 14:30:00", by places alone; what a cut file lacks is left out.
bool AjouterDate(const Fichier& fichier, uint64_t place, std::string& texte)
{
    if (place == Introuvable) {
        texte += ' ';
        return true;
    }
    const std::string date = LecteurOctets(fichier, place + CleDate.size()).Octets(14);
    const auto partie = [&date](size_t debut, size_t nombre) {
        return std::string_view(date).substr(std::min(debut, date.size()), nombre);
    };
    return AjouterTexte(fmt::format("{}/{}/{} {}:{}:{}", partie(6, 2), partie(4, 2), partie(0, 4), partie(8, 2),
                                    partie(10, 2), partie(12, 2)),
                        texte);
}

}  // namespace

bool DecrirePDF(const Fichier& fichier, std::string& resultat)
{
    if (!fichier.Ouvert())
        return false;
    const auto places = ChercherChacun(fichier, {CleTitre, CleDate, CleAuteur, CleProducteur});

    std::string texte = "Titre : ";
    if (!AjouterValeur(fichier, places[0], CleTitre, AjouterHexadecimal, texte))
        return false;
    texte += "\r\nDate de création : ";
    if (!AjouterDate(fichier, places[1], texte))
        return false;
    texte += "\r\nCréateur : ";
    if (!AjouterValeur(fichier, places[2], CleAuteur, AjouterHexadecimal, texte))
        return false;
    texte += "\r\nNom : ";
    if (!AjouterValeur(fichier, places[3], CleProducteur, AjouterTexte, texte))
        return false;
    resultat = std::move(texte);
    return true;
}
