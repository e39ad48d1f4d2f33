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

Recordset LireMedia(Base& base, std::string_view numero)
{
    return base.OpenRecordset("Select * from Catalogue where  Num =  " + std::string(numero) + " order by  Label asc");
}

int RangParLabel(Base& base, std::string_view numero)
{
    int rang = 0;
    for (Recordset medias = TousLesMedias(base); !medias.Eof(); medias.MoveNext(), ++rang)
        if (medias.Texte("Num") == numero)
            return rang;
    return -1;
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
