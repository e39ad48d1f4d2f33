#include "catalogue/Descriptions.h"

#include <algorithm>

#include "catalogue/Lignes.h"
#include "commun/Formes.h"

namespace {

constexpr std::string_view Debut = "<photo>", Fin = "</photo>";

Description Lire(Recordset ligne)
{
    return ligne.Eof() || ligne.EstNul("Description") ? Description() : SeparerPhoto(ligne.Texte("Description"));
}

}  // namespace

Description SeparerPhoto(std::string_view stockee)
{
    if (stockee.find(Debut) == std::string_view::npos)
        return {std::string(stockee), ""};
    const size_t place = stockee.find(Fin);
    if (place == std::string_view::npos)  // a block that never ends: no path
        return {std::string(stockee.substr(std::min(stockee.size(), Fin.size() - 1))), ""};

    Description description{std::string(stockee.substr(place + Fin.size())), std::string(stockee.substr(0, place))};
    for (size_t i = description.photo.find(Debut); i != std::string::npos; i = description.photo.find(Debut))
        description.photo.erase(i, Debut.size());
    return description;
}

std::string JoindrePhoto(const Description& description)
{
    if (description.photo.empty())
        return description.texte;
    return std::string(Debut).append(description.photo).append(Fin).append(description.texte);
}

Description LireDescriptionNoeud(Base& base, const ArbreCatalogue& arbre)
{
    return Lire(LigneNoeud(base, arbre, arbre.Selection()));
}

Description LireDescriptionItem(Base& base, TypeItem type, const CleItem& cle, std::string_view nom)
{
    if (cle.catalogue.empty())
        return {};
    return Lire(type == TypeItem::Repertoire ? LigneRepertoire(base, cle.catalogue, cle.code, nom)
                                             : LigneNumero(base, cle.code));
}

Description LireDescriptionResultat(Base& base, const CleResultat& cle, std::string_view nom)
{
    if (cle.ligne.empty() || cle.catalogue.empty())
        return {};
    return Lire(LigneNumero(base, cle.ligne, cle.catalogue, nom));
}

bool ModifierDescriptionFichier(Base& base, int64_t media, std::string_view texte)
{
    Recordset sommet =
        base.OpenRecordset("select * from Liste where NCatalogue = " + Str(media) + " and Répertoire = '000000000' ");
    if (sommet.Eof())
        return false;
    sommet.Edit();
    sommet.Poser("Description", texte);
    if (!sommet.Update())
        return false;
    sommet.Bookmark(sommet.LastModified());
    return true;
}
