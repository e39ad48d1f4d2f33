#include "audio.h"
#include "OuiATout.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include <fmt/format.h>

#include "LecteurFactice.h"
#include "audiocd/CDAudio.h"
#include "audiocd/CataloguerCDAudio.h"
#include "audiocd/IdentiteDisque.h"
#include "audiocd/ReponsesToc.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "extraction/VerifierCatalogue.h"
#include "extraction/bsDrive.h"
#include "platform/Lecteurs.h"
#include "platform/OperationsFichiers.h"

namespace {

constexpr char Lettre = 'd';  // of the drive without hardware

class ChoixFixe : public ChoixCddb {
public:
    explicit ChoixFixe(int rang) : rang_(rang) {}
    int ChoisirDisque(const std::vector<std::string>&, bool, long, long, std::stop_token) override { return rang_; }
    int ChoisirServeur(const std::vector<std::string>&, std::stop_token) override { return rang_; }

private:
    int rang_;
};

class Soumetteur : public uFREEDB {
public:
    using uFREEDB::SubmitMediaEntry;
    using uFREEDB::uFREEDB;
};

// Options taken out of the arguments; what is left keeps its order.
struct OptionsAudio {
    Arguments restants;
    std::map<std::string, std::string> valeurs;

    OptionsAudio(const Arguments& arguments, std::initializer_list<const char*> connues)
    {
        for (size_t i = 0; i < arguments.size(); ++i) {
            if (std::find(connues.begin(), connues.end(), arguments[i]) == connues.end())
                restants.push_back(arguments[i]);
            else if (i + 1 == arguments.size())
                throw std::runtime_error("valeur attendue derrière " + arguments[i]);
            else
                valeurs[arguments[i]] = arguments[i + 1], ++i;
        }
    }
    bool A(const char* option) const { return valeurs.contains(option); }
    std::string Valeur(const char* option) const { return A(option) ? valeurs.at(option) : std::string(); }
    int Choix() const { return static_cast<int>(::Valeur(Valeur("--choix"))); }

    void Verifier(size_t nombre) const
    {
        if (restants.size() != nombre)
            throw std::runtime_error("arguments en trop ou manquants");
    }

