#include "audiocd/InterpreteCD.h"

#include <algorithm>

#include <fmt/format.h>

#include "audiocd/IdentiteDisque.h"
#include "commun/Formes.h"
#include "commun/Texte.h"

namespace {

std::vector<std::string> EnMots(std::string_view commande)
{
    const std::string minuscules = Minuscules(commande);
    std::vector<std::string> mots;
    for (std::string_view reste = minuscules; !reste.empty();)
        if (const std::string_view mot = Detacher(reste, ' '); !mot.empty() && mot != "wait" && mot != "notify")
            mots.emplace_back(mot);
    return mots;
}

// The word behind another one; "" when it is not there.
std::string Apres(const std::vector<std::string>& mots, std::string_view mot)
{
    const auto place = std::find(mots.begin(), mots.end(), mot);
    return place == mots.end() || place + 1 == mots.end() ? std::string() : place[1];
}

bool Commence(const std::vector<std::string>& mots, size_t rang, std::initializer_list<std::string_view> suite)
{
    return mots.size() >= rang + suite.size() &&
           std::equal(suite.begin(), suite.end(), mots.begin() + static_cast<std::ptrdiff_t>(rang));
}

std::string EcrireMsf(const Msf& place)
{
    return fmt::format("{:02}:{:02}:{:02}", place.minute, place.seconde, place.trame);
}

int EnTrames(int64_t millisecondes)
{
    return static_cast<int>(std::clamp<int64_t>(millisecondes, 0, INT32_MAX / 2) * TramesParSeconde / 1000);
}

int64_t EnMillisecondes(int trames)
{
    return int64_t{trames} * 1000 / TramesParSeconde;
}

bool DebutDisque(LecteurCD& lecteur, Msf& debut)
{
    int premiere = 0;
    int derniere = 0;
    return lecteur.LireBornes(premiere, derniere) && lecteur.LireDebut(premiere, debut);
}

bool FinDisque(LecteurCD& lecteur, Msf& fin)
{
    return lecteur.LireDebut(LecteurCD::PisteFinale, fin);
}

// Frames of a track, 0 when there is no such track.
int DureePiste(LecteurCD& lecteur, int piste)
{
    int premiere = 0;
    int derniere = 0;
    Msf debut, fin;
    if (!lecteur.LireBornes(premiere, derniere) || piste < premiere || piste > derniere ||
        !lecteur.LireDebut(piste, debut) ||
        !lecteur.LireDebut(piste < derniere ? piste + 1 : LecteurCD::PisteFinale, fin))
        return 0;
    return Trames(fin) - Trames(debut);
}

}  // namespace

bool InterpreteCD::Envoyer(std::string_view commande, std::string& reponse)
{
    reponse.clear();
    const Mots mots = EnMots(commande);
    if (mots.size() < 2)
        return false;
    if (mots[0] == "open")
        return Ouvrir(mots);
    if (mots[0] == "close")
        return Fermer(mots);
    Appareil* appareil = Trouver(mots[1]);
    if (!appareil)
        return false;
    if (mots[0] == "play")
        return Jouer(*appareil, mots);
    if (mots[0] == "seek")
        return Aller(*appareil, mots);
    if (mots[0] == "set")
        return Regler(*appareil, mots);
    if (mots[0] == "status")
        return Etat(*appareil, mots, reponse);
    if (mots[0] == "stop" || mots[0] == "pause") {
        // Both keep the place: "play" goes on from there.
        if (const PlaceLecture place = PlaceCourante(*appareil); place.etat != EtatLecture::Arret) {
            appareil->place = place.surDisque;
            appareil->placee = true;
        }
        appareil->suspendu = mots[0] == "pause" && appareil->lecteur->Suspendre();
        return appareil->suspendu || (mots[0] == "stop" && appareil->lecteur->Arreter());
    }
    return false;
}

