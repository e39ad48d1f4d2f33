#include "audiocd/uFREEDB.h"

#include <cstdlib>

#include <fmt/format.h>

#include "audiocd/BaseLocaleCddb.h"
#include "audiocd/ConfigurationCddb.h"
#include "audiocd/IdentiteDisque.h"
#include "audiocd/cASPI.h"
#include "audiocd/cMCI.h"
#include "audiocd/cSPTI.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/Lecteurs.h"
#include "platform/OperationsFichiers.h"
#include "store/Reglages.h"

namespace {

constexpr std::string_view Agent = "uFreedb";

enum ErreurCddb : long { SansAdresse = 8880, SansDossierLocal = 8885, ErreurInconnue = 8888 };

std::string Remplacer(std::string_view texte, std::string_view ancien, std::string_view nouveau)
{
    std::string resultat;
    for (size_t place = 0; (place = texte.find(ancien)) != texte.npos;) {
        resultat.append(texte.substr(0, place)).append(nouveau);
        texte.remove_prefix(place + ancien.size());
    }
    return resultat.append(texte);
}

// "*@[A-Z,a-z,0-9]*.*"
bool AdresseAdmise(std::string_view adresse)
{
    for (size_t place = adresse.find('@'); place != adresse.npos; place = adresse.find('@', place + 1)) {
        const std::string_view hote = adresse.substr(place + 1);
        const char c = hote.empty() ? '\0' : hote[0];
        if ((LettreBasse(c) || (c >= '0' && c <= '9') || c == ',') && hote.find('.', 1) != hote.npos)
            return true;
    }
    return false;
}

// One byte per character; what has none becomes "?".
std::string EnAnsi(std::string_view texte)
{
    std::string octets;
    for (size_t place = 0; place < texte.size();) {
        const size_t debut = place;
        CaractereSuivant(texte, place);
        std::string octet;
        octets += TexteEnAnsi(texte.substr(debut, place - debut), octet) ? octet : "?";
    }
    return octets;
}

}  // namespace

uFREEDB::uFREEDB(MachineCD& machine, ChoixCddb& choix)
    : machine_(machine),
      choix_(choix),
      application_(TitreApplication),
      version_(VersionApplication()),
      serveur_(ServeurCddbParDefaut)
{
}

void uFREEDB::Signaler(const std::string& texte, long numero) const
{
    if (evenement)
        evenement(texte, numero);
}

void uFREEDB::SignalerRequete(long erreur) const
{
    Signaler(ErrDesc(erreur), TexteErreurHttp(erreur).empty() ? long{ErreurInconnue} : erreur);
}

std::string uFREEDB::ErrDesc(long numero) const
{
    if (const std::string texte = TexteErreurHttp(numero); !texte.empty())
        return texte;
    return langue == 1 ? "Unbekannter Fehler" : langue == 2 ? "Erreur Inconnue" : "UnKnown Error";
}

std::string uFREEDB::GetServer(int64_t i, std::stop_token arret)
{
    if (i >= 1 && static_cast<uint64_t>(i) <= serveurs_.size())
        return Piste(serveurs_, i);
    std::vector<std::string> rangees;
    for (const std::string& serveur : serveurs_)
        rangees.push_back(RangeeServeur(serveur));
    return HoteServeur(Piste(serveurs_, choix_.ChoisirServeur(rangees, std::move(arret))));
}

std::string uFREEDB::CalMediaID(std::string_view toc) const
{
    return ::CalMediaID(toc);
}

int64_t uFREEDB::CalAlbumlength(std::string_view toc) const
{
    return ::CalAlbumlength(toc);
}

std::string uFREEDB::CalTracklength(std::string_view toc) const
{
    return ::CalTracklength(toc);
}

void uFREEDB::EmailAddress(std::string_view adresse)
{
    if (AdresseAdmise(adresse))
        adresse_ = adresse;
}

std::string uFREEDB::SecondsToTimeString(int64_t secondes) const
{
    return fmt::format("{}{}:{:02}", secondes < 0 ? "-" : "", std::abs(secondes) / 60, std::abs(secondes) % 60);
}

std::string uFREEDB::GetCdRoms() const
{
    std::string lettres;
    for (char lettre = 'c'; lettre <= 'z'; ++lettre)
        if (TypeDuLecteur(lettre) == LecteurOptique)
            lettres += {lettre, '|'};
    return lettres;
}

