#include "browser/Navigateur.h"

#include <utility>

#include "catalogue/Cles.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"

void Navigateur::ColorerMedia(int32_t noeud, uint32_t couleur)
{
    if (arbre.EstMedia(noeud))
        arbre.Colorer(noeud, couleur);
}

bool Navigateur::LectureVoulue() const
{
    return arbre.Selection() != ArbreCatalogue::Aucun && arbre.CleSelection() != arbre.Tag();
}

void Navigateur::MontrerTitre()
{
    const int32_t noeud = arbre.Chercher(arbre.Tag());
    if (arbre[noeud].parent != ArbreCatalogue::Aucun) {
        titre = std::string(11, ' ').append(arbre[noeud].texte);
        return;
    }
    titre.clear();
    statut = arbre[noeud].enfants > 0 ? Str(arbre[noeud].enfants) + " catalogue(s) ..." : std::string();
}

void Navigateur::Montrer(Lecture lecture)
{
    const int32_t noeud = arbre.Chercher(lecture.cle), precedent = arbre.Chercher(arbre.Tag());
    if (noeud == ArbreCatalogue::Aucun)
        return;
    AjouterNoeuds(arbre, lecture);
    liste = std::move(lecture.liste);
    statut = std::move(lecture.statut);
    description = {};
    if (precedent != noeud)
        ColorerMedia(precedent, CouleurNoire);
    ColorerMedia(noeud, CouleurRouge);
    arbre.FixerTag(arbre[noeud].cle);
    MontrerTitre();
}

int32_t Navigateur::ChangerCouleur(int64_t media, uint32_t avant, uint32_t apres)
{
    const int32_t noeud = arbre.Chercher(CleMedia(media));
    if (noeud != ArbreCatalogue::Aucun && arbre[noeud].cle != arbre.Tag() && arbre[noeud].couleur == avant)
        arbre.Colorer(noeud, apres);
    return noeud;
}

void Navigateur::MontrerDescriptionNoeud()
{
    Base base = OuvrirBase();
    description = LireDescriptionNoeud(base, arbre);
    descriptionDeNoeud = true;
}

void Navigateur::CliquerItem(int32_t rang)
{
    const ItemListe item = liste[rang];
    const TypeItem type = item.EstRepertoire() ? TypeItem::Repertoire : TypeItem::Fichier;
    Base base = OuvrirBase();
    description = LireDescriptionItem(base, type, AnalyserCleItem(item.cle), item.cellules[ColNom]);
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

void Navigateur::RenommerNoeud(int32_t noeud, std::string_view texte)
{
    arbre.Renommer(noeud, texte);
    if (arbre[noeud].cle == arbre.Tag())
        MontrerTitre();
}
