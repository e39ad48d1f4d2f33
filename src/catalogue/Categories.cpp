#include "catalogue/Categories.h"

#include <algorithm>

#include "catalogue/Medias.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "store/Reglages.h"

std::vector<std::string> CategoriesOffertes(Base& base)
{
    std::vector<std::string> noms;
    for (const std::string_view fixe : CategoriesFixes)
        noms.emplace_back(Trim(fixe));
    for (Recordset medias = MediasMontres(base); !medias.Eof(); medias.MoveNext())
        if (const std::string_view nom = Trim(medias.Texte("Categorie"));
            !nom.empty() && std::find(noms.begin(), noms.end(), nom) == noms.end())
            noms.emplace_back(nom);
    std::sort(noms.begin() + CategoriesFixes.size(), noms.end(),
              [](const std::string& a, const std::string& b) { return ComparerFrancais(a, b) < 0; });
    return noms;
}

std::string CategorieMedia(Base& base, std::string_view media)
{
    return std::string(Trim(LireMedia(base, media).Texte("Categorie")));
}

uint32_t CouleurCategorie(std::string_view categorie)
{
    const double couleur = GetSettingNombre(SectionTypes, Trim(categorie), 0);
    return couleur > 0 && couleur <= 0xFFFFFF ? static_cast<uint32_t>(couleur) : 0;
}

bool EcrireCouleurCategorie(std::string_view categorie, uint32_t couleur)
{
    return SaveSetting(SectionTypes, Trim(categorie), std::to_string(couleur));
}

std::vector<int64_t> MediasDeCategorie(Base& base, std::string_view categorie)
{
    std::vector<int64_t> numeros;
    for (Recordset medias = MediasMontres(base); !medias.Eof(); medias.MoveNext())
        if (Trim(medias.Texte("Categorie")) == Trim(categorie))
            numeros.push_back(medias.Entier("Num"));
    return numeros;
}
