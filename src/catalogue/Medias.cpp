#include "catalogue/Medias.h"

#include "catalogue/ArretCourse.h"
#include "store/Transaction.h"

std::string DoublerApostrophes(std::string_view texte)
{
    std::string resultat;
    for (const char c : texte)
        resultat.append(c == '\'' ? 2 : 1, c);
    return resultat;
}

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
    return base.OpenRecordset("select * from Catalogue where Identifiant = '" + std::string(identifiant) +
                              "' order by Identifiant");
}

Recordset MediaParLabel(Base& base, std::string_view label)
{
    return base.OpenRecordset("select * from Catalogue where Label = '" + std::string(label) +
                              "' order by Identifiant");
}

bool EffacerMedia(Base& base, std::string_view numero)
{
    return base.Execute("delete * from Liste where NCatalogue = " + std::string(numero)) &&
           base.Execute("delete * from Catalogue where Num = " + std::string(numero));
}

bool SupprimerMedia(std::string_view numero, const std::string& chemin)
{
    if (numero.empty())
        return false;
    Base base = OpenDatabase(chemin);
    Transaction transaction(base);  // does nothing inside another
    bool fait = EffacerMedia(base, numero);
    if (fait && transaction.Ouverte())
        fait = transaction.Valider();
    ArreterCourse();
    return fait;
}

bool ModifierCatalogue(int64_t numero, bool drapeau, std::string_view arbre, const std::string& chemin)
{
    Base base = OpenDatabase(chemin);
    Recordset media =
        base.OpenRecordset("select * from Catalogue where Num = " + std::to_string(numero) + " order by Identifiant");
    if (media.RecordCount() == 0)
        return false;
    media.Edit();
    media.Poser("Flag", int64_t{drapeau});
    media.Poser("Tree", arbre);
    if (!media.Update())
        return false;
    media.Bookmark(media.LastModified());
    return true;
}
