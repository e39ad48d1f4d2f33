#include "catalogue/Lignes.h"

#include "commun/Formes.h"

namespace {

// The first of two selects that has a row, the second one otherwise.
Recordset NomOuAlias(Base& base, const std::string& debut, std::string_view nom)
{
    if (!NomDemandable(nom))
        return {};
    const std::string fin = std::string(nom) + "' order by nom asc";
    Recordset lignes = base.OpenRecordset(debut + " and Nom = '" + fin);
    return lignes.Eof() ? base.OpenRecordset(debut + " and Alias = '" + fin) : std::move(lignes);
}

std::string Texte(std::string_view morceau)
{
    return std::string(morceau);
}

}  // namespace

int64_t NombreDeLignes(Base& base)
{
    return base.OpenRecordset("select count(*) as n from Liste").Entier("n");
}

// Most such names would make the statement fail; one that disc or user has chosen with care would make it another.
bool NomDemandable(std::string_view nom)
{
    return nom.find('\'') == std::string_view::npos;
}

Recordset LignesContenu(Base& base, const CleNoeud& noeud)
{
    return base.OpenRecordset("Select * from Liste where Répertoire= '" + noeud.contenu +
                              "' and NCatalogue = " + noeud.catalogue + " order by nom asc");
}

Recordset LignesFichiers(Base& base, const CleNoeud& noeud)
{
    return base.OpenRecordset("Select * from Liste where Répertoire= '" + noeud.contenu +
                              "' and NCatalogue = " + noeud.catalogue + (noeud.archive ? " " : "  ") +
                              "and Attribut <> 'D' And Attribut <> 'Z' order by nom asc,alias asc");
}

Recordset LigneRacine(Base& base, std::string_view media)
{
    return base.OpenRecordset("Select * from Liste where NCatalogue = " + Texte(media) +
                              " and Répertoire = '000000000' order by Num asc");
}

Recordset LignesRepertoires(Base& base, int64_t media)
{
    return base.OpenRecordset("Select * from Liste where Attribut= 'D' and NCatalogue = " + Str(media) +
                              " order by NCatalogue asc, Répertoire asc, nom asc");
}

Recordset TrouverLigne(Base& base, const ArbreCatalogue& arbre, int32_t noeud)
{
    const CleNoeud parent = AnalyserCle(arbre[arbre[noeud].parent].cle);
    return NomOuAlias(
        base, "Select * from Liste where Répertoire= '" + parent.contenu + "' and NCatalogue = " + parent.catalogue,
        arbre[noeud].texte);
}

Recordset LigneNoeud(Base& base, const ArbreCatalogue& arbre, int32_t noeud)
{
    if (noeud == ArbreCatalogue::Aucun || arbre[noeud].parent == ArbreCatalogue::Aucun)
        return {};
    if (!arbre.EstMedia(noeud))
        return TrouverLigne(base, arbre, noeud);
    const CleNoeud cle = AnalyserCle(arbre[noeud].cle);
    return LigneRepertoire(base, cle.catalogue, cle.code);
}

Recordset LigneRepertoire(Base& base, std::string_view media, std::string_view code)
{
    return base.OpenRecordset("Select * from Liste where RepertoirePere = '" + Texte(code) +
                              "' and NCatalogue = " + Texte(media) + " order by nom asc");
}

Recordset LigneRepertoire(Base& base, std::string_view media, std::string_view code, std::string_view nom)
{
    return NomOuAlias(
        base, "Select * from Liste where NCAtalogue =  " + Texte(media) + " and RepertoirePere = '" + Texte(code) + "'",
        nom);
}

Recordset LigneNumero(Base& base, std::string_view numero)
{
    return base.OpenRecordset("Select * from Liste where Num =  " + Texte(numero) + " order by nom asc");
}

Recordset LigneNumero(Base& base, std::string_view numero, std::string_view media, std::string_view nom)
{
    if (!NomDemandable(nom))
        return {};
    const std::string fin = std::string(nom) + "' order by nom asc";
    Recordset lignes = base.OpenRecordset("Select * from Liste where Num= " + Texte(numero) +
                                          " and NCatalogue = " + Texte(media) + " and Nom = '" + fin);
    if (!lignes.Eof())
        return lignes;
    return base.OpenRecordset("Select * from Liste where Num = " + Texte(numero) + " and NCatalogue = " + Texte(media) +
                              " and Alias = '" + fin);
}

bool EstRepertoire(std::string_view attribut)
{
    return attribut == "D";
}

bool EstRepertoireOuDansArchive(std::string_view attribut)
{
    return attribut == "D" || attribut == "Z";
}

std::string_view NomMontre(Recordset& ligne)
{
    return ligne.Texte(ligne.EstNul("Alias") ? "Nom" : "Alias");
}
