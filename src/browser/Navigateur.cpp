#include "browser/Navigateur.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "catalogue/CheminCatalogue.h"
#include "catalogue/Cles.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"

namespace {

constexpr size_t VusMaximum = 100;

}  // namespace

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
    chemin = CheminNoeud(noeud);
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
    Retenir(arbre.Tag());
    MontrerTitre();
}

// Another reading may have overtaken the one that was to go back: only what is shown counts.
void Navigateur::Retenir(const std::string& cle)
{
    if (cle == montre_)
        return;
    const auto retour = cle == recul_ ? std::find(vus_.rbegin(), vus_.rend(), cle) : vus_.rend();
    if (retour != vus_.rend())
        vus_.erase(std::prev(retour.base()), vus_.end());
    else if (!montre_.empty())
        vus_.push_back(montre_);
    if (vus_.size() > VusMaximum)
        vus_.erase(vus_.begin());
    montre_ = cle;
    recul_.clear();
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

bool Navigateur::Monter()
{
    const int32_t noeud = arbre.Selection();
    if (noeud == ArbreCatalogue::Aucun || arbre[noeud].parent == ArbreCatalogue::Aucun)
        return false;
    arbre.Selectionner(arbre[noeud].parent);
    return true;
}

bool Navigateur::PeutReculer() const
{
    return std::any_of(vus_.begin(), vus_.end(), [this](const std::string& cle) {
        return cle != montre_ && arbre.Chercher(cle) != ArbreCatalogue::Aucun;
    });
}

bool Navigateur::Reculer()
{
    const auto cle = std::find_if(vus_.rbegin(), vus_.rend(), [this](const std::string& vu) {
        return vu != montre_ && arbre.Chercher(vu) != ArbreCatalogue::Aucun;
    });
    if (cle == vus_.rend())
        return false;
    recul_ = *cle;
    arbre.Selectionner(arbre.Chercher(recul_));
    return true;
}

std::string Navigateur::CleDansLaListe(int32_t noeud) const
{
    if (noeud == ArbreCatalogue::Aucun || arbre.EstMedia(noeud))
        return {};
    const CleNoeud cle = AnalyserCle(arbre[noeud].cle);
    if (!cle.archive)
        return std::string(cle.valide ? arbre[noeud].cle : std::string_view());
    return CleFichier(std::atoll(cle.catalogue.c_str()), std::atoll(cle.code.c_str()));
}

std::string Navigateur::CheminNoeud(int32_t noeud) const
{
    const int32_t media = noeud == ArbreCatalogue::Aucun ? noeud : arbre.Media(noeud);
    if (media == ArbreCatalogue::Aucun)
        return {};
    Base base = OuvrirBase();
    return CheminCatalogue(arbre, noeud, NomRacine(base, AnalyserCle(arbre[media].cle).catalogue));
}

std::string Navigateur::CheminItem(int32_t rang) const
{
    return CheminNoeud(arbre.Chercher(montre_)).append("\\").append(liste[rang].cellules[ColNom]);
}

void Navigateur::RenommerNoeud(int32_t noeud, std::string_view texte)
{
    arbre.Renommer(noeud, texte);
    if (arbre[noeud].cle == arbre.Tag())
        MontrerTitre();
}
