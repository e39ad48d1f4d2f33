#include "browser/OuvrirFichier.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "extraction/bsDrive.h"
#include "platform/Chemins.h"
#include "platform/FormesLocales.h"

namespace {

struct MediaConnu {
    std::string serie, total, libre;
    char unite = 0, disque = 0;  // small letters, 0 for none
    MediaDemande demande;
};

std::string Capitale(char lettre)
{
    return lettre ? std::string(1, LettreCapitale(lettre)) : std::string();
}

char LettreDe(std::string_view texte)
{
    return texte.empty() ? char{0} : LettreBasse(texte.front());
}

bool LireMediaConnu(const std::string& catalogue, MediaConnu& media)
{
    Base base = OuvrirBase();
    Recordset lignes = LireMedia(base, catalogue);
    if (lignes.Eof())
        return false;
    media.serie = lignes.Texte("NSerie");
    media.total = lignes.Texte("Total");
    media.libre = lignes.Texte("Libre");
    media.unite = LettreDe(lignes.Texte("Unite"));
    media.disque = LettreDe(lignes.Texte("Disque"));
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

// What a look at the drives where the media should be has shown.
struct Constat {
    std::string chemin;  // empty: not found there
    bool autreSerie = false, autreCapacite = false;
};

Constat Constater(const MediaConnu& media, const EntreeCataloguee& entree, bool dossier)
{
    Constat constat;
    constat.chemin = Chercher(media.unite, entree, dossier);
    if (!constat.chemin.empty())
        return constat;

    bsDrive lecteur;
    if (const char lettre = media.disque ? media.disque : media.unite)
        lecteur.GetInfo(Capitale(lettre));
    constat.autreSerie = lecteur.DriveSerial() != media.serie;
    constat.autreCapacite = FormatCapacite(lecteur.DriveSpaceTotal()) != media.total ||
                            FormatCapacite(lecteur.DriveSpaceFree()) != media.libre;
    if (media.disque && !constat.autreSerie)
        constat.chemin = Chercher(media.disque, entree, dossier);
    return constat;
}

// The name that the media gave to a directory; its node may show another one, given by the user.
std::string NomReel(Base& base, const ArbreCatalogue::Noeud& noeud)
{
    const CleNoeud cle = AnalyserCle(noeud.cle);
    Recordset ligne = cle.archive ? LigneNumero(base, cle.code) : LigneRepertoire(base, cle.catalogue, cle.code);
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
    Base base = OuvrirBase();
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
    Base base = OuvrirBase();
    Recordset ligne =
        item.EstRepertoire() ? LigneRepertoire(base, cle.catalogue, cle.code) : LigneNumero(base, cle.code);
    entree.noms.emplace_back(ligne.Eof() ? item.cellules[ColNom] : ligne.Texte("Nom"));
    return entree;
}

void LocaliserEntree(const EntreeCataloguee& entree, bool dossier, Consultation& lecteurs, Dialogues& dialogues,
                     ChoixLecteur& choix, std::function<void(const std::string&)> trouve)
{
    MediaConnu media;
    if (entree.catalogue.empty() || !LireMediaConnu(entree.catalogue, media)) {
        trouve({});
        return;
    }
    media.demande.contient = [entree, dossier](char lettre) { return !Chercher(lettre, entree, dossier).empty(); };
    const auto constat = std::make_shared<Constat>();
    const auto demander = [=, &lecteurs, &dialogues, &choix, trouve = std::move(trouve)] {
        if (!constat->chemin.empty()) {
            trouve(constat->chemin);
            return;
        }
        if (constat->autreSerie)
            dialogues.Informer("Le N de série du média ne correspond pas ...");
        if (constat->autreCapacite)
            dialogues.Informer("La capicité du média ne correspond pas ...");
        MediaDemande demande = media.demande;
        demande.invite = " L'unité actuelle : " + Capitale(media.disque ? media.disque : media.unite) + ":";
        const char lettre = LettreBasse(choix.Choisir(demande));
        lecteurs.Demander([=](const std::stop_token&) { constat->chemin = Chercher(lettre, entree, dossier); },
                          [=] { trouve(constat->chemin); });
    };
    lecteurs.Demander([=](const std::stop_token&) { *constat = Constater(media, entree, dossier); }, demander);
}