    void RegleSource(uFREEDB& freedb) const
    {
        if (A("--local"))
            freedb.CDDBFilePath(Valeur("--local"));
        if (A("--serveur"))
            freedb.CDDBServer(Valeur("--serveur"));
        if (A("--local") || A("--serveur"))
            freedb.QueryLocalDatabase(A("--local"));
    }
};

std::string Echapper(std::string_view texte)
{
    std::string resultat;
    for (const char c : texte) {
        switch (c) {
            case '\t': resultat += "\\t"; break;
            case '\n': resultat += "\\n"; break;
            case '\r': resultat += "\\r"; break;
            case '\\': resultat += "\\\\"; break;
            default: resultat += c;
        }
    }
    return resultat;
}

template <size_t Taille>
std::array<uint8_t, Taille> LireReponse(const std::string& chemin)
{
    std::string octets;
    if (!FichierExiste(chemin) || !LireFichier(chemin, octets))
        throw std::runtime_error("fichier impossible à lire : " + chemin);
    std::array<uint8_t, Taille> reponse{};
    std::copy_n(octets.begin(), std::min(octets.size(), Taille), reponse.begin());
    return reponse;
}

void Raconter(uFREEDB& freedb)
{
    freedb.evenement = [](const std::string& texte, long numero) {
        fmt::print(stderr, "velourne_bench : {} {}\n", numero, texte);
    };
}

void ImprimerReponse(const std::string& nom, const std::string& texte)
{
    fmt::print("{}: {}\n", nom, Echapper(texte));
}

// "SetTrack 3": an operation of the player with what stands behind it; any other text goes to it as it is.
std::string Operer(CDAudio& lecteur, const std::string& commande)
{
    std::string_view reste = commande;
    const std::string nom(Detacher(reste, ' '));
    const std::string texte(Trim(reste));
    const int64_t n = Valeur(texte);
    const auto fait = [](auto&&...) { return std::string(); };
    const std::map<std::string, std::function<std::string()>> operations = {
        {"StartPlay", [&] { return lecteur.StartPlay(), fait(); }},
        {"SetTrack", [&] { return lecteur.SetTrack(n), fait(); }},
        {"StopPlay", [&] { return lecteur.StopPlay(), fait(); }},
        {"PausePlay", [&] { return lecteur.PausePlay(), fait(); }},
        {"EjectCD", [&] { return lecteur.EjectCD(), fait(); }},
        {"CloseCD", [&] { return lecteur.CloseCD(), fait(); }},
        {"UnloadAll", [&] { return lecteur.UnloadAll(), fait(); }},
        {"SetCDPlayerReady", [&] { return lecteur.SetCDPlayerReady(texte), fait(); }},
        {"SetFormat_tmsf", [&] { return lecteur.SetFormat_tmsf(), fait(); }},
        {"SetFormat_milliseconds", [&] { return lecteur.SetFormat_milliseconds(), fait(); }},
        {"CheckCD", [&] { return lecteur.CheckCD(); }},
        {"GetNumTracks", [&] { return std::to_string(lecteur.GetNumTracks()); }},
        {"GetCDLength", [&] { return lecteur.GetCDLength(); }},
        {"GetTrackLength", [&] { return lecteur.GetTrackLength(n); }},
        {"GetCDPosition", [&] { return lecteur.GetCDPosition(); }},
        {"CheckIfPlaying", [&] { return std::string(lecteur.CheckIfPlaying() ? "true" : "false"); }},
        {"SeekCDtoX", [&] { return lecteur.SeekCDtoX(texte), fait(); }},
        {"ReadyDevice", [&] { return lecteur.ReadyDevice(texte), fait(); }},
        {"FastForward", [&] { return lecteur.FastForward(n), fait(); }},
        {"ReWind", [&] { return lecteur.ReWind(n), fait(); }},
        {"MoveCD", [&] { return lecteur.MoveCD(texte), fait(); }},
    };
    const auto operation = operations.find(nom);
    return operation != operations.end() ? operation->second() : lecteur.Envoyer(commande);
}

}  // namespace

void Disque(const Arguments& arguments)
{
    const std::string& toc = arguments[1];
    ImprimerReponse("identite", CalMediaID(toc));
    fmt::print("duree: {}\n", CalAlbumlength(toc));
    ImprimerReponse("durees", CalTracklength(toc));
    ImprimerReponse("requete", ArgumentsRequete(toc));
}

void Toc(const Arguments& arguments)
{
    const auto toc = BuildTocText(LireReponse<TailleReponseToc>(arguments[1]));
    fmt::print("{}\n", toc.value_or(""));
    if (!toc)
        fmt::print(stderr, "velourne_bench : numéros de pistes à rebours\n");
}

void CdTexte(const Arguments& arguments)
{
    fmt::print("{}\n", Echapper(BuildCdText(LireReponse<TailleReponseCdText>(arguments[1]))));
}

void Cddb(const Arguments& arguments)
{
    const OptionsAudio options(arguments, {"--serveur", "--local", "--choix"});
    options.Verifier(2);
    if (options.A("--serveur") == options.A("--local"))
        throw std::runtime_error("--serveur ou --local attendu");
    MachineFactice machine;
    ChoixFixe choix(options.Choix());
    uFREEDB freedb(machine, choix);
    Raconter(freedb);
    InitUFreedb(freedb);
    options.RegleSource(freedb);

    const long etat = freedb.LookupMediaByToc(options.restants[1]);
    fmt::print("etat: {}\n", etat);
    ImprimerReponse("identite", freedb.GetMediaID());
    ImprimerReponse("artiste", freedb.GetArtistName());
    ImprimerReponse("album", freedb.GetAlbumName());
    ImprimerReponse("categorie", freedb.GetAlbumCategory());
    ImprimerReponse("genre", freedb.GetAlbumGenre());
    ImprimerReponse("annee", freedb.GetAlbumYear());
    ImprimerReponse("revision", freedb.GetAlbumRevision());
    ImprimerReponse("notes", freedb.GetAlbumNotes());
    for (int piste = 1; piste <= freedb.GetAlbumTracks(); ++piste)
        fmt::print("piste {}:\t{}\t{}\t{}\n", piste, Echapper(freedb.GetTrackName(piste)), freedb.GetTrackTime(piste),
                   Echapper(freedb.GetTrackNotes(piste)));
}

