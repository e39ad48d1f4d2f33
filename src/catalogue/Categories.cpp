#include "catalogue/Categories.h"

#include <string>

#include "catalogue/Medias.h"
#include "commun/Formes.h"
#include "store/Reglages.h"

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