InterpreteCD::Appareil* InterpreteCD::Trouver(const std::string& alias)
{
    const auto place = std::find_if(appareils_.begin(), appareils_.end(),
                                    [&](const Appareil& appareil) { return appareil.alias == alias; });
    return place == appareils_.end() ? nullptr : &*place;
}

// "open d: type cdaudio alias cd shareable"
bool InterpreteCD::Ouvrir(const Mots& mots)
{
    const std::string alias = Apres(mots, "alias").empty() ? mots[1] : Apres(mots, "alias");
    if (Apres(mots, "type") != "cdaudio" || Trouver(alias))
        return false;
    auto lecteur = machine_.Ouvrir(mots[1]);
    if (!lecteur)
        return false;
    Appareil& appareil = appareils_.emplace_back();
    appareil.alias = alias;
    appareil.lecteur = std::move(lecteur);
    return true;
}

bool InterpreteCD::Fermer(const Mots& mots)
{
    return std::erase_if(appareils_,
                         [&](const Appareil& appareil) { return mots[1] == "all" || appareil.alias == mots[1]; }) !=
               0 ||
           mots[1] == "all";
}

// "play cd", "play cd from X", "play cd from X to Y"
bool InterpreteCD::Jouer(Appareil& appareil, const Mots& mots)
{
    LecteurCD& lecteur = *appareil.lecteur;
    const std::string de = Apres(mots, "from");
    const std::string a = Apres(mots, "to");
    if (appareil.suspendu && de.empty() && a.empty()) {
        appareil.suspendu = appareil.placee = false;
        return lecteur.Reprendre();
    }
    Msf debut = appareil.place;
    Msf fin;
    const bool debutConnu =
        !de.empty() ? LirePlace(appareil, de, debut) : appareil.placee || DebutDisque(lecteur, debut);
    if (!debutConnu || !(a.empty() ? FinDisque(lecteur, fin) : LirePlace(appareil, a, fin)))
        return false;
    appareil.suspendu = appareil.placee = false;
    return lecteur.Jouer(debut, fin);
}

// "seek cd to X", "seek cd to start", "seek cd to end": what plays stops there.
bool InterpreteCD::Aller(Appareil& appareil, const Mots& mots)
{
    Msf place;
    if (!LirePlace(appareil, Apres(mots, "to"), place))
        return false;
    if (PlaceCourante(appareil).etat != EtatLecture::Arret)
        appareil.lecteur->Arreter();
    appareil.place = place;
    appareil.placee = true;
    appareil.suspendu = false;
    return true;
}

bool InterpreteCD::Regler(Appareil& appareil, const Mots& mots)
{
    if (Commence(mots, 2, {"door", "open"}))
        return appareil.lecteur->OuvrirTiroir();
    if (Commence(mots, 2, {"door", "closed"}))
        return appareil.lecteur->FermerTiroir();
    if (!Commence(mots, 2, {"time", "format"}) || mots.size() < 5)
        return false;
    if (mots[4] == "tmsf")
        appareil.format = Format::Tmsf;
    else if (mots[4] == "msf")
        appareil.format = Format::Msf;
    else if (mots[4] == "milliseconds" || mots[4] == "ms")
        appareil.format = Format::Millisecondes;
    else
        return false;
    return true;
}

