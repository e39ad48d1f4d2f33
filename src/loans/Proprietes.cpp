#include "loans/Proprietes.h"

#include "catalogue/Categories.h"
#include "catalogue/Cles.h"
#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "loans/Prets.h"
#include "store/Reglages.h"

namespace {

constexpr std::array<std::string_view, NombreTextesMedia> ChampsMedia = {"Label",  "NSerie", "Standard",   "Total",
                                                                         "Occupe", "Libre",  "Identifiant"};
constexpr size_t LongueurCategorie = 50;

// "yyyymmdd" as dd/mm/yyyy; nothing for a text of another length.
std::string DateMontree(std::string_view date)
{
    if (date.size() != 8)
        return {};
    return std::string(date.substr(6)).append("/").append(date.substr(4, 2)).append("/").append(date.substr(0, 4));
}

}  // namespace

SujetPropriete SujetDeCle(std::string_view cle, bool fichier)
{
    if (fichier) {
        const CleItem item = AnalyserCleItem(cle);
        return {GenrePropriete::Fichier, item.catalogue, item.code};
    }
    const CleNoeud noeud = AnalyserCle(cle);
    if (noeud.archive)
        return {GenrePropriete::Fichier, noeud.catalogue, noeud.code};
    const bool media = noeud.code == CodeRacine;
    return {media ? GenrePropriete::Media : GenrePropriete::Repertoire, noeud.catalogue, noeud.code};
}

ProprietesMedia LireProprietesMedia(std::string_view media)
{
    ProprietesMedia proprietes;
    Base base = OuvrirBase();
    Recordset ligne = LireMedia(base, media);
    for (size_t i = 0; i < ChampsMedia.size(); ++i)
        proprietes.textes[i] = ligne.Texte(ChampsMedia[i]);
    proprietes.type = ligne.Texte("typed");
    proprietes.icone = ligne.Texte("Icone");
    return proprietes;
}

ProprietesEntree LireProprietesEntree(const SujetPropriete& sujet)
{
    Base base = OuvrirBase();
    Recordset ligne = sujet.genre == GenrePropriete::Fichier ? LigneNumero(base, sujet.code)
                                                             : LigneRepertoire(base, sujet.media, sujet.code);
    if (ligne.Eof())
        return {};
    ProprietesEntree entree;
    entree.nom = NomMontre(ligne);
    entree.heure = ligne.Texte("Heure");
    entree.date = DateMontree(ligne.Texte("DateF"));
    entree.taille = ligne.Texte("Taille");
    entree.attribut = ligne.Texte("attribut");
    if (!ligne.EstNul("Description"))
        entree.description = SeparerPhoto(ligne.Texte("Description"));
    return entree;
}

std::string VerifierCategorie(std::string_view media)
{
    Base base = OuvrirBase();
    return std::string(LireMedia(base, media).Texte("Categorie"));
}

bool ValiderCategorie(std::string_view media, std::string_view categorie)
{
    Base base = OuvrirBase();
    Recordset ligne = LireMedia(base, media);
    ligne.Edit();
    ligne.Poser("Categorie", TexteDeChamp(categorie, LongueurCategorie));
    return ligne.Update();
}

std::optional<CouleursMedia> ChangerCategorie(std::string_view media, std::string_view categorie)
{
    const uint32_t avant = CouleurCategorie(VerifierCategorie(media));
    if (!ValiderCategorie(media, categorie))
        return {};
    return CouleursMedia{avant, CouleurCategorie(VerifierCategorie(media))};
}

int LireOngletPropriete()
{
    return GetSettingEntier(SectionPropriete, CleOnglet, 0, NombreGenres - 1);
}

void EcrireOngletPropriete(int onglet)
{
    SaveSetting(SectionPropriete, CleOnglet, std::to_string(onglet));
}
