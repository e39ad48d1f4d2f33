#include "browser/Navigateur.h"

#include <utility>

#include "browser/LectureListeFichiers.h"
#include "catalogue/Cles.h"
#include "catalogue/Descriptions.h"
#include "commun/Formes.h"

void Navigateur::ColorerMedia(int32_t noeud, uint32_t couleur)
{
    if (arbre.EstMedia(noeud))
        arbre.Colorer(noeud, couleur);
}

void Navigateur::MontrerTitre()
{
    const int32_t noeud = arbre.Selection();
    if (arbre[noeud].parent != ArbreCatalogue::Aucun) {
        titre = std::string(11, ' ') + std::string(arbre[noeud].texte);
        return;
    }
    titre.clear();
    statut = arbre[noeud].enfants > 0 ? Str(arbre[noeud].enfants) + " catalogue(s) ..." : std::string();
}

bool Navigateur::CliquerNoeud(const EcouteLecture& ecoute, const std::function<void()>& avant)
{
    if (arbre.Selection() == ArbreCatalogue::Aucun)
        return false;
    EcouteLecture suivie = ecoute;
    suivie.statut = [&](const std::string& texte) {
        statut = texte;
        if (ecoute.statut)
            ecoute.statut(texte);
    };

    bool lu = false;
    // A reading that was cut short by a click back on the node it came from has left the wrong entries: once more.
    while (arbre.Selection() != ArbreCatalogue::Aucun &&
           (arbre.CleSelection() != arbre.Tag() || (lu && arbre.CleSelection() != liste.CleLue()))) {
        if (avant && !lu)
            avant();
        if (arbre.CleSelection() == arbre.Tag())
            arbre.FixerTag("");
        description.clear();
        LectureListeFichiers(arbre, liste, icones, suivie);
        lu = true;
        if (arbre.Selection() == ArbreCatalogue::Aucun)
            return lu;
        const int32_t precedent = arbre.Chercher(arbre.Tag());
        if (precedent != arbre.Selection())
            ColorerMedia(precedent, CouleurNoire);
        ColorerMedia(arbre.Selection(), CouleurRouge);
        if (arbre.CleSelection() == liste.CleLue())
            arbre.FixerTag(arbre.CleSelection());
    }
    if (lu) {
        liste.Trier(colonneTri, decroissant);
        MontrerTitre();
    }
    description = LireDescriptionNoeud(arbre, photo);
    descriptionDeNoeud = true;
    return lu;
}

void Navigateur::CliquerItem(int32_t rang)
{
    const ItemListe item = liste[rang];
    const TypeItem type = item.EstRepertoire() ? TypeItem::Repertoire : TypeItem::Fichier;
    description = LireDescriptionItem(type, AnalyserCleItem(item.cle), item.cellules[ColNom], photo);
    descriptionDeNoeud = false;
    statut.clear();
}

bool Navigateur::Descendre(int32_t rang)
{
    if (!liste[rang].EstRepertoire())
        return false;
    const int32_t noeud = arbre.Chercher(liste[rang].cle);
    if (noeud == ArbreCatalogue::Aucun)
        return false;
    arbre.FixerTag("");
    arbre.Selectionner(noeud);
    return true;
}

void Navigateur::Vider()
{
    arbre.Vider();
    arbre.FixerTag("");
    liste.Vider();
    statut.clear();
    titre.clear();
    description.clear();
    photo.clear();
}