bool InterpreteCD::Etat(Appareil& appareil, const Mots& mots, std::string& reponse)
{
    LecteurCD& lecteur = *appareil.lecteur;
    if (Commence(mots, 2, {"media", "present"})) {
        reponse = lecteur.LireEtat() == EtatLecteur::Pret ? "true" : "false";
        return true;
    }
    if (Commence(mots, 2, {"mode"})) {
        const EtatLecteur etat = lecteur.LireEtat();
        const EtatLecture lecture = PlaceCourante(appareil).etat;
        reponse = etat == EtatLecteur::TiroirOuvert ? "open"
                  : etat != EtatLecteur::Pret       ? "not ready"
                  : lecture == EtatLecture::EnCours ? "playing"
                  : lecture == EtatLecture::Pause   ? "paused"
                                                    : "stopped";
        return true;
    }
    if (Commence(mots, 2, {"number", "of", "tracks"})) {
        int premiere = 0;
        int derniere = 0;
        if (!lecteur.LireBornes(premiere, derniere))
            return false;
        reponse = std::to_string(derniere - premiere + 1);
        return true;
    }
    if (Commence(mots, 2, {"length", "track"})) {
        const int duree = DureePiste(lecteur, static_cast<int>(Valeur(Apres(mots, "track"))));
        reponse = duree > 0 ? EcrireDuree(appareil, duree) : std::string();
        return duree > 0;
    }
    if (Commence(mots, 2, {"length"})) {
        Msf debut, fin;
        if (!DebutDisque(lecteur, debut) || !FinDisque(lecteur, fin))
            return false;
        reponse = EcrireDuree(appareil, Trames(fin) - Trames(debut));
        return true;
    }
    if (!Commence(mots, 2, {"position"}))
        return false;
    reponse = EcrirePlace(appareil, PlaceCourante(appareil));
    return true;
}

// A place in the device's time format: "mm:ss:ff", "tt:mm:ss:ff" (what is missing at the end counts as 0), or
// milliseconds; or "start" or "end".
bool InterpreteCD::LirePlace(Appareil& appareil, const std::string& texte, Msf& place)
{
    LecteurCD& lecteur = *appareil.lecteur;
    if (texte == "start")
        return DebutDisque(lecteur, place);
    if (texte == "end")
        return FinDisque(lecteur, place);
    if (texte.empty() || texte.find_first_not_of("0123456789:") != texte.npos)
        return false;
    if (appareil.format == Format::Millisecondes) {
        place = EnMsf(EnTrames(Valeur(texte)));
        return true;
    }
    std::string_view reste = texte;
    const auto nombre = [&reste] {
        constexpr int64_t maximum = 999;
        return static_cast<int>(std::min(Valeur(Detacher(reste, ':')), maximum));
    };
    Msf debut;
    if (appareil.format == Format::Tmsf && !lecteur.LireDebut(nombre(), debut))
        return false;
    const int minute = nombre();
    const int seconde = nombre();
    const int trame = nombre();
    place = EnMsf(Trames(debut) + Trames({minute, seconde, trame}));
    return true;
}

std::string InterpreteCD::EcrirePlace(Appareil& appareil, const PlaceLecture& place)
{
    if (appareil.format == Format::Millisecondes)
        return std::to_string(EnMillisecondes(Trames(place.surDisque)));
    if (appareil.format == Format::Msf)
        return EcrireMsf(place.surDisque);
    return fmt::format("{:02}:{}", place.piste, EcrireMsf(place.dansPiste));
}

std::string InterpreteCD::EcrireDuree(const Appareil& appareil, int trames)
{
    return appareil.format == Format::Millisecondes ? std::to_string(EnMillisecondes(trames))
                                                    : EcrireMsf(EnMsf(std::max(trames, 0)));
}

// Where the drive is, or, once it has been told a place without playing, that place.
PlaceLecture InterpreteCD::PlaceCourante(Appareil& appareil)
{
    PlaceLecture place;
    LecteurCD& lecteur = *appareil.lecteur;
    if (!lecteur.LirePlace(place))
        place = {};
    if (!appareil.placee || place.etat == EtatLecture::EnCours)
        return place;
    place.surDisque = appareil.place;
    int premiere = 0;
    int derniere = 0;
    if (!lecteur.LireBornes(premiere, derniere))
        return place;
    for (int piste = premiere; piste <= derniere; ++piste) {
        Msf debut;
        if (!lecteur.LireDebut(piste, debut) || Trames(debut) > Trames(appareil.place))
            break;
        place.piste = piste;
        place.dansPiste = EnMsf(Trames(appareil.place) - Trames(debut));
    }
    return place;
}
