// Measures the program's own code, without a window. Results are lines "key: value"; elapsed times are seconds.

#include <sys/resource.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "LireNombre.h"
#include "OuiATout.h"
#include "archives/ListerArchive.h"
#include "audio.h"
#include "browser/ChargerArbre.h"
#include "browser/LectureListeFichiers.h"
#include "catalogue/ArbreCatalogue.h"
#include "catalogue/Cles.h"
#include "catalogue/ListeFichiers.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "extraction/AjouterFichierZip.h"
#include "extraction/Extraction.h"
#include "extraction/VerifierCatalogue.h"
#include "extractors/Aiguillage.h"
#include "lister.h"
#include "platform/Chemins.h"
#include "platform/Lecteurs.h"
#include "platform/OperationsFichiers.h"
#include "search/RechercheLabel.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* Aide =
    "Usage : velourne_bench COMMANDE ARGUMENTS\n"
    "  generer DOSSIER N PAR_DOSSIER            crée N fichiers vides dans N / PAR_DOSSIER dossiers imbriqués\n"
    "  regler SECTION CLE VALEUR                enregistre un réglage\n"
    "  extraire DOSSIER BASE [IDENTIFIANT NOM]  lit un dossier comme un média dans la base\n"
    "  arbre BASE                               charge l'arbre de la base\n"
    "  dossier BASE CLE                         liste le contenu d'un noeud de l'arbre\n"
    "  decrire FICHIER...                       chemin, sorte d'extracteur et description de chaque fichier\n"
    "  membres ARCHIVE                          membres d'une archive : indice, indice du parent, texte du noeud\n"
    "  chercher BASE MOT [--onglet 0|1|2] [--media N] [--descriptions] [--noms] [--extension E] [--dates D1 D2]\n"
    "           [--liste]                       cherche comme la fenêtre ; dates en AAAAMMJJ ; --liste : les "
    "résultats\n"
    "  lister BASE texte|xml|html FICHIER [--media N] [--colonnes 12345]\n"
    "                                           écrit un listing ; sans --colonnes, celles des réglages\n";

constexpr const char* AideDossiers =
    "Les réglages et les lettres sont dans XDG_CONFIG_HOME, les fichiers de travail dans XDG_DATA_HOME.\n";

class Chronometre {
public:
    double Secondes() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - debut_).count(); }

private:
    std::chrono::steady_clock::time_point debut_ = std::chrono::steady_clock::now();
};

void ImprimerMemoire()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    fmt::print("memoire_max_mo: {}\n", (usage.ru_maxrss + 1023) / 1024);
}

// The base becomes the current one, made empty if it is missing.
void OuvrirBase(const std::string& chemin, bool creer)
{
    const std::string absolu = fs::absolute(chemin).string();
    if (creer && !fs::exists(absolu) && !CreerBaseVide(absolu))
        throw std::runtime_error("base impossible à créer : " + chemin);
    if (!OpenDatabase(absolu).Ouverte())
        throw std::runtime_error("base impossible à ouvrir : " + chemin);
    SaveSetting(SectionSettings, CleBaseCourante, absolu);
    InitialiserBase();
}

void Generer(const Arguments& arguments)
{
    constexpr std::array noms = {"Photo",  "lettre",     "Été à Nice", "facture",
                                 "README", "Chanson n°", "index",      "Sauvegarde"};
    constexpr std::array extensions = {"jpg", "txt", "doc", "mp3", "zip", "html", "pdf", "exe", "c", "ogg", "dat", ""};
    const fs::path racine = arguments[1];
    const int64_t nombre = LireNombre(arguments[2]);
    const int64_t parDossier = LireNombre(arguments[3]);
    const int64_t nombreDossiers = (nombre + parDossier - 1) / parDossier;

    const Chronometre chronometre;
    std::vector<fs::path> dossiers;
    for (int64_t i = 0; i < nombreDossiers; ++i) {
        // Each directory holds up to eight others: some levels deep, as discs are.
        const fs::path parent = i == 0 ? racine : dossiers[static_cast<size_t>((i - 1) / 8)];
        dossiers.push_back(parent / fmt::format("Dossier {:05}", i));
        fs::create_directories(dossiers.back());
        for (int64_t f = i * parDossier; f < std::min(nombre, (i + 1) * parDossier); ++f) {
            const auto rang = static_cast<size_t>(f);
            const std::string_view extension = extensions[rang * 7 / 3 % extensions.size()];
            const std::string nom = fmt::format("{} {:07}{}{}", noms[rang * 5 / 2 % noms.size()], f,
                                                extension.empty() ? "" : ".", extension);
            if (!std::ofstream(dossiers.back() / nom))
                throw std::runtime_error("fichier impossible à créer : " + nom);
        }
    }
    fmt::print("fichiers: {}\ndossiers: {}\nsecondes: {:.3f}\n", nombre, nombreDossiers, chronometre.Secondes());
}

