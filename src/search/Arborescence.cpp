#include "search/Arborescence.h"

#include <set>
#include <vector>

#include "catalogue/Cles.h"
#include "catalogue/Descriptions.h"
#include "commun/Formes.h"
#include "search/RechercheLabel.h"
#include "store/Base.h"
#include "store/CycleBase.h"

namespace {

constexpr std::string_view CodeRacine = "000000001";

struct Etape {
    std::string nom, cle, cleParent;
};

// The name and the parent's code of a directory whose own row was deleted, out of the media's tree text; false when it
// does not stand there either.
bool LireElementArbre(Base& base, const std::string& catalogue, const std::string& code, Etape& etape,
                      std::string& pere)
{
    Recordset media = base.OpenRecordset("Select * from Catalogue where  Num = " + catalogue + " order by  Label asc");
    const std::string_view texte = media.Texte("Tree");
    const std::string cherche = "#" + etape.cle + "#";
    const size_t place = texte.find(cherche);
    if (place == texte.npos)
        return false;
    const size_t debut = texte.rfind(';', place) + 1, fin = texte.find(';', place);
    etape.cleParent = texte.substr(debut, place - debut);
    etape.nom = texte.substr(place + cherche.size(), fin == texte.npos ? fin : fin - place - cherche.size());
    pere = AnalyserCle(etape.cleParent).code;
    return !pere.empty() && pere != code;
}

bool LireRepertoire(Base& base, const std::string& catalogue, const std::string& code, Etape& etape, std::string& pere)
{
    etape.cle = " " + catalogue + "-" + code;
    Recordset ligne = base.OpenRecordset("select * from Liste where RepertoirePere = '" + code +
                                         "' and NCatalogue = " + catalogue + " order by Nom");
    if (ligne.Eof())
        return LireElementArbre(base, catalogue, code, etape, pere);
    if (ligne.Texte("attribut") != "D")
        return false;
    pere = ligne.Texte("Répertoire");
    etape.nom = ligne.Texte("Nom");
    etape.cleParent = " " + catalogue + "-" + pere;
    return true;
}

// The directories from that of the result up to, not including, the top of the media.
std::vector<Etape> Remonter(Base& base, const ItemListe& resultat)
{
    const CleResultat cle = AnalyserCleResultat(resultat.cle);
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

int32_t Generer_Arborescence(ArbreCatalogue& arbre, const ItemListe& resultat)
{
    Base base = OpenDatabase(BaseCourante());
    const std::vector<Etape> etapes = Remonter(base, resultat);
    for (auto etape = etapes.rbegin(); etape != etapes.rend(); ++etape)
        if (const int32_t parent = arbre.Chercher(etape->cleParent); parent != ArbreCatalogue::Aucun)
            arbre.Ajouter(parent, etape->cle, etape->nom, ImageRepertoire, ImageRepertoireOuvert);
    return arbre.Chercher(AnalyserCleResultat(resultat.cle).noeud);
}

std::string Generer_Arborescence_Lite(const ItemListe& resultat)
{
    Base base = OpenDatabase(BaseCourante());
    const std::string catalogue = AnalyserCleResultat(resultat.cle).catalogue;
    if (catalogue.empty())
        return {};
    Recordset media = base.OpenRecordset("Select * from Catalogue where  Num = " + catalogue + " order by  Label asc");
    std::string chemin(media.Texte("Label"));
    const std::vector<Etape> etapes = Remonter(base, resultat);
    for (auto etape = etapes.rbegin(); etape != etapes.rend(); ++etape)
        chemin.append("\\").append(etape->nom);
    return chemin;
}

std::string AfficherDescriptionInfobulle(const std::string& ligne, const std::string& catalogue, std::string_view nom)
{
    if (ligne.empty() || catalogue.empty())
        return {};
    Base base = OpenDatabase(BaseCourante());
    const std::string fin = std::string(nom) + "' order by nom asc";
    Recordset lignes = base.OpenRecordset("Select * from Liste where Num= " + ligne + " and NCatalogue = " + catalogue +
                                          " and Nom = '" + fin);
    if (lignes.Eof())
        lignes = base.OpenRecordset("Select * from Liste where Num = " + ligne + " and NCatalogue = " + catalogue +
                                    " and Alias = '" + fin);
    if (lignes.Eof() || lignes.EstNul("Description"))
        return {};
    std::string photo;
    return SeparerPhoto(lignes.Texte("Description"), photo);
}
