#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "audiocd/ChoixCddb.h"
#include "audiocd/EntreeCddb.h"
#include "platform/Http.h"
#include "platform/LecteurCD.h"

// The CDDB client: reads a disc's table of contents, asks a server over HTTP or a directory on disk for the disc, lets
// the user choose among several answers, and offers what was found. It keeps nothing but what the last lookup left.
// Its properties are set before a lookup. One thread at a time; what takes a stop token blocks, and gives up soon after
// the stop is asked for.
class uFREEDB {
public:
    uFREEDB(MachineCD& machine, ChoixCddb& choix);
    virtual ~uFREEDB() = default;
    uFREEDB(const uFREEDB&) = delete;
    uFREEDB& operator=(const uFREEDB&) = delete;

    // Of the last lookup.
    const std::string& GetMediaID() const { return identite_; }
    const std::string& GetArtistName() const { return entree_.artiste; }
    const std::string& GetAlbumName() const { return entree_.album; }
    const std::string& GetAlbumCategory() const { return categorie_; }
    const std::string& GetAlbumGenre() const { return entree_.genre.empty() ? categorie_ : entree_.genre; }
    int16_t GetAlbumLength() const { return dureeAlbum_; }  // seconds
    int16_t GetAlbumTracks() const { return pistes_; }
    const std::string& GetAlbumNotes() const { return entree_.notes; }
    const std::string& GetAlbumYear() const { return entree_.annee; }
    std::string GetAlbumRevision() const { return std::to_string(entree_.revision); }
    // Tracks count from 1; "" and 0 out of range.
    std::string GetTrackName(int64_t piste) const { return Piste(entree_.noms, piste); }
    int16_t GetTrackTime(int64_t piste) const { return Piste(durees_, piste); }  // seconds
    std::string GetTrackNotes(int64_t piste) const { return Piste(entree_.notesPistes, piste); }
    const std::string& GetCdText() const { return cdTexte_; }

    // Line i of the server list, or, for any i that is no line, the host of the line that the user chooses.
    std::string GetServer(int64_t i, std::stop_token arret = {});

    std::string CalMediaID(std::string_view toc) const;
    int64_t CalAlbumlength(std::string_view toc) const;
    std::string CalTracklength(std::string_view toc) const;

    void UseFirstMatch(bool premier) { premierTrouve_ = premier; }
    void AllowSubmission(bool permise) { soumissionPermise_ = permise; }
    void QueryLocalDatabase(bool locale) { baseLocale_ = locale; }
    static void PopUpLocTop(long haut) { choixHaut = haut; }  // pixels of the screen
    static void PopUpLocLeft(long gauche) { choixGauche = gauche; }

    const std::string& AppName() const { return application_; }
    void AppName(std::string_view nom) { application_ = nom; }
    const std::string& AppVersion() const { return version_; }
    void AppVersion(std::string_view version) { version_ = version; }
    // "hote" or "hote:port".
    const std::string& CDDBServer() const { return serveur_; }
    void CDDBServer(std::string_view serveur) { serveur_ = serveur; }
    // Which road to the disc: 0 the first that works, 1 cSPTI, 2 cASPI, 3 cMCI. One for all copies.
    static long CDDBInterface() { return interface; }
    static void CDDBInterface(long i) { interface = i; }
    // How entries are sent: 0 as a test, else for good.
    long CDDBMode() const { return mode_; }
    void CDDBMode(long mode) { mode_ = mode; }
    // Of the text for an error without one: 1 German, 2 French, else English. One for all copies.
    static long CDDBLanguage() { return langue; }
    static void CDDBLanguage(long l) { langue = l; }
    const std::string& EmailAddress() const { return adresse_; }
    // Refused in silence unless it looks like "*@[A-Z,a-z,0-9]*.*".
    void EmailAddress(std::string_view adresse);
    const std::string& CDDBFilePath() const { return dossier_; }
    void CDDBFilePath(std::string_view dossier) { dossier_ = dossier; }

    // "3:05".
    std::string SecondsToTimeString(int64_t secondes) const;

    // Letters of the optical drives, each followed by "|".
    std::string GetCdRoms() const;

    // Asks the server for others; their number with those that were known before, which stay: kept, particularité
    // 45.
    int16_t GetServerSites(std::stop_token arret = {});

    // Serial number of the data disc in a drive, eight hexadecimal digits.
    std::string GetMediaInfo(std::string_view lecteur) const;

    // TOC text of the disc in a drive; "" when no road leads to one.
    std::string GetMediaTOC(std::string_view lecteur, std::stop_token arret = {});

    // Looks the disc up. One of EtatCddb; that of the lookup before when the text is no TOC or the request fails:
    // kept, particularité 46.
    long LookupMediaByToc(std::string_view toc, std::stop_token arret = {});

    // Takes an edited entry in place of the one found. Nothing edits entries as long as editerEntree is empty.
    long ReviseMediaEntry(std::string_view toc);
    std::function<std::string()> editerEntree;

    // The system's text for an error of a request, else one for all of them.
    std::string ErrDesc(long numero) const;

    // Each failure: text and number. May be left empty.
    std::function<void(const std::string& texte, long numero)> evenement;

protected:
    // Sends an entry (UTF-8) to the server; how that went is told by the event. Nothing calls it yet.
    void SubmitMediaEntry(std::string_view categorie, std::string_view identite, std::string_view entree,
                          std::stop_token arret = {});

private:
    template <typename Type>
    static Type Piste(const std::vector<Type>& liste, int64_t piste)
    {
        const bool dedans = piste >= 1 && static_cast<uint64_t>(piste) <= liste.size();
        return dedans ? liste[static_cast<size_t>(piste) - 1] : Type{};
    }

    void Signaler(const std::string& texte, long numero) const;
    void SignalerRequete(long erreur) const;
    std::string Adresse(std::string_view commande) const;
    RequeteHttp Requete(const std::string& adresse) const;
    std::string Demander(std::string_view commande, const std::stop_token& arret) const;
    void Vider();
    void ChercherLocalement(const std::stop_token& arret);
    void ChercherSurServeur(const std::stop_token& arret);
    void LireReponseRequete(std::string_view reponse, const std::stop_token& arret);
    void LireReponseEntree(std::string_view reponse);

    inline static std::atomic<long> interface = 0, langue = 0, choixHaut = 0, choixGauche = 0;

    MachineCD& machine_;
    ChoixCddb& choix_;
    std::string application_, version_, serveur_, adresse_, dossier_;
    bool premierTrouve_ = false, soumissionPermise_ = false, baseLocale_ = false;
    long mode_ = 0;

    long etat_ = MATCH_NONE;
    std::string toc_, arguments_, identite_, cdTexte_, categorie_;
    EntreeCddb entree_;
    int16_t pistes_ = 0, dureeAlbum_ = 0;
    std::vector<int16_t> durees_;
    std::vector<std::string> serveurs_;
};
