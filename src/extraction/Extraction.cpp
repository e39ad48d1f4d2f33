#include "extraction/Extraction.h"

#include <array>
#include <chrono>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "catalogue/Cles.h"
#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "catalogue/TexteArbre.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/FormesLocales.h"
#include "platform/Locale.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/IndexNoms.h"
#include "store/Reglages.h"
#include "store/Transaction.h"

namespace {
constexpr size_t EntreesMontrees = 64;
}

// A directory of the walk, from its scan until all its subdirectories have been walked.
struct Extraction::Repertoire {
    struct Sous {
        std::string nom, nomReel;
        int64_t code;
        bool noeud;
    };
    int64_t code = 1;
    bool noeud = true;          // it has a node in the media's tree
    size_t longueurChemin = 0;  // of its path, trailing "\" included
    std::vector<Sous> sous;
    size_t suivant = 0;
};

struct Extraction::Etat {
    Etat(Base& base, int64_t media, char lettre, const std::stop_token& arret)
        : course{base, media, arret}, parcours(lettre)
    {
    }

    Course course;
    Recordset enregistrements;
    Parcours parcours;
    std::string chemin;         // of the directory at work, with trailing "\"
    std::string cheminFichier;  // scratch: the path of the file at work
    std::string ligne;          // progress line
    std::string arbre;          // the `Tree` text so far
    double octetsFaits = 0;
    std::optional<double> octetsAffiches;               // behind the percentage last shown
    bool echec = false;                                 // a row could not be written
    std::array<std::string, EntreesMontrees> derniers;  // names read last, the newest behind those before it, all round
    size_t vus = 0;

    void Montrer(std::string_view nom) { derniers[vus++ % EntreesMontrees] = nom; }
    bool Arreter() const { return echec || course.arret.stop_requested(); }
};

namespace {

using Horloge = std::chrono::steady_clock;

double Secondes(Horloge::time_point depuis)
{
    return std::chrono::duration<double>(Horloge::now() - depuis).count();
}

// Directories whose content stays unread. The first three tests look at the top level of the drive and match by prefix.
bool EstExclu(std::string_view chemin)
{
    const std::string motif = std::string(chemin) + "*.*";
    const std::string sommet = motif.substr(3);
    const std::string debut = Majuscules(sommet.substr(0, 8));
    return debut == "RECYCLER" || debut == "RECYCLED" || sommet.starts_with("System Volume Information") ||
           motif.find("Temporary Internet Files") != std::string::npos;
}

// The names are made ready for searching now when the run brought a good part of them; else the first search does it.
void PreparerRecherche(const std::string& base, int64_t lignesDuMedia)
{
    constexpr int64_t bonnePart = 4;
    Base ouverte = OpenDatabase(base);
    const int64_t lignes = NombreDeLignes(ouverte);
    ouverte.Close();
    if (lignesDuMedia >= lignes / bonnePart)
        PreparerIndexNoms(base);
}

// Directories that get neither a row nor a node.
bool EstSansLigne(std::string_view nom)
{
    return nom == "System Volume Information" || nom == "Recycled" || nom == "Temporary Internet Files";
}

}  // namespace

Extraction::Extraction(std::string base, int64_t media, char lettre, double octetsTotal, bool lecteurVide)
    : CourseMedia(std::move(base), media), lettre_(lettre), octetsTotal_(octetsTotal), lecteurVide_(lecteurVide)
{
    publie_.mesurable = octetsTotal != 0;
}

Avancement Extraction::Lire() const
{
    demande_.store(true, std::memory_order_relaxed);
    const std::lock_guard garde(verrou_);
    return publie_;
}