std::string uFREEDB::GetMediaInfo(std::string_view lecteur) const
{
    VolumeLecteur volume;
    const char lettre = lecteur.empty() ? '\0' : LettreBasse(lecteur[0]);
    const bool cd = VolumeDuLecteur(lettre, volume) && volume.systeme == "iso9660";
    return cd ? fmt::format("{:08X}", volume.serie) : std::string();
}

std::string uFREEDB::Adresse(std::string_view commande) const
{
    std::string utilisateur, hote;
    if (adresse_.find('@') != adresse_.npos) {
        std::string_view reste = adresse_;
        utilisateur = Detacher(reste, '@');
        hote = Detacher(reste, '@');
    } else {
        Signaler("E-Mail-Adresse absente ou incorrecte", SansAdresse);
    }
    const std::string application = Remplacer(Remplacer(Trim(application_), " ", "_"), "é", "e");
    const std::string version = Remplacer(Trim(version_), " ", "_");
    return fmt::format("http://{}/~cddb/cddb.cgi/?cmd={}&hello={}+{}+{}+{}&proto=5", serveur_, commande, utilisateur,
                       hote, application, version);
}

// User and password of a proxy are sent only when both are there.
RequeteHttp uFREEDB::Requete(const std::string& adresse) const
{
    RequeteHttp requete;
    requete.adresse = adresse;
    requete.agent = Agent;
    if (GetSettingNombre(SectionSettings, "Proxy", 0) != 1)
        return requete;
    const std::string utilisateur = GetSetting(SectionSettings, "UserNameProxy", "");
    const std::string motDePasse = GetSetting(SectionSettings, "PassProxy", "");
    if (Trim(utilisateur).empty() || Trim(motDePasse).empty())
        return requete;
    requete.utilisateur = Trim(utilisateur);
    requete.motDePasse = Trim(motDePasse);
    return requete;
}

// The answer's bytes, "" after a failure.
std::string uFREEDB::Demander(std::string_view commande, const std::stop_token& arret) const
{
    RequeteHttp requete = Requete(Adresse(commande));
    requete.entetes = {"Pragma: no-cache"};
    ReponseHttp reponse = EnvoyerHttp(requete, arret);
    if (reponse.erreur != 0)
        SignalerRequete(reponse.erreur);
    return std::move(reponse.corps);
}

int16_t uFREEDB::GetServerSites(std::stop_token arret)
{
    const std::string reponse = Demander("sites+", arret);
    if (CodeReponse(reponse) == 210) {
        const std::vector<std::string_view> lignes = LignesReponse(reponse);
        for (size_t rang = 1; rang < lignes.size(); ++rang)
            if (lignes[rang].find("http") != std::string_view::npos)
                serveurs_.push_back(AnsiEnTexte(lignes[rang]));
    }
    return static_cast<int16_t>(std::min<size_t>(serveurs_.size(), INT16_MAX));
}

std::string uFREEDB::GetMediaTOC(std::string_view lecteur, std::stop_token arret)
{
    const std::string lettre = std::string(Trim(lecteur.substr(0, 1))) + ':';
    const long voulue = interface;
    const auto essayer = [&](LecteurToc&& road, long numero) {
        if ((voulue != 0 && voulue != numero) || arret.stop_requested() || !road.InitMediaToc(lettre))
            return false;
        toc_ = road.GetTOC();
        cdTexte_ = road.GetTEXT();
        return true;
    };
    if (essayer(cSPTI(machine_), 1) || essayer(cASPI(machine_), 2) || essayer(cMCI(machine_), 3))
        return toc_;
    toc_.clear();
    cdTexte_.clear();
    return toc_;
}

void uFREEDB::Vider()
{
    entree_ = {};
    categorie_.clear();
    durees_.clear();
}

long uFREEDB::LookupMediaByToc(std::string_view toc, std::stop_token arret)
{
    Vider();
    toc_ = Trim(toc);
    const std::vector<int64_t> trames = TramesToc(toc_);
    if (trames.empty())
        return etat_;
    pistes_ = static_cast<int16_t>(trames.size() - 1);
    for (size_t i = 1; i < trames.size(); ++i)
        durees_.push_back(static_cast<int16_t>((trames[i] - trames[i - 1]) / TramesParSeconde));
    dureeAlbum_ = static_cast<int16_t>(CalAlbumlength(toc_));
    identite_ = CalMediaID(toc_);
    arguments_ = ArgumentsRequete(toc_);
    if (baseLocale_)
        ChercherLocalement(arret);
    else
        ChercherSurServeur(arret);
    return etat_;
}

