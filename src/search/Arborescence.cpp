#include "search/Arborescence.h"

#include <set>
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
};

// The name and the parent's code of a directory whose own row was deleted, out of the media's tree text; false when it
// does not stand there either.
bool LireElementArbre(Base& base, const std::string& catalogue, const std::string& code, Etape& etape,
                      std::string& pere)
{
    Recordset media = LireMedia(base, catalogue);
    ElementArbre element;
    if (!ChercherElement(media.Texte("Tree"), etape.cle, element))
        return false;
    etape.cleParent = element.cleParent;
    etape.nom = element.texte;
    pere = AnalyserCle(etape.cleParent).code;
    return !pere.empty() && pere != code;
}

bool LireRepertoire(Base& base, const std::string& catalogue, const std::string& code, Etape& etape, std::string& pere)
{
    etape.cle = CleRepertoire(catalogue, code);
    Recordset ligne = LigneRepertoire(base, catalogue, code);
    if (ligne.Eof())
        return LireElementArbre(base, catalogue, code, etape, pere);
    if (!EstRepertoire(ligne.Texte("attribut")))
        return false;
    pere = ligne.Texte("Répertoire");
    etape.nom = ligne.Texte("Nom");
    etape.cleParent = CleRepertoire(catalogue, pere);
    return true;
}

// The directories from that of the result up to, not including, the top of the media.
std::vector<Etape> Remonter(Base& base, std::string_view cleResultat)
{
    const CleResultat cle = AnalyserCleResultat(cleResultat);
    std::vector<Etape> etapes;
    std::set<std::string> vus;  // a damaged base may hold a ring
    std::string code = AnalyserCle(cle.noeud).code, pere;
    for (Etape etape; !code.empty() && code != CodeRacine && vus.insert(code).second; code = pere) {
        if (!LireRepertoire(base, cle.catalogue, code, etape, pere))
            break;
        etapes.push_back(etape);
    }
    return etapes;
}

}  // namespace

int32_t Generer_Arborescence(ArbreCatalogue& arbre, std::string_view cleResultat)
{
    Base base = OuvrirBase();
    const std::vector<Etape> etapes = Remonter(base, cleResultat);
    for (auto etape = etapes.rbegin(); etape != etapes.rend(); ++etape)
        if (const int32_t parent = arbre.Chercher(etape->cleParent); parent != ArbreCatalogue::Aucun)
            arbre.Ajouter(parent, etape->cle, etape->nom, ImageRepertoire, ImageRepertoireOuvert);
    return arbre.Chercher(AnalyserCleResultat(cleResultat).noeud);
}

std::string Generer_Arborescence_Lite(std::string_view cleResultat)
{
    Base base = OuvrirBase();
    const std::string catalogue = AnalyserCleResultat(cleResultat).catalogue;
    if (catalogue.empty())
        return {};
    Recordset media = LireMedia(base, catalogue);
    std::string chemin(media.Texte("Label"));
    const std::vector<Etape> etapes = Remonter(base, cleResultat);
    for (auto etape = etapes.rbegin(); etape != etapes.rend(); ++etape)
        chemin.append("\\").append(etape->nom);
    return chemin;
}

std::string AfficherDescriptionInfobulle(const ItemListe& resultat)
{
    Base base = OuvrirBase();
    return LireDescriptionResultat(base, AnalyserCleResultat(resultat.cle), resultat.cellules[ColNom]).texte;
}
