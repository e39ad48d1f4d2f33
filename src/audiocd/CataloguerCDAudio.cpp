#include "audiocd/CataloguerCDAudio.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include <fmt/format.h>

#include "audiocd/ConfigurationCddb.h"
#include "catalogue/Cles.h"
#include "catalogue/Descriptions.h"
#include "catalogue/Medias.h"
#include "catalogue/TexteArbre.h"
#include "commun/Formes.h"
#include "extraction/TypesFichiers.h"
#include "platform/Parcours.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"
#include "store/Transaction.h"

namespace {

constexpr std::string_view Extension = "cda";
constexpr std::string_view FinLigne = "\r\n";

// Fields of a disc, from the lookup or from its CD-Text. Titles by track, from 0.
struct TextesCD {
    std::string artiste, album, genre, annee;
    std::vector<std::string> titres;

    std::string Titre(int piste) const
    {
        const auto rang = static_cast<size_t>(piste) - 1;
        return rang < titres.size() ? titres[rang] : std::string();
    }
};

TextesCD LireCdTexte(std::string_view texte)
{
    constexpr size_t maximum = 120;
    std::vector<std::string> parts;
    while (texte.find('|') != texte.npos && parts.size() + 1 < maximum)
        parts.emplace_back(Detacher(texte, '|'));
    parts.emplace_back(texte);
    parts.resize(std::max<size_t>(parts.size(), 5));
    return {parts[0], parts[1], parts[2], parts[3], {parts.begin() + 5, parts.end()}};
}

TextesCD LireTextes(const uFREEDB& freedb)
{
    TextesCD textes{freedb.GetArtistName(), freedb.GetAlbumName(), freedb.GetAlbumGenre(), freedb.GetAlbumYear(), {}};
    for (int piste = 1; piste <= freedb.GetAlbumTracks(); ++piste)
        textes.titres.push_back(freedb.GetTrackName(piste));
    return textes;
}

std::string Lignes(std::initializer_list<std::pair<std::string_view, std::string_view>> lignes, bool sansVides)
{
    std::string texte;
    for (const auto& [titre, valeur] : lignes)
        if (!sansVides || !valeur.empty())
            texte.append(titre).append(valeur).append(FinLigne);
    return texte;
}

// Minutes and seconds taken as a time of the day, where they are one.
std::string HeurePiste(int secondes, const std::string& duree)
{
    const std::string heure = secondes >= 0 ? HeureLongue(secondes / 60, secondes % 60, 0) : std::string();
    return heure.empty() ? duree : heure;
}

std::string Pourcentage(double part)
{
    const std::string nombre = FormatNombre(part * 100, 2, false);
    return (part < 0.1 ? "0" : "") + nombre + " %";
}

class RunCDAudio {
public:
    RunCDAudio(const DemandeCDAudio& demande, const InterfacesCDAudio& interfaces, SuiviCDAudio& suivi,
               std::stop_token arret)
        : demande_(demande),
          lecteur_({LettreCapitale(demande.lettre), ':'}),
          freedb_(interfaces.machine, interfaces.choix),
          suivi_(suivi),
          arret_(std::move(arret))
    {
    }

    FinExtraction LectureCdAudio();

private:
    FinExtraction AjouterCdAudio(bool cdTexte);
    std::string DescriptionMedia(bool cdTexte) const;
    bool AjouterRacine(Course& course, Recordset& enregistrements);
    bool AjouterPiste(Course& course, Recordset& enregistrements, int piste, const TextesCD& textes);
    bool AjouterPistes(Course& course, Recordset& enregistrements, const TextesCD& textes);
    std::string NomPiste(int piste) const { return fmt::format("Track{:02}.{}", piste, Extension); }
    std::string Duree(int piste) const { return freedb_.SecondsToTimeString(freedb_.GetTrackTime(piste)); }

