#include "archives/ListerZip.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>

#include <fmt/compile.h>

#include "archives/ConstruireTv.h"
#include "archives/EntetesZip.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/FormesLocales.h"

namespace {

constexpr size_t LongueurNom = 255;  // characters of a path that are kept (particularité 24)

// How far from the end of the file the end of the archive is looked for, first near and then far, and how far before
// that its directory where nothing tells its place (particularité 40).
constexpr std::array<uint64_t, 3> Portees = {4 << 10, 128 << 10, 1 << 20};
constexpr uint64_t PlusLongRepertoire = 16 << 20;

// What the end of an archive tells of its central directory. Any of it may be wrong.
struct Repertoire {
    uint64_t taille;
    uint64_t place;  // from the beginning of the archive, which may lie behind a program
    uint64_t fin;    // where the record behind it stands
    bool vide;
};

// The directory of an archive whose end stands at `place`.
Repertoire LireFin(const Fichier& fichier, uint64_t place)
{
    LecteurOctets lecteur(fichier, place);
    FinZip fin;
    const bool entiere = fin.Lire(lecteur);
    Repertoire repertoire{fin.tailleRepertoire, fin.placeRepertoire, place,
                          entiere && fin.membres == 0 && fin.tailleRepertoire == 0};

    RenvoiZip64 renvoi;
    lecteur.Aller(place - std::min(place, RenvoiZip64::Taille));
    if (place < RenvoiZip64::Taille + FinZip64::Taille || !renvoi.Lire(lecteur))
        return repertoire;
    // Where it says, or, when a program in front was not counted, directly before.
    for (const uint64_t candidat : {renvoi.place, place - RenvoiZip64::Taille - FinZip64::Taille}) {
        FinZip64 grande;
        lecteur.Aller(candidat);
        if (candidat >= place || !grande.Lire(lecteur))
            continue;
        if (fin.tailleRepertoire == UINT32_MAX)
            repertoire.taille = grande.tailleRepertoire;
        if (fin.placeRepertoire == UINT32_MAX)
            repertoire.place = grande.placeRepertoire;
        repertoire.fin = candidat;
        break;
    }
    return repertoire;
}

bool MembreA(const Fichier& fichier, uint64_t place)
{
    std::array<char, 4> signature;
    LecteurOctets lecteur(fichier, place);
    return lecteur.PetitBoutiste(signature) &&
           std::string_view(signature.data(), signature.size()) == MembreZip::Signature;
}

// The first member whose record, with those that follow it, leads to the end of the directory.
std::optional<uint64_t> ChercherSuite(const Fichier& fichier, uint64_t fin)
{
    LecteurOctets lecteur(fichier);
    MembreZip membre;
    uint64_t place = fin - std::min(fin, PlusLongRepertoire);
    while ((place = Chercher(fichier, MembreZip::Signature, place, fin)) != Introuvable) {
        const uint64_t debut = place;
        lecteur.Aller(place);
        while (membre.Lire(lecteur))
            place = lecteur.Position();
        if (place == fin)
            return debut;
        place = std::max(place, debut + MembreZip::Signature.size());
    }
    return std::nullopt;
}

// Where the directory begins: before its end by its size, as a program in front may not be counted, else at the place
// given.
std::optional<uint64_t> DebutRepertoire(const Fichier& fichier, const Repertoire& repertoire)
{
    if (repertoire.taille <= repertoire.fin && MembreA(fichier, repertoire.fin - repertoire.taille))
        return repertoire.fin - repertoire.taille;
    if (repertoire.place < repertoire.fin && MembreA(fichier, repertoire.place))
        return repertoire.place;
    return std::nullopt;
}

// The directory of the last archive in the file: of the last end that has one.
std::optional<uint64_t> TrouverRepertoire(const Fichier& fichier)
{
    constexpr int essais = 100;  // a comment may hold what looks like an end, but not without end

    const uint64_t taille = fichier.Taille();
    bool cherchee = false;  // the suite of the last end
    for (const uint64_t portee : Portees) {
        const uint64_t debut = taille - std::min(taille, portee);
        const std::string suite = LecteurOctets(fichier, debut).Octets(portee);
        size_t place = suite.rfind(FinZip::Signature);
        for (int essai = 0; essai < essais && place != std::string::npos; ++essai) {
            const Repertoire repertoire = LireFin(fichier, debut + place);
            if (repertoire.vide)
                return std::nullopt;
            if (const auto trouve = DebutRepertoire(fichier, repertoire))
                return trouve;
            if (const auto trouve = cherchee ? std::nullopt : ChercherSuite(fichier, repertoire.fin))
                return trouve;
            cherchee = true;
            place = place > 0 ? suite.rfind(FinZip::Signature, place - 1) : std::string::npos;
        }
        if (debut == 0)
            break;
    }
    return std::nullopt;
}

// The path as it is shown: its first characters, without blanks around them.
std::string_view Montrer(std::string_view nom)
{
    size_t fin = std::min(nom.size(), LongueurNom);  // no shorter than its characters
    if (fin < nom.size())
        for (size_t caracteres = fin = 0; caracteres < LongueurNom && fin < nom.size(); ++caracteres)
            CaractereSuivant(nom, fin);
    return Trim(nom.substr(0, fin));
}

// The year is told by its last two digits alone: 2003 stays, but 2012 becomes 12 (kept, particularité 16).
int Annee(int annee)
{
    const int deuxChiffres = annee % 100;
    return deuxChiffres + (deuxChiffres < 10 ? 2000 : deuxChiffres < 50 ? 0 : 1900);
}

// Date and time as the bits say, whether the calendar has them or not.
std::string Ligne(const MembreZip& membre, uint64_t taille)
{
    const int annee = 1980 + (membre.date >> 9), mois = membre.date >> 5 & 15, jour = membre.date & 31;
    const int heure = membre.heure >> 11, minute = membre.heure >> 5 & 63;
    std::string ligne(Montrer(NomZip(membre)));
    fmt::format_to(std::back_inserter(ligne), FMT_COMPILE(":{}:{:04}{:02}{:02}:{}h{:02}"),
                   FormatTaille(static_cast<double>(taille)), Annee(annee), mois, jour, heure, minute);
    return ligne;
}

}  // namespace

void ListerZip(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv)
{
    tv = ArbreArchive();
    const auto debut = TrouverRepertoire(fichier);
    if (!debut)
        return;
    // The count at the end is not asked: what is a member's record is a member. Those that hold nothing, folders among
    // them, have no line (kept, particularité 22).
    LecteurOctets lecteur(fichier, *debut);
    for (MembreZip membre; !arret.stop_requested() && membre.Lire(lecteur);)
        if (const uint64_t taille = TailleReelle(membre); taille > 0)
            ConstruireTv(Ligne(membre, taille), tv);
}
