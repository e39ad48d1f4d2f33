#include "catalogue/Descriptions.h"

#include <algorithm>

#include "catalogue/Cles.h"
#include "store/Base.h"
#include "store/CycleBase.h"

std::string SeparerPhoto(std::string_view description, std::string& photo)
{
    constexpr std::string_view debut = "<photo>", fin = "</photo>";
    if (description.find(debut) == std::string_view::npos)
        return std::string(description);
    const size_t place = description.find(fin);
    if (place == std::string_view::npos)  // a block that never ends: no path
        return std::string(description.substr(std::min(description.size(), fin.size() - 1)));

    photo = description.substr(0, place);
    for (size_t i = photo.find(debut); i != std::string::npos; i = photo.find(debut))
        photo.erase(i, debut.size());
    return std::string(description.substr(place + fin.size()));
}

std::string LireDescriptionNoeud(const ArbreCatalogue& arbre, std::string& photo)
{
    photo.clear();
    const int32_t noeud = arbre.Selection();
    if (noeud == ArbreCatalogue::Aucun || arbre[noeud].parent == ArbreCatalogue::Aucun)
        return {};

    Base base = OpenDatabase(BaseCourante());
    Recordset lignes;
    if (arbre.EstMedia(noeud)) {
        const CleNoeud cle = AnalyserCle(arbre[noeud].cle);
        lignes = base.OpenRecordset("Select * from Liste where RepertoirePere = '" + cle.code +
                                    "' and NCatalogue = " + cle.catalogue + " order by nom asc");
    } else {
        const std::string cleParent(arbre[arbre[noeud].parent].cle);
        const CleNoeud parent = AnalyserCle(cleParent);
        const std::string debut = "Select * from Liste where Répertoire= '" +
                                  (parent.archive ? cleParent : parent.code) + "' and NCatalogue = " + parent.catalogue;
        const std::string fin = std::string(arbre[noeud].texte) + "' order by nom asc";
        lignes = base.OpenRecordset(debut + " and Nom = '" + fin);
        if (lignes.Eof())
            lignes = base.OpenRecordset(debut + " and Alias = '" + fin);
    }
    if (lignes.Eof() || lignes.EstNul("Description"))
        return {};
    return SeparerPhoto(lignes.Texte("Description"), photo);
}

std::string LireDescriptionItem(TypeItem type, const CleItem& cle, std::string_view nom, std::string& photo)
{
    photo.clear();
    if (cle.catalogue.empty())
        return {};
    Base base = OpenDatabase(BaseCourante());
    Recordset lignes;
    if (type == TypeItem::Repertoire) {
        const std::string debut =
            "Select * from Liste where NCAtalogue = " + cle.catalogue + " and RepertoirePere = '" + cle.code;
        const std::string fin = std::string(nom) + "' order by nom asc";
        lignes = base.OpenRecordset(debut + "' and Nom = '" + fin);
        if (lignes.Eof())
            lignes = base.OpenRecordset(debut + "' and Alias = '" + fin);
    } else {
        lignes = base.OpenRecordset("Select * from Liste where Num = " + cle.code + " order by nom asc");
    }
    if (lignes.Eof() || lignes.EstNul("Description"))
        return {};
    return SeparerPhoto(lignes.Texte("Description"), photo);
}