FinExtraction Extraction::Executer()
{
    const FinExtraction fin = EcrireMedia();
    if (fin != FinExtraction::Complete) {
        SupprimerMedia(std::to_string(media_), base_);
        return fin;
    }
    {
        const std::lock_guard garde(verrou_);
        publie_.pourcentage = "100 %";
        publie_.part = 1;
    }
    FixerIconesARecharger(true);
    const auto debut = Horloge::now();
    CompacterBase();
    durees_.compaction = Secondes(debut);
    PreparerRecherche(base_, publie_.compteurs.repertoires + publie_.compteurs.fichiers);
    FixerArbreARecharger(true);
    FixerMediaAMontrer(media_);
    return fin;
}

FinExtraction Extraction::EcrireMedia()
{
    Base base = OpenDatabase(base_);
    Transaction transaction(base);
    if (!transaction.Ouverte())
        return FinExtraction::Echec;

    const auto debut = Horloge::now();
    Etat etat(base, media_, lettre_, arret_);
    etat.enregistrements = base.OpenRecordset("Liste");
    etat.chemin = Majuscules(std::string(1, lettre_)) + ":\\";
    etat.echec = !AjouterRacine(etat);
    if (!lecteurVide_)
        FindDirs(etat);
    etat.enregistrements.Close();
    Publier(etat);
    durees_.parcours = Secondes(debut);

    if (arret_.stop_requested() || etat.echec) {
        transaction.Annuler();
        EnregistrerExtensions(base);
        return etat.echec ? FinExtraction::Echec : FinExtraction::Abandonnee;
    }

    const auto finParcours = Horloge::now();
    EnregistrerExtensions(base);
    const bool ecrit = ModifierCatalogue(media_, true, etat.arbre, base_) && transaction.Valider();
    durees_.validation = Secondes(finParcours);
    return ecrit ? FinExtraction::Complete : FinExtraction::Echec;
}

bool Extraction::AjouterRacine(Etat& etat)
{
    const std::string lecteur = etat.chemin.substr(0, 2);
    LigneFichier ligne;
    ligne.nom = lecteur;
    ligne.code = 1;
    ligne.taille = ligne.type = ligne.date = ligne.heure = " ";
    ligne.attribut = "D";
    AjouterElement(etat.arbre, {"", CleMedia(etat.course.media), lecteur});
    return AjouterFichier(etat.course, ligne, etat.enregistrements);
}

// Depth first across directories, each one's entries all written before the first of its subdirectories is entered.
// A stack of its own, so that nesting has no limit.
void Extraction::FindDirs(Etat& etat)
{
    std::vector<Repertoire> pile(1);
    pile.back().longueurChemin = etat.chemin.size();
    ParcourirRepertoire(etat, pile.back());

    while (!pile.empty() && !etat.Arreter()) {
        Repertoire& repertoire = pile.back();
        etat.chemin.resize(repertoire.longueurChemin);
        if (repertoire.suivant == repertoire.sous.size()) {
            pile.pop_back();
            if (!pile.empty())
                etat.parcours.Remonter();
            continue;
        }

        const Repertoire::Sous& sous = repertoire.sous[repertoire.suivant++];
        etat.chemin += sous.nom + '\\';
        if (EstExclu(etat.chemin) || !etat.parcours.Entrer(sous.nomReel))
            continue;
        Repertoire enfant;
        enfant.code = sous.code;
        enfant.noeud = sous.noeud;
        enfant.longueurChemin = etat.chemin.size();
        pile.push_back(std::move(enfant));
        ParcourirRepertoire(etat, pile.back());
    }
}

void Extraction::ParcourirRepertoire(Etat& etat, Repertoire& repertoire)
{
    etat.parcours.Lister([&](const EntreeDossier& entree) {
        if (entree.attributs & AttributDossier)
            TraiterRepertoire(etat, repertoire, entree);
        else
            TraiterFichier(etat, repertoire, entree);
        if (demande_.load(std::memory_order_relaxed))
            Publier(etat);
        return !etat.Arreter();
    });
}

