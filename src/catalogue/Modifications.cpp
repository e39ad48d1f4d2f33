#include "catalogue/Modifications.h"

#include "catalogue/Cles.h"
#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "catalogue/TexteArbre.h"
#include "commun/Formes.h"
#include "platform/OperationsFichiers.h"
#include "store/CycleBase.h"
#include "store/Transaction.h"

namespace {

// What a directory item shows must be the name or alias of its row; a file is told by its number alone.
Recordset LigneItem(Base& base, const ItemListe& item)
{
    const CleItem cle = AnalyserCleItem(item.cle);
    if (cle.catalogue.empty())
        return {};
    return item.EstRepertoire() ? LigneRepertoire(base, cle.catalogue, cle.code, item.cellules[ColNom])
                                : LigneNumero(base, cle.code);
}

bool Supprimer(Recordset ligne)
{
    return ligne.RecordCount() == 0 || ligne.Delete();
}

bool Ecrire(Recordset ligne, const Description& description)
{
    if (ligne.Eof())
        return false;
    ligne.Edit();
    ligne.Poser("Description", JoindrePhoto(description));
    const bool ecrite = ligne.Update();
    ligne.Bookmark(ligne.LastModified());
    return ecrite;
}

}  // namespace

bool EnregistrerMedia(std::string_view numero, ChampMedia champ, std::string_view valeur)
{
    Base base = OuvrirBase();
    Recordset media = LireMedia(base, numero);
    if (media.Eof())
        return false;
    media.Edit();
    if (champ == ChampMedia::Label) {
        media.Poser("Label", valeur);
    } else {
        EcrireFichier(CheminIconeTemporaire(), valeur);
        media.PoserOctets("Icone", valeur);
    }
    const bool ecrit = media.Update();
    media.Bookmark(media.LastModified());
    return ecrit;
}

int64_t NumeroDuNoeud(const ArbreCatalogue& arbre, int32_t noeud)
{
    Base base = OuvrirBase();
    return TrouverLigne(base, arbre, noeud).Numero();
}

int64_t NumeroDeLItem(const ItemListe& item)
{
    Base base = OuvrirBase();
    return LigneItem(base, item).Numero();
}

bool RenommerAlias(int64_t numero, std::string_view texte, const ArbreCatalogue& arbre, int64_t media)
{
    Base base = OuvrirBase();
    Transaction transaction(base);
    Recordset ligne = base.OpenRecordset("select * from Liste where Num = " + Str(numero) + " order by nom");
    if (ligne.Eof())
        return false;
    ligne.Edit();
    ligne.Poser("Alias", texte);
    if (!ligne.Update())
        return false;
    ligne.Bookmark(ligne.LastModified());
    ligne.Close();
    return EcrireArbre(arbre, media) && transaction.Valider();
}

bool SupprimerNoeud(const ArbreCatalogue& arbre, int32_t noeud)
{
    Base base = OuvrirBase();
    return base.Ouverte() && NomDemandable(arbre[noeud].texte) && Supprimer(TrouverLigne(base, arbre, noeud));
}

bool SupprimerItem(const ItemListe& item)
{
    const CleItem cle = AnalyserCleItem(item.cle);
    Base base = OuvrirBase();
    if (!base.Ouverte() || cle.catalogue.empty())
        return false;
    if (!item.EstRepertoire())
        return Supprimer(base.OpenRecordset("Select * from Liste where Num = " + cle.code));
    return Supprimer(base.OpenRecordset("Select * from Liste where Repertoirepere= '" + cle.code +
                                        "' and NCatalogue = " + cle.catalogue + " order by nom asc"));
}

bool EstDescriptible(const ArbreCatalogue& arbre, int32_t noeud)
{
    Base base = OuvrirBase();
    return !LigneNoeud(base, arbre, noeud).Eof();
}

bool EstDescriptible(const ItemListe& item)
{
    Base base = OuvrirBase();
    return !LigneItem(base, item).Eof();
}

bool EnregistrerDescription(const Description& description, const ArbreCatalogue& arbre, int32_t noeud)
{
    Base base = OuvrirBase();
    return Ecrire(LigneNoeud(base, arbre, noeud), description);
}

bool EnregistrerDescription(const Description& description, const ItemListe& item)
{
    Base base = OuvrirBase();
    return Ecrire(LigneItem(base, item), description);
}
