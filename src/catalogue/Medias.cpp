#include "catalogue/Medias.h"

namespace {

std::string DoublerApostrophes(std::string_view texte)
{
    std::string resultat;
    for (const char c : texte)
        resultat.append(c == '\'' ? 2 : 1, c);
    return resultat;
}

}  // namespace

Recordset MediasMontres(Base& base)
{
    return base.OpenRecordset("Select * from Catalogue where  Flag = true order by  Label asc");
}

Recordset TousLesMedias(Base& base)
{
    return base.OpenRecordset("select * from Catalogue  order by Label");
}

Recordset MediasParLabel(Base& base)
{
    return base.OpenRecordset("Select * from Catalogue order by Label");
}

Recordset MediaListe(Base& base, std::string_view numero)
{
    return base.OpenRecordset("Select * from Catalogue where Num = " + std::string(numero) +
                              " order by Label asc,Identifiant asc");
}

Recordset LireMedia(Base& base, std::string_view numero)
{
    return base.OpenRecordset("Select * from Catalogue where  Num =  " + std::string(numero) + " order by  Label asc");
}

Recordset MediaParIdentifiant(Base& base, std::string_view identifiant)
{
    return base.OpenRecordset("select * from Catalogue where Identifiant = '" + DoublerApostrophes(identifiant) +
                              "' order by Identifiant");
}

Recordset MediaParLabel(Base& base, std::string_view label)
{
    return base.OpenRecordset("select * from Catalogue where Label = '" + DoublerApostrophes(label) +
                              "' order by Identifiant");
}