void Regler(const Arguments& arguments)
{
    if (!SaveSetting(arguments[1], arguments[2], arguments[3]))
        throw std::runtime_error("réglage impossible à enregistrer");
}

void Extraire(const Arguments& arguments)
{
    const std::string dossier = fs::canonical(arguments[1]).string();
    OuvrirBase(arguments[2], true);
    const char lettre = LettreDuDossier(dossier);
    if (lettre == 0)
        throw std::runtime_error("plus de lettre libre pour " + dossier);

    const Chronometre total;
    bsDrive lecteur;
    DemandeMedia demande;
    demande.lecteur = Majuscules(std::string(1, lettre));
    lecteur.GetInfo(demande.lecteur);
    demande.infos = AfficherInfo(lecteur);
    const std::string nomDossier = fs::path(dossier).filename().string();
    demande.identifiant = arguments.size() > 3 ? arguments[3] : nomDossier;
    demande.nom = arguments.size() > 4 ? arguments[4] : nomDossier;

    OuiATout dialogues;
    const ReponseMedia reponse = VerifierCatalogue(demande, dialogues);
    if (!reponse.accepte)
        throw std::runtime_error("le média n'a pas pu être inscrit dans la base");
    const double identite = total.Secondes();

    Extraction extraction(reponse.base, reponse.numero, lettre, demande.infos.octetsOccupes,
                          lecteur.DriveSpaceTotal() == 0);
    if (extraction.Executer() != FinExtraction::Complete)
        throw std::runtime_error("la base n'a pas pu être écrite");
    const double secondes = total.Secondes();

    const CompteursExtraction compteurs = extraction.Lire().compteurs;
    const Extraction::Durees& durees = extraction.DureesEtapes();
    fmt::print("media: {}\n", reponse.numero);
    fmt::print("repertoires: {}\nfichiers: {}\narchives: {}\narchives_listees: {}\ndescriptions: {}\n",
               compteurs.repertoires, compteurs.fichiers, compteurs.archives, compteurs.listees,
               compteurs.descriptions);
    fmt::print(
        "secondes.identite: {:.3f}\nsecondes.parcours: {:.3f}\nsecondes.validation: {:.3f}\n"
        "secondes.compaction: {:.3f}\nsecondes: {:.3f}\n",
        identite, durees.parcours, durees.validation, durees.compaction, secondes);
    fmt::print("lignes_par_seconde: {:.0f}\n",
               static_cast<double>(compteurs.repertoires + compteurs.fichiers + 1) / secondes);
    ImprimerMemoire();
}

void Arbre(const Arguments& arguments)
{
    OuvrirBase(arguments[1], false);
    const Chronometre chronometre;
    IconesExtensions icones;
    std::atomic<double> part;
    const Navigateur navigateur = ChargerArbre(icones, {}, {}, part);
    const ArbreCatalogue& arbre = navigateur.arbre;
    fmt::print("noeuds: {}\nsecondes: {:.3f}\n", arbre.Nombre(), chronometre.Secondes());
    ImprimerMemoire();
}