void Extraction::TraiterRepertoire(Etat& etat, Repertoire& parent, const EntreeDossier& entree)
{
    const std::string nom = entree.nom + '\\';  // the last one goes when the row is written
    etat.ligne = etat.chemin + nom;
    etat.Montrer(nom);
    const int64_t code = ++etat.course.compteurs.repertoires + 1;
    const bool sansLigne = EstSansLigne(entree.nom);
    const bool noeud = parent.noeud && !sansLigne;
    parent.sous.push_back({entree.nom, entree.nomReel, code, noeud});
    if (sansLigne)
        return;  // its number is used up all the same

    const std::string date = DateFichier(entree.creation);
    const std::string heure = HeureFichier(entree.creation);
    LigneFichier ligne;
    ligne.nom = nom;
    ligne.code = code;
    ligne.taille = ligne.type = " ";
    ligne.date = date;
    ligne.heure = heure;
    ligne.attribut = "D";
    ligne.repertoire = parent.code;
    if (!AjouterFichier(etat.course, ligne, etat.enregistrements))
        etat.echec = true;

    if (!noeud)
        return;
    AjouterElement(etat.arbre, {CleRepertoire(media_, CodeRepertoire(parent.code)),
                                CleRepertoire(media_, CodeRepertoire(code)), entree.nom});
}

void Extraction::TraiterFichier(Etat& etat, const Repertoire& repertoire, const EntreeDossier& entree)
{
    ++etat.course.compteurs.fichiers;
    // The length is a signed 32-bit number: a file of 2 GiB or more counts backwards.
    const auto taille = static_cast<int32_t>(static_cast<uint32_t>(entree.taille));
    etat.octetsFaits += taille;
    if (octetsTotal_ != 0 && etat.octetsFaits < octetsTotal_)
        etat.octetsAffiches = etat.octetsFaits;
    etat.ligne = etat.chemin;
    etat.Montrer(entree.nom);

    const std::string extension = ExtensionFichier(entree.nom);
    AjouterExtension(extension);
    const std::string texteTaille = FormatTaille(taille);
    const std::string date = DateFichier(entree.creation);
    const std::string heure = HeureFichier(entree.creation);
    const std::string attribut = GetAttrString(entree.attributs);
    etat.cheminFichier.assign(etat.chemin).append(entree.nom).append("\\");

    LigneFichier ligne;
    ligne.nom = entree.nom;
    ligne.taille = texteTaille;
    ligne.type = types_.Nom(extension);
    ligne.date = date;
    ligne.heure = heure;
    ligne.attribut = attribut;
    ligne.repertoire = repertoire.code;
    ligne.chemin = etat.cheminFichier;
    ligne.extension = extension;
    ligne.parcours = &etat.parcours;
    ligne.entree = &entree;
    if (!AjouterFichier(etat.course, ligne, etat.enregistrements))
        etat.echec = true;
}

void Extraction::Publier(const Etat& etat)
{
    demande_.store(false, std::memory_order_relaxed);
    const bool nomsMontres = GetSettingNombre(SectionSettings, CleOptionsDivers[2], 0) == 1;
    const std::lock_guard garde(verrou_);
    publie_.compteurs = etat.course.compteurs;
    publie_.entrees.clear();
    for (size_t rang = etat.vus < EntreesMontrees ? 0 : etat.vus - EntreesMontrees; rang < etat.vus; ++rang)
        publie_.entrees.push_back(etat.derniers[rang % EntreesMontrees]);
    publie_.ligne = nomsMontres && !etat.cheminFichier.empty()
                        ? etat.cheminFichier.substr(0, etat.cheminFichier.size() - 1)
                        : etat.ligne;
    if (!etat.octetsAffiches)
        return;
    const double part = *etat.octetsAffiches / octetsTotal_;
    const std::string nombre = FormatNombre(std::abs(part) * 100, 2, false);
    const bool unChiffre = nombre.size() == 3 + SeparateurDecimal().size();
    publie_.pourcentage = std::string(part < 0 ? "-" : "") + (unChiffre ? "0" : "") + nombre + " %";
    publie_.part = part < 0 ? 0 : part;
}