void uFREEDB::ChercherLocalement(const std::stop_token& arret)
{
    if (!DossierExiste(dossier_)) {
        Signaler("Le répertoire de la base de donnée locale n'existe pas!", SansDossierLocal);
        return;
    }
    LireReponseRequete(ReponseRequeteLocale(dossier_, identite_), arret);
    if (etat_ != MATCH_NONE && MotSur(categorie_) && MotSur(identite_))
        LireReponseEntree(ReponseLectureLocale(dossier_, categorie_, identite_));
}

void uFREEDB::ChercherSurServeur(const std::stop_token& arret)
{
    LireReponseRequete(Demander("cddb+query+" + arguments_, arret), arret);
    // What the server said goes into a request only when it is what it should be.
    if (etat_ != MATCH_NONE && MotSur(categorie_) && MotSur(identite_) && !arret.stop_requested())
        LireReponseEntree(Demander("cddb+read+" + categorie_ + '+' + identite_, arret));
}

void uFREEDB::LireReponseRequete(std::string_view reponse, const std::stop_token& arret)
{
    const std::vector<std::string_view> lignes = LignesReponse(reponse);
    switch (CodeReponse(reponse)) {
        case 200: {
            std::string_view reste = lignes[0].substr(std::min<size_t>(4, lignes[0].size()));
            categorie_ = AnsiEnTexte(Detacher(reste, ' '));
            etat_ = MATCH_EXACT;
            return;
        }
        case 202: etat_ = MATCH_NONE; return;
        case 210:
        case 211: break;
        default: return;
    }

    etat_ = MATCH_INEXACT;
    int choisi = 1;
    if (!premierTrouve_) {
        std::vector<std::string> titres;
        for (size_t rang = 1; rang < lignes.size(); ++rang)
            titres.push_back(LireDisqueTrouve(lignes[rang]).titre);
        choisi = choix_.ChoisirDisque(titres, soumissionPermise_ && !baseLocale_, choixHaut, choixGauche, arret);
    }
    if (choisi < 1 || static_cast<size_t>(choisi) >= lignes.size()) {
        etat_ = MATCH_NONE;
        return;
    }
    DisqueTrouve disque = LireDisqueTrouve(lignes[static_cast<size_t>(choisi)]);
    categorie_ = std::move(disque.categorie);
    identite_ = std::move(disque.identite);
}

void uFREEDB::LireReponseEntree(std::string_view reponse)
{
    const int code = CodeReponse(reponse);
    if (code == 210)
        LireEntreeCddb(LignesReponse(reponse), entree_);
    else if (code == 401 && reponse.find(" No such CD entry") != reponse.npos)
        etat_ = MATCH_NONE;
}

long uFREEDB::ReviseMediaEntry(std::string_view toc)
{
    if (Trim(toc) != toc_ || !soumissionPermise_ || etat_ == MATCH_NONE)
        return 0;
    const std::string texte = editerEntree ? EnAnsi(editerEntree()) : std::string();
    if (texte.empty())
        return etat_;
    for (std::string* champ : {&entree_.artiste, &entree_.album, &entree_.genre, &entree_.annee, &categorie_})
        champ->clear();
    entree_.noms.clear();
    entree_.notesPistes.clear();
    durees_.clear();
    etat_ = MATCH_EXACT;
    LireReponseEntree("210" + texte);
    return etat_;
}

void uFREEDB::SubmitMediaEntry(std::string_view categorie, std::string_view identite, std::string_view entree,
                               std::stop_token arret)
{
    if (!MotSur(categorie) || !MotSur(identite)) {
        SignalerRequete(ErreurInconnue);
        return;
    }
    RequeteHttp requete = Requete("http://" + serveur_ + "/~cddb/submit.cgi");
    requete.corps = EnAnsi(entree);
    requete.entetes = {
        fmt::format("Category: {}", categorie),
        fmt::format("Discid: {}", identite),
        "User-Email: " + adresse_,
        fmt::format("Submit-Mode: {}", mode_ == 0 ? "test" : "submit"),
        fmt::format("X-Cddbd-Note: {} {}", TitreApplication, VersionApplication()),
        fmt::format("Content-Length: {}", requete.corps->size()),
    };
    const ReponseHttp reponse = EnvoyerHttp(requete, arret);
    if (reponse.erreur != 0)
        SignalerRequete(reponse.erreur);
    else if (reponse.statut != 200)
        Signaler(ErrDesc(reponse.statut), reponse.statut);
}