void Sites(const Arguments& arguments)
{
    MachineFactice machine;
    ChoixFixe choix(0);
    uFREEDB freedb(machine, choix);
    Raconter(freedb);
    InitUFreedb(freedb);
    freedb.CDDBServer(arguments[1]);
    const int nombre = freedb.GetServerSites();
    for (int i = 1; i <= nombre; ++i)
        fmt::print("{}\n", Echapper(freedb.GetServer(i)));
}

void Soumettre(const Arguments& arguments)
{
    std::string octets;
    if (!FichierExiste(arguments[4]) || !LireFichier(arguments[4], octets))
        throw std::runtime_error("fichier impossible à lire : " + arguments[4]);
    MachineFactice machine;
    ChoixFixe choix(0);
    Soumetteur freedb(machine, choix);
    InitUFreedb(freedb);
    freedb.CDDBServer(arguments[1]);
    std::string echec;
    freedb.evenement = [&](const std::string& texte, long numero) { echec = fmt::format("{} {}", numero, texte); };
    freedb.SubmitMediaEntry(arguments[2], arguments[3], AnsiEnTexte(octets));
    if (!echec.empty())
        throw std::runtime_error(echec);
    fmt::print("envoye: oui\n");
}

void Lecteur(const Arguments& arguments)
{
    const OptionsAudio options(arguments, {"--toc"});
    MachineFactice machine(DisqueFactice(options.A("--toc") ? options.Valeur("--toc") : "150 20000 40000 60000"));
    CDAudio lecteur(machine);
    for (size_t i = 1; i < options.restants.size(); ++i) {
        machine[0].journal.clear();
        const std::string reponse = Operer(lecteur, options.restants[i]);
        ImprimerReponse("commande", options.restants[i]);
        for (const std::string& ligne : machine[0].journal)
            ImprimerReponse("lecteur", ligne);
        if (!reponse.empty())
            ImprimerReponse("reponse", reponse);
    }
}

void Audio(const Arguments& arguments)
{
    const OptionsAudio options(arguments, {"--cdtexte", "--serveur", "--local", "--choix"});
    options.Verifier(5);
    MachineFactice machine{DisqueFactice(options.restants[4])};
    if (options.A("--cdtexte"))
        machine[0].disque.cdTexte = LireReponse<TailleReponseCdText>(options.Valeur("--cdtexte"));
    ChoixFixe choix(options.Choix());

    DemandeMedia media;
    media.identifiant = options.restants[2];
    media.nom = options.restants[3];
    media.lecteur = LettreCapitale(Lettre);
    media.infos = AfficherInfo(bsDrive());  // an optical drive without a volume
    media.infos.type = NomTypeLecteur(LecteurOptique);
    media.infos.serie = TexteSerie(0);
    OuiATout dialogues;
    const ReponseMedia reponse = VerifierCatalogue(media, dialogues);
    if (!reponse.accepte)
        throw std::runtime_error("le média n'a pas pu être inscrit dans la base");

    DemandeCDAudio demande;
    demande.base = reponse.base;
    demande.media = reponse.numero;
    demande.lettre = Lettre;
    demande.reglages = [&](uFREEDB& freedb) {
        Raconter(freedb);
        options.RegleSource(freedb);
    };
    SuiviCDAudio suivi;
    if (CataloguerCDAudio(demande, {machine, choix}, suivi, {}) != FinExtraction::Complete)
        throw std::runtime_error("la base n'a pas pu être écrite");
    fmt::print("media: {}\npistes: {}\n", reponse.numero, suivi.Lire().compteurs.fichiers);
}