    const DemandeCDAudio& demande_;
    const std::string lecteur_;  // "D:"
    uFREEDB freedb_;
    SuiviCDAudio& suivi_;
    const std::stop_token arret_;
    Avancement avancement_;
    TypesFichiers types_;
    std::string date_ = DatePiste(EnDateLocale(Maintenant()));
    long etat_ = MATCH_NONE;
};

// What a server knows goes before what the disc says of itself.
FinExtraction RunCDAudio::LectureCdAudio()
{
    avancement_.pourcentage = "0 %";
    suivi_.Publier(avancement_);
    InitUFreedb(freedb_, demande_.haut, demande_.gauche);
    if (demande_.reglages)
        demande_.reglages(freedb_);
    const std::string toc = freedb_.GetMediaTOC(lecteur_, arret_);
    etat_ = freedb_.LookupMediaByToc(toc, arret_);
    if (etat_ != MATCH_NONE)
        return AjouterCdAudio(false);
    return AjouterCdAudio(GetSettingNombre(SectionDescriptions, "CDText", 0) != 0);
}

// Titles are the lookup's, even beside CD-Text: kept, particularité 49.
std::string RunCDAudio::DescriptionMedia(bool cdTexte) const
{
    std::string texte;
    if (cdTexte && !freedb_.GetCdText().empty()) {
        const TextesCD cd = LireCdTexte(freedb_.GetCdText());
        texte = Lignes(
            {{"Album  : ", cd.album}, {"Artiste  : ", cd.artiste}, {"Genre  : ", cd.genre}, {"Année  : ", cd.annee}},
            true);
    } else if (etat_ != MATCH_NONE) {
        texte = Lignes({{"Album  : ", freedb_.GetAlbumName()},
                        {"Artiste  : ", freedb_.GetArtistName()},
                        {"Catégorie: ", freedb_.GetAlbumCategory()},
                        {"Genre  : ", freedb_.GetAlbumGenre()},
                        {"Durée  : ", freedb_.SecondsToTimeString(freedb_.GetAlbumLength())},
                        {"Année  : ", freedb_.GetAlbumYear()}},
                       false);
    }
    for (int piste = 1; piste <= freedb_.GetAlbumTracks(); ++piste) {
        std::string nom = freedb_.GetTrackName(piste);
        if (nom.empty())
            nom = fmt::format("Track{:02}", piste);
        texte += fmt::format("{:02} : {} - {}{}", piste, nom, Duree(piste), FinLigne);
    }
    return texte;
}

bool RunCDAudio::AjouterRacine(Course& course, Recordset& enregistrements)
{
    LigneFichier ligne;
    ligne.nom = lecteur_;
    ligne.code = 1;
    ligne.taille = ligne.type = ligne.date = ligne.heure = " ";
    ligne.attribut = "D";
    return AjouterFichier(course, ligne, enregistrements);
}

bool RunCDAudio::AjouterPiste(Course& course, Recordset& enregistrements, int piste, const TextesCD& textes)
{
    const std::string nom = NomPiste(piste);
    const std::string duree = Duree(piste);
    const std::string heure = HeurePiste(freedb_.GetTrackTime(piste), duree);
    const std::string titre = textes.Titre(piste);
    const std::string dureeAlbum = freedb_.SecondsToTimeString(freedb_.GetAlbumLength());
    const std::string description = Lignes({{"Album  : ", textes.album},
                                            {"Artiste : ", textes.artiste},
                                            {"Année   : ", textes.annee},
                                            {"Genre   : ", textes.genre},
                                            {"Titre    : ", titre},
                                            {"Durée du morceau : ", duree},
                                            {"Durée du l'album : ", dureeAlbum}},
                                           false);
    const std::string attribut = GetAttrString(AttributLectureSeule);
    const std::string alias = fmt::format("Piste N° {}", piste);
    const std::string chemin = lecteur_ + '\\' + nom + '\\';

    LigneFichier ligne;
    ligne.nom = nom;
    ligne.taille = " ";
    ligne.type = types_.Nom(std::string(Extension));
    ligne.date = date_;
    ligne.heure = heure;
    ligne.attribut = attribut;
    ligne.repertoire = 1;
    ligne.chemin = chemin;
    ligne.extension = Extension;
    ligne.description = description;
    ligne.alias = alias;
    return AjouterFichier(course, ligne, enregistrements);
}

bool RunCDAudio::AjouterPistes(Course& course, Recordset& enregistrements, const TextesCD& textes)
{
    const int pistes = freedb_.GetAlbumTracks();
    for (int piste = 1; piste <= pistes && !arret_.stop_requested(); ++piste) {
        avancement_.part = static_cast<double>(piste) / pistes;
        avancement_.pourcentage = Pourcentage(avancement_.part);
        avancement_.ligne = lecteur_ + '\\' + NomPiste(piste);
        course.compteurs.fichiers = piste;
        avancement_.compteurs = course.compteurs;
        suivi_.Publier(avancement_);
        if (!AjouterPiste(course, enregistrements, piste, textes))
            return false;
    }
    return true;
}

FinExtraction RunCDAudio::AjouterCdAudio(bool cdTexte)
{
    if (arret_.stop_requested())
        return FinExtraction::Abandonnee;
    AjouterExtension(Extension);
    Base base = OpenDatabase(demande_.base);
    Transaction transaction(base);
    if (!transaction.Ouverte())
        return FinExtraction::Echec;

    Course course{base, demande_.media, arret_};
    Recordset enregistrements = base.OpenRecordset("Liste");
    const TextesCD textes = cdTexte ? LireCdTexte(freedb_.GetCdText()) : LireTextes(freedb_);
    bool ecrit = AjouterRacine(course, enregistrements) && AjouterPistes(course, enregistrements, textes);
    enregistrements.Close();
    if (const std::string description = DescriptionMedia(cdTexte); ecrit && !description.empty()) {
        ecrit = ModifierDescriptionFichier(base, demande_.media, description);
        ++course.compteurs.descriptions;
    }
    avancement_.compteurs = course.compteurs;
    if (arret_.stop_requested() || !ecrit)
        return ecrit ? FinExtraction::Abandonnee : FinExtraction::Echec;
    EnregistrerExtensions(base);
    std::string arbre;
    AjouterElement(arbre, {"", CleMedia(demande_.media), lecteur_});
    if (!ModifierCatalogue(demande_.media, true, arbre, demande_.base) || !transaction.Valider())
        return FinExtraction::Echec;
    suivi_.Publier(avancement_);
    return FinExtraction::Complete;
}

}  // namespace

