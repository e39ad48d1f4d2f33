#include "archives/ListerZip.h"

#include <zip.h>

#include <algorithm>
#include <ctime>
#include <memory>
#include <string_view>

#include <fmt/format.h>

#include "archives/ConstruireTv.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/FormesLocales.h"
#include "platform/LecteurOctets.h"

namespace {

constexpr size_t LongueurNom = 255;              // characters of a path that are kept
constexpr uint64_t PlusLongProgramme = 1 << 20;  // in front of an archive that unpacks itself

// The file from `debut` on, as the library asks for it.
struct Source {
    Source(const Fichier& fichier, uint64_t premier) : lecteur(fichier, premier), debut(premier)
    {
        taille = lecteur.Reste();
        zip_error_init(&erreur);
    }
    ~Source() { zip_error_fini(&erreur); }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    zip_int64_t Lire(void* cible, uint64_t nombre)
    {
        nombre = std::min(nombre, lecteur.Reste());
        if (lecteur.Lire(cible, static_cast<size_t>(nombre)))
            return static_cast<zip_int64_t>(nombre);
        zip_error_set(&erreur, ZIP_ER_READ, 0);
        return -1;
    }

    zip_int64_t Aller(void* demande, uint64_t nombre)
    {
        const zip_int64_t place =
            zip_source_seek_compute_offset(lecteur.Position() - debut, taille, demande, nombre, &erreur);
        if (place < 0)
            return -1;
        lecteur.Aller(debut + static_cast<uint64_t>(place));
        return 0;
    }

    zip_int64_t Decrire(void* cible) const
    {
        auto* etat = static_cast<zip_stat_t*>(cible);
        zip_stat_init(etat);
        etat->size = taille;
        etat->valid = ZIP_STAT_SIZE;
        return sizeof *etat;
    }

    LecteurOctets lecteur;
    uint64_t debut;
    uint64_t taille;
    zip_error_t erreur;
};

zip_int64_t Repondre(void* etat, void* donnees, zip_uint64_t nombre, zip_source_cmd_t commande)
{
    auto& source = *static_cast<Source*>(etat);
    switch (commande) {
        case ZIP_SOURCE_SUPPORTS: return ZIP_SOURCE_SUPPORTS_SEEKABLE;
        case ZIP_SOURCE_OPEN: source.lecteur.Aller(source.debut); return 0;
        case ZIP_SOURCE_READ: return source.Lire(donnees, nombre);
        case ZIP_SOURCE_SEEK: return source.Aller(donnees, nombre);
        case ZIP_SOURCE_TELL: return static_cast<zip_int64_t>(source.lecteur.Position() - source.debut);
        case ZIP_SOURCE_STAT: return source.Decrire(donnees);
        case ZIP_SOURCE_ERROR: return zip_error_to_data(&source.erreur, donnees, nombre);
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_FREE: return 0;
        default: zip_error_set(&source.erreur, ZIP_ER_OPNOTSUPP, 0); return -1;
    }
}

using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;

// Null, and why in `erreur`, when the source holds no archive. The source must outlive the archive.
Archive Ouvrir(Source& source, int& erreur)
{
    zip_error_t raison;
    zip_error_init(&raison);
    zip_t* archive = nullptr;
    if (zip_source_t* entree = zip_source_function_create(Repondre, &source, &raison)) {
        archive = zip_open_from_source(entree, ZIP_RDONLY, &raison);
        if (!archive)
            zip_source_free(entree);
    }
    erreur = zip_error_code_zip(&raison);
    zip_error_fini(&raison);
    return {archive, &zip_discard};
}

// The path as it is shown: its first characters, without blanks around them.
std::string Nom(const char* nomMembre)
{
    const std::string texte = NomEnTexte(nomMembre);
    size_t fin = 0;
    for (size_t caracteres = 0; caracteres < LongueurNom && fin < texte.size(); ++caracteres)
        CaractereSuivant(texte, fin);
    return std::string(Trim(std::string_view(texte).substr(0, fin)));
}

// The year is told by its last two digits alone: 2003 gives "2003", but 2012 gives "0012". This is meant.
std::string Annee(int annee)
{
    const int deuxChiffres = annee % 100;
    const std::string texte = fmt::format("{}{}", deuxChiffres < 50 ? "200" : "19", deuxChiffres);
    return texte.substr(texte.size() - 4);
}

std::string Ligne(const zip_stat_t& membre)
{
    tm date{};  // the archive holds local time, which the library took for that of this machine
    localtime_r(&membre.mtime, &date);
    return fmt::format("{}:{}:{}{:02}{:02}:{}h{:02}", Nom(membre.name), FormatTaille(static_cast<double>(membre.size)),
                       Annee(date.tm_year + 1900), date.tm_mon + 1, date.tm_mday, date.tm_hour, date.tm_min);
}

void Lister(zip_t* archive, const std::stop_token& arret, ArbreArchive& tv)
{
    constexpr zip_uint64_t connus = ZIP_STAT_NAME | ZIP_STAT_SIZE | ZIP_STAT_MTIME;
    const auto nombre = static_cast<zip_uint64_t>(zip_get_num_entries(archive, 0));
    for (zip_uint64_t rang = 0; rang < nombre && !arret.stop_requested(); ++rang) {
        zip_stat_t membre;
        if (zip_stat_index(archive, rang, ZIP_FL_ENC_GUESS, &membre) != 0 || (membre.valid & connus) != connus)
            continue;
        if (membre.size > 0)
            ConstruireTv(Ligne(membre), tv);
    }
}

}  // namespace

void ListerZip(const Fichier& fichier, std::stop_token arret, ArbreArchive& tv)
{
    tv = ArbreArchive();
    int erreur = ZIP_ER_OK;
    Source source(fichier, 0);
    if (const Archive archive = Ouvrir(source, erreur))
        return Lister(archive.get(), arret, tv);
    if (erreur != ZIP_ER_NOZIP)
        return;

    // Behind a program whose length the places in the archive leave out.
    const uint64_t debut = Chercher(fichier, "PK\3\4", 0, PlusLongProgramme);
    if (debut == 0 || debut == Introuvable)
        return;
    Source suite(fichier, debut);
    if (const Archive archive = Ouvrir(suite, erreur))
        Lister(archive.get(), arret, tv);
}