// A cell on one line: tabs and line ends inside names are shown escaped.
std::string EnUneLigne(std::string_view cellule)
{
    std::string ligne;
    for (size_t special = 0; (special = cellule.find_first_of("\t\n\r")) != cellule.npos;) {
        const char c = cellule[special];
        ligne.append(cellule.substr(0, special)).append(c == '\t' ? "\\t" : c == '\n' ? "\\n" : "\\r");
        cellule.remove_prefix(special + 1);
    }
    return ligne.append(cellule);
}

// Keys begin with a blank, which a caller may leave out. A node that only clicks would make is made below its media.
int32_t ChercherNoeud(ArbreCatalogue& arbre, const std::string& cle)
{
    for (const std::string& essai : {cle, ' ' + cle})
        if (const int32_t noeud = arbre.Chercher(essai); noeud != ArbreCatalogue::Aucun)
            return noeud;
    const CleNoeud analyse = AnalyserCle(cle);
    const int32_t media =
        analyse.valide ? arbre.Chercher(' ' + analyse.catalogue + "-000000001") : ArbreCatalogue::Aucun;
    if (media == ArbreCatalogue::Aucun)
        throw std::runtime_error("clé inconnue : " + cle);
    return arbre.Ajouter(media, analyse.archive ? cle : CleRepertoire(LireNombre(analyse.catalogue), analyse.code), "");
}

void Dossier(const Arguments& arguments)
{
    OuvrirBase(arguments[1], false);
    IconesExtensions icones;
    std::atomic<double> part;
    ArbreCatalogue arbre = ChargerArbre(icones, {}, {}, part).arbre;
    const std::string cle(arbre[ChercherNoeud(arbre, arguments[2])].cle);

    const Chronometre chronometre;
    const Lecture lecture = LectureListeFichiers(cle, icones, {-1, false}, {}, part);
    const ListeFichiers& liste = lecture.liste;
    const double secondes = chronometre.Secondes();

    for (int32_t rang = 0; rang < liste.Nombre(); ++rang) {
        std::string ligne;
        for (const std::string_view cellule : liste[rang].cellules)
            ligne.append(EnUneLigne(cellule)).append("\t");
        ligne.back() = '\n';
        fmt::print("{}", ligne);
    }
    fmt::print("objets: {}\nsecondes: {:.3f}\n", liste.Nombre(), secondes);
    ImprimerMemoire();
}

// The path, the setting of the branch chosen ("-" for none) and the description, by tabs.
void Decrire(const Arguments& arguments)
{
    EtatExtracteurs etat;
    for (size_t i = 1; i < arguments.size(); ++i) {
        const std::string nom = NomEnTexte(fs::path(arguments[i]).filename().string());
        const std::string extension = ExtensionFichier(nom);
        const Branche& branche = ChoisirBranche(extension);
        const bool voulue = !ChoisirSorte(extension) && branche.Voulue() && BrancheAdmise(branche, nom, arguments[i]);
        std::string description;
        if (voulue)
            ExtraireDescription({Fichier(arguments[i]), arguments[i], extension, etat}, description);
        fmt::print("{}\t{}\t{}\n", arguments[i], voulue ? branche.cle : "-", EnUneLigne(description));
    }
}

DemandeRecherche LireDemande(const Arguments& arguments, FiltreRecherche& filtre, bool& enListe)
{
    DemandeRecherche demande;
    demande.mot = arguments[2];
    for (size_t i = 3; i < arguments.size(); ++i) {
        const auto suivant = [&]() -> const std::string& {
            if (++i == arguments.size())
                throw std::runtime_error("valeur attendue derrière " + arguments.back());
            return arguments[i];
        };
        const std::string& option = arguments[i];
        if (option == "--onglet")
            demande.onglet = suivant() == "0" ? 0 : static_cast<int>(LireNombre(arguments[i]));
        else if (option == "--media")
            demande.media = LireNombre(suivant());
        else if (option == "--descriptions")
            demande.descriptions = true;
        else if (option == "--noms")
            demande.noms = true;
        else if (option == "--extension")
            filtre.extension = suivant();
        else if (option == "--dates") {
            filtre.debut = suivant();
            filtre.fin = suivant();
        } else if (option == "--liste")
            enListe = true;
        else
            throw std::runtime_error("option inconnue : " + option);
    }
    filtre.mode = ChoisirMode(demande.onglet, !filtre.extension.empty(), !filtre.debut.empty());
    return demande;
}