void InitUFreedb(uFREEDB& freedb, long haut, long gauche)
{
    freedb.AppName(TitreApplication);
    freedb.AppVersion(VersionApplication());
    uFREEDB::CDDBInterface(0);
    freedb.CDDBMode(0);
    freedb.AllowSubmission(false);
    freedb.UseFirstMatch(false);
    uFREEDB::PopUpLocTop(haut);
    uFREEDB::PopUpLocLeft(gauche);
    freedb.CDDBServer(GetSetting(SectionFreedb, CleServeur, ServeurCddbParDefaut));
    freedb.EmailAddress(AdresseHello);
    // The preferences show this switch as off as long as it was never touched: kept, particularité 44.
    const bool locale = GetSettingNombre(SectionSettings, CleBaseLocale, 1) != 0;
    freedb.QueryLocalDatabase(locale);
    if (locale)
        freedb.CDDBFilePath(GetSetting(SectionFreedb, CleBaseLocale, ""));
}

Avancement SuiviCDAudio::Lire() const
{
    const std::lock_guard garde(verrou_);
    return publie_;
}

void SuiviCDAudio::Publier(Avancement avancement)
{
    const std::lock_guard garde(verrou_);
    publie_ = std::move(avancement);
}

std::string DatePiste(const DateHeure& date)
{
    using namespace std::chrono;
    const year annee{date.annee};
    const sys_days jour = annee / month{static_cast<unsigned>(date.mois)} / day{static_cast<unsigned>(date.jour)};
    const auto rang = (jour - sys_days{annee / January / 1}).count() + 1;
    return fmt::format("{:04}{}{}{:02}", date.annee, rang, date.mois, date.jour);
}

FinExtraction CataloguerCDAudio(const DemandeCDAudio& demande, const InterfacesCDAudio& interfaces, SuiviCDAudio& suivi,
                                std::stop_token arret)
{
    const FinExtraction fin = RunCDAudio(demande, interfaces, suivi, std::move(arret)).LectureCdAudio();
    if (fin != FinExtraction::Complete) {
        SupprimerMedia(std::to_string(demande.media), demande.base);
        return fin;
    }
    Avancement avancement = suivi.Lire();
    avancement.pourcentage = "100 %";
    avancement.part = 1;
    suivi.Publier(std::move(avancement));
    FixerIconesARecharger(true);
    CompacterBase();
    FixerArbreARecharger(true);
    FixerMediaAMontrer(demande.media);
    return fin;
}
