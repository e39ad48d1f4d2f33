#include "catalogue/Emprunteurs.h"

#include <algorithm>
#include <string>

#include "commun/Formes.h"

Recordset Emprunteurs(Base& base)
{
    return base.OpenRecordset("Select * from Pret order by  PreNom asc");
}

Recordset LireEmprunteur(Base& base, std::string_view numero)
{
    return base.OpenRecordset("Select * from Pret where Num = " + std::string(Trim(numero)) + " order by  PreNom asc");
}

Recordset MediasPretes(Base& base, std::string_view numero)
{
    return base.OpenRecordset("Select * from Catalogue where NPret = " + std::string(Trim(numero)) +
                              " order by label asc");
}

// Values that are no 32-bit numbers, which a foreign base may hold, do not count.
int64_t NouveauNumeroEmprunteur(Base& base)
{
    Recordset personnes = base.OpenRecordset("select max(Num) as Plus from Pret where Num < 2147483647");
    Recordset medias = base.OpenRecordset("select max(NPret) as Plus from Catalogue where NPret < 2147483647");
    return 1 + std::max({personnes.Entier("Plus"), medias.Entier("Plus"), int64_t{0}});
}