void Chercher(const Arguments& arguments)
{
    FiltreRecherche filtre;
    bool enListe = false;
    const DemandeRecherche demande = LireDemande(arguments, filtre, enListe);
    OuvrirBase(arguments[1], false);

    const Chronometre chronometre;
    const std::string requete = TexteRecherche(demande);
    IconesExtensions icones;
    std::atomic<int32_t> nombre;
    const ListeFichiers liste = RechercheLabel(demande, filtre, icones, {}, nombre);
    const double secondes = chronometre.Secondes();

    for (int32_t rang = 0; enListe && rang < liste.Nombre(); ++rang) {
        const ItemListe item = liste[rang];
        std::string ligne(item.cle);
        for (const std::string_view cellule : item.cellules)
            ligne.append("\t").append(EnUneLigne(cellule));
        fmt::print("{}\n", ligne);
    }
    fmt::print("requete: {}\nresultats: {}\nsecondes: {:.3f}\n", requete, liste.Nombre(), secondes);
    ImprimerMemoire();
}

void AudioDansBase(const Arguments& arguments)
{
    OuvrirBase(arguments[1], true);
    Audio(arguments);
}

void Lister(const Arguments& arguments)
{
    OuvrirBase(arguments[1], false);
    MesurerListing(arguments);
    ImprimerMemoire();
}

void Membres(const Arguments& arguments)
{
    const ArbreArchive tv = ListerArchive(Fichier(arguments[1]), ExtensionFichier(arguments[1]));
    for (int32_t i = ArbreArchive::Racine; i <= tv.Nombre(); ++i)
        fmt::print("{}\t{}\t{}\n", i, tv[i].parent, EnUneLigne(tv[i].texte));
}

struct Commande {
    std::string_view nom;
    size_t minimum, maximum;  // arguments, the name of the command among them
    void (*executer)(const Arguments&);
};

constexpr Commande Commandes[] = {
    {"generer", 4, 4, Generer},
    {"regler", 4, 4, Regler},
    {"extraire", 3, 5, Extraire},
    {"arbre", 2, 2, Arbre},
    {"dossier", 3, 3, Dossier},
    {"decrire", 2, SIZE_MAX, Decrire},
    {"chercher", 3, SIZE_MAX, Chercher},
    {"membres", 2, 2, Membres},
    {"disque", 2, 2, Disque},
    {"toc", 2, 2, Toc},
    {"cdtexte", 2, 2, CdTexte},
    {"cddb", 4, 6, Cddb},
    {"sites", 2, 2, Sites},
    {"soumettre", 5, 5, Soumettre},
    {"lecteur", 2, SIZE_MAX, Lecteur},
    {"audio", 5, 11, AudioDansBase},
    {"lister", 4, 8, Lister},
};

}  // namespace

int main(int argc, char** argv)
{
    setenv("TZ", ":/etc/localtime", 0);  // as the program does
    const Arguments arguments(argv + 1, argv + argc);
    if (!arguments.empty() && (arguments[0] == "--help" || arguments[0] == "-h")) {
        fmt::print("{}{}{}", Aide, AideAudio, AideDossiers);
        return 0;
    }
    const char* donnees = std::getenv("XDG_DATA_HOME");
    const char* maison = std::getenv("HOME");
    const std::string partage = donnees && *donnees ? donnees : std::string(maison ? maison : ".") + "/.local/share";
    fs::create_directories(partage + "/velourne");
    FixerDossierProgramme(partage + "/velourne");

    for (const Commande& commande : Commandes) {
        if (arguments.empty() || arguments[0] != commande.nom || arguments.size() < commande.minimum ||
            arguments.size() > commande.maximum)
            continue;
        try {
            commande.executer(arguments);
            return 0;
        } catch (const std::exception& erreur) {
            fmt::print(stderr, "velourne_bench : {}\n", erreur.what());
            return 1;
        }
    }
    fmt::print(stderr, "{}{}{}", Aide, AideAudio, AideDossiers);
    return 2;
}
