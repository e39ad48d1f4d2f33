#include "audiocd/ModifierDescriptionFichier.h"

#include "commun/Formes.h"
#include "store/Base.h"
#include "store/CycleBase.h"

bool ModifierDescriptionFichier(int64_t media, std::string_view texte)
{
    Base base = OpenDatabase(BaseCourante());
    Recordset racine =
        base.OpenRecordset("select * from Liste where NCatalogue = " + Str(media) + " and Répertoire = '000000000' ");
    if (racine.Eof())
        return false;
    racine.Edit();
    racine.Poser("Description", texte);
    if (!racine.Update())
        return false;
    racine.Bookmark(racine.LastModified());
    return true;
}
