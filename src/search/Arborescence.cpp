#include "search/Arborescence.h"

#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include "catalogue/Cles.h"
#include "catalogue/Descriptions.h"
#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "catalogue/TexteArbre.h"

namespace {

struct Etape {
    std::string nom, cle, cleParent;
    bool archive = false;
};

// A directory whose own row was deleted, out of the media's tree text; false when it does not stand there either.
bool LireElementArbre(Base& base, const std::string& catalogue, Etape& etape)
{
    Recordset media = LireMedia(base, catalogue);
    ElementArbre element;
    if (!ChercherElement(media.Texte("Tree"), etape.cle, element))
        return false;
    etape.cleParent = element.cleParent;
    etape.nom = element.texte;
    return true;
}

// Name and parent of the node whose key is given.
bool LireEtape(Base& base, const std::string& catalogue, Etape& etape)
{
    const CleNoeud cle = AnalyserCle(etape.cle);
    etape.archive = cle.archive;
    Recordset ligne = cle.archive ? LigneNumero(base, cle.code) : LigneRepertoire(base, catalogue, cle.code);
    if (ligne.Eof())
        return !cle.archive && LireElementArbre(base, catalogue, etape);
    if (cle.archive ? ligne.Texte("NCatalogue") != catalogue : !EstRepertoireOuDansArchive(ligne.Texte("attribut")))
        return false;
    etape.nom = cle.archive ? NomMontre(ligne) : ligne.Texte("Nom");
    etape.cleParent = CleContenant(catalogue, ligne.Texte("Répertoire"));
    return true;
}

// The nodes from this one up to, not including, the top of the media or one that is known.
template <typename Connu>
std::vector<Etape> Remonter(Base& base, const std::string& catalogue, std::string cle, const Connu& connu)
{
    std::vector<Etape> etapes;
    std::set<std::string> vus;  // a damaged base may hold a ring
    const std::string sommet = CleRepertoire(catalogue, CodeRacine);
    while (!cle.empty() && cle != sommet && !connu(cle) && vus.insert(cle).second) {
        Etape etape;
        etape.cle = cle;
        if (!LireEtape(base, catalogue, etape))
            break;
        cle = etape.cleParent;
        etapes.push_back(std::move(etape));
    }
    return etapes;
}

std::vector<Etape> Remonter(Base& base, std::string_view cleResultat)
{
    const CleResultat cle = AnalyserCleResultat(cleResultat);
    return Remonter(base, cle.catalogue, cle.noeud, [](const std::string&) { return false; });
}

std::string Label(Base& base, const std::string& catalogue)
{
    return std::string(LireMedia(base, catalogue).Texte("Label"));
}

// Nobody reads on behind so many bytes, and directories nested without end would fill the memory.
constexpr size_t LongueurMontree = 1000;

// Places by the keys of nodes, each node read once however many results lie below it.
class LectureLieux {
public:
    explicit LectureLieux(const std::stop_token& arret) : base_(OuvrirBase(arret)) {}

    int32_t Lire(const ItemListe& resultat)
    {
        // All that precedes "#" is the same for all that a node holds.
        const std::string_view debut = resultat.cle.substr(0, resultat.cle.find('#'));
        if (debut != dernier_) {
            const CleResultat cle = AnalyserCleResultat(resultat.cle);
            place_ = Trouver(cle.catalogue, cle.noeud);
            dernier_ = debut;
        }
        return resultat.EstRepertoire() ? noeuds_[static_cast<size_t>(place_)].parent : place_;
    }
    std::vector<Lieu> Lieux()
    {
        std::vector<Lieu> lieux;
        lieux.reserve(noeuds_.size());
        for (Noeud& noeud : noeuds_)
            lieux.push_back(std::move(noeud.lieu));
        return lieux;
    }

private:
    struct Noeud {
        Lieu lieu;
        int32_t parent;
    };

