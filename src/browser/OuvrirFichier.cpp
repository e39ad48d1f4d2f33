#include "browser/OuvrirFichier.h"

#include <algorithm>

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "extraction/bsDrive.h"
#include "platform/Bureau.h"
#include "platform/Chemins.h"
#include "platform/FormesLocales.h"
#include "store/Base.h"
#include "store/CycleBase.h"

namespace {

struct MediaConnu {
    std::string serie, total, libre;
    char unite = 0, disque = 0;
    MediaDemande demande;
};

char Lettre(std::string_view texte)
{
    const char lettre = texte.empty() ? '\0' : texte.front();
    if (lettre >= 'A' && lettre <= 'Z')
        return static_cast<char>(lettre - 'A' + 'a');
    return lettre >= 'a' && lettre <= 'z' ? lettre : '\0';
}

std::string Capitale(char lettre)
{
    return lettre ? std::string(1, static_cast<char>(lettre - 'a' + 'A')) : "";
}

bool LireMedia(const std::string& catalogue, MediaConnu& media)
{
    Base base = OpenDatabase(BaseCourante());
    Recordset lignes = base.OpenRecordset("Select * from Catalogue where  Num = " + catalogue + " order by  Label asc");
    if (lignes.Eof())
        return false;
    media.serie = lignes.Texte("NSerie");
    media.total = lignes.Texte("Total");
    media.libre = lignes.Texte("Libre");
    media.unite = Lettre(lignes.Texte("Unite"));
    media.disque = Lettre(lignes.Texte("Disque"));
    media.demande.label = lignes.Texte("Label");
    media.demande.identifiant = lignes.Texte("Identifiant");
    media.demande.icone = lignes.Texte("Icone");
    return true;
}

std::string Chercher(char lettre, const EntreeCataloguee& entree, bool dossier)
{
    if (!lettre)
        return {};
    const std::string chemin = CheminReel(lettre, entree.noms);
    if (chemin.empty() || !dossier || entree.noms.empty())
        return chemin;
    return CheminReel(lettre, {entree.noms.begin(), entree.noms.end() - 1});
}

bsDrive LireLecteur(char lettre)
{
    bsDrive lecteur;
    if (lettre)
        lecteur.GetInfo(Capitale(lettre));
    return lecteur;
}

void DireDifferences(const MediaConnu& media, const bsDrive& lecteur, Dialogues& dialogues)
{
    if (lecteur.DriveSerial() != media.serie)
        dialogues.Informer("Le N de série du média ne correspond pas ...");
    if (FormatCapacite(lecteur.DriveSpaceTotal()) != media.total ||
        FormatCapacite(lecteur.DriveSpaceFree()) != media.libre)
        dialogues.Informer("La capicité du média ne correspond pas ...");
}

// The name that the media gave to a directory; its node may show another one, given by the user.
std::string NomReel(Base& base, const ArbreCatalogue::Noeud& noeud)
{
    const CleNoeud cle = AnalyserCle(noeud.cle);
    Recordset ligne = cle.archive ? base.OpenRecordset("Select * from Liste where Num = " + cle.code)
                                  : base.OpenRecordset("Select * from Liste where RepertoirePere = '" + cle.code +
                                                       "' and NCatalogue = " + cle.catalogue);
    return std::string(ligne.Eof() ? noeud.texte : ligne.Texte("Nom"));
}

}  // namespace

EntreeCataloguee EntreeNoeud(const ArbreCatalogue& arbre)
{
    EntreeCataloguee entree;
    const int32_t media = arbre.Media(arbre.Selection());
    if (media == ArbreCatalogue::Aucun)
        return entree;
    entree.catalogue = AnalyserCle(arbre[media].cle).catalogue;
    Base base = OpenDatabase(BaseCourante());
    for (int32_t noeud = arbre.Selection(); noeud != media; noeud = arbre[noeud].parent)
        entree.noms.push_back(NomReel(base, arbre[noeud]));
    std::reverse(entree.noms.begin(), entree.noms.end());
    return entree;
}

EntreeCataloguee EntreeItem(const ArbreCatalogue& arbre, const ItemListe& item)
{
    EntreeCataloguee entree = EntreeNoeud(arbre);
    if (entree.catalogue.empty())
        return entree;
    const CleItem cle = AnalyserCleItem(item.cle);
    Base base = OpenDatabase(BaseCourante());
    Recordset ligne = base.OpenRecordset(item.EstRepertoire() ? "Select * from Liste where RepertoirePere = '" +
                                                                    cle.code + "' and NCatalogue = " + cle.catalogue
                                                              : "Select * from Liste where Num = " + cle.code);
    entree.noms.emplace_back(ligne.Eof() ? item.cellules[ColNom] : ligne.Texte("Nom"));
    return entree;
}

std::string LocaliserEntree(const EntreeCataloguee& entree, bool dossier, Dialogues& dialogues, ChoixLecteur& choix)
{
    MediaConnu media;
    if (entree.catalogue.empty() || !LireMedia(entree.catalogue, media))
        return {};
    const std::string chemin = Chercher(media.unite, entree, dossier);
    if (!chemin.empty())
        return chemin;

    const char lettre = media.disque ? media.disque : media.unite;
    const bsDrive lecteur = LireLecteur(lettre);
    if (media.disque && lecteur.DriveSerial() == media.serie) {
        const std::string deplace = Chercher(media.disque, entree, dossier);
        if (!deplace.empty())
            return deplace;
    }
    DireDifferences(media, lecteur, dialogues);
    media.demande.invite = " L'unité actuelle : " + Capitale(lettre) + ":";
    return Chercher(Lettre(std::string(1, choix.Choisir(media.demande))), entree, dossier);
}

bool OuvrirEntree(const EntreeCataloguee& entree, bool dossier, Dialogues& dialogues, ChoixLecteur& choix)
{
    const std::string chemin = LocaliserEntree(entree, dossier, dialogues, choix);
    return !chemin.empty() && OuvrirAvecBureau(chemin);
}
