#include "catalogue/ItemsListe.h"

#include <algorithm>
#include <iterator>

#include "catalogue/Cles.h"
#include "commun/Formes.h"

ChampsItem::ChampsItem(Recordset& lignes)
    : num(lignes.Indice("Num")),
      catalogue(lignes.Indice("NCatalogue")),
      code(lignes.Indice("Repertoirepere")),
      nom(lignes.Indice("Nom")),
      alias(lignes.Indice("Alias")),
      taille(lignes.Indice("Taille")),
      type(lignes.Indice("TypeF")),
      date(lignes.Indice("DateF")),
      heure(lignes.Indice("Heure")),
      attribut(lignes.Indice("attribut")),
      description(lignes.Indice("Description"))
{
}

std::string_view MontrerDate(std::string_view date, std::string& place)
{
    place.clear();
    if (date.size() == 8)
        place.append(date.substr(6)).append("/").append(date.substr(4, 2)).append("/").append(date.substr(0, 4));
    return place;
}

ItemListe FaireItem(Recordset& lignes, const ChampsItem& champs, bool dansArchive, TextesItem& textes)
{
    ItemListe item;
    const std::string_view attribut = lignes.Texte(champs.attribut);
    const bool repertoire = attribut == "D" || attribut == "Z";
    const int64_t catalogue = lignes.Entier(champs.catalogue);
    textes.cle =
        CleRepertoire(catalogue, repertoire ? std::string(lignes.Texte(champs.code)) : Str(lignes.Entier(champs.num)));
    item.cle = textes.cle;
    item.icone = repertoire ? ImageRepertoire : ImageGenerique;
    item.cellules = {
        lignes.Texte(lignes.EstNul(champs.alias) ? champs.nom : champs.alias),
        lignes.Texte(champs.taille),
        repertoire    ? std::string_view("Répertoire")
        : dansArchive ? std::string_view("Fichier Compressé")
                      : lignes.Texte(champs.type),
        MontrerDate(lignes.Texte(champs.date), textes.date),
        lignes.Texte(champs.heure),
        repertoire ? std::string_view("D") : attribut,
        Trim(lignes.Texte(champs.description)).empty() ? std::string_view() : std::string_view(" oui"),
    };
    return item;
}

bool EstExtensionArchive(std::string_view extension)
{
    constexpr std::string_view archives[] = {"zip", "arj", "lha", "lzh", "ace", "rar"};
    return std::find(std::begin(archives), std::end(archives), extension) != std::end(archives);
}