    int32_t Trouver(const std::string& catalogue, const std::string& cle)
    {
        if (const auto connu = places_.find(cle); connu != places_.end())
            return connu->second;
        const std::vector<Etape> etapes =
            Remonter(base_, catalogue, cle, [this](const std::string& autre) { return places_.contains(autre); });
        const std::string& haut = etapes.empty() ? cle : etapes.back().cleParent;
        int32_t place = 0;
        if (const auto connu = places_.find(haut); connu != places_.end())
            place = connu->second;
        else
            place = Ajouter(haut, {Label(base_, catalogue), "\\"}, static_cast<int32_t>(noeuds_.size()));
        for (auto etape = etapes.rbegin(); etape != etapes.rend(); ++etape) {
            Lieu lieu = noeuds_[static_cast<size_t>(place)].lieu;
            if (lieu.dossier.size() < LongueurMontree)
                lieu.dossier.append(lieu.dossier.size() > 1 ? "\\" : "").append(etape->nom);
            place = Ajouter(etape->cle, std::move(lieu), place);
        }
        return place;
    }
    int32_t Ajouter(const std::string& cle, Lieu lieu, int32_t parent)
    {
        const auto place = static_cast<int32_t>(noeuds_.size());
        noeuds_.push_back({std::move(lieu), parent});
        places_[cle] = place;
        return place;
    }

    Base base_;
    std::vector<Noeud> noeuds_;
    std::unordered_map<std::string, int32_t> places_;
    std::string dernier_;
    int32_t place_ = 0;
};

}  // namespace

int32_t Generer_Arborescence(ArbreCatalogue& arbre, std::string_view cleResultat)
{
    Base base = OuvrirBase();
    const std::vector<Etape> etapes = Remonter(base, cleResultat);
    for (auto etape = etapes.rbegin(); etape != etapes.rend(); ++etape)
        if (const int32_t parent = arbre.Chercher(etape->cleParent); parent != ArbreCatalogue::Aucun)
            arbre.Ajouter(parent, etape->cle, etape->nom, etape->archive ? SansImage : ImageRepertoire,
                          etape->archive ? SansImage : ImageRepertoireOuvert);
    return arbre.Chercher(AnalyserCleResultat(cleResultat).noeud);
}

std::string Generer_Arborescence_Lite(std::string_view cleResultat)
{
    Base base = OuvrirBase();
    const std::string catalogue = AnalyserCleResultat(cleResultat).catalogue;
    if (catalogue.empty())
        return {};
    std::string chemin = Label(base, catalogue);
    const std::vector<Etape> etapes = Remonter(base, cleResultat);
    for (auto etape = etapes.rbegin(); etape != etapes.rend(); ++etape)
        chemin.append("\\").append(etape->nom);
    return chemin;
}

std::string CleItemResultat(std::string_view cleResultat)
{
    const CleResultat cle = AnalyserCleResultat(cleResultat);
    Base base = OuvrirBase();
    Recordset ligne = LigneNumero(base, cle.ligne);
    if (!EstRepertoireOuDansArchive(ligne.Texte("attribut")))
        return cle.item;
    return CleRepertoire(cle.catalogue, ligne.Texte("RepertoirePere"));
}

std::string AfficherDescriptionInfobulle(const ItemListe& resultat)
{
    Base base = OuvrirBase();
    return LireDescriptionResultat(base, AnalyserCleResultat(resultat.cle), resultat.cellules[ColNom]).texte;
}

LieuxResultats LireLieux(const ListeFichiers& resultats, const std::stop_token& arret)
{
    LectureLieux lecture(arret);
    LieuxResultats lieux;
    lieux.places.resize(static_cast<size_t>(resultats.Nombre()));
    for (int32_t rang = 0; rang < resultats.Nombre() && !arret.stop_requested(); ++rang)
        lieux.places[static_cast<size_t>(resultats.Indice(rang))] = lecture.Lire(resultats[rang]);
    lieux.lieux = lecture.Lieux();
    return arret.stop_requested() ? LieuxResultats() : lieux;
}
