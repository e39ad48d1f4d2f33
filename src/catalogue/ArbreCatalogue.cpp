#include "catalogue/ArbreCatalogue.h"

#include <algorithm>

void ArbreCatalogue::Vider()
{
    noeuds_.clear();
    cases_.clear();
    textes_.Vider();
    icones_.clear();
    selection_ = Aucun;
    ++generation_;
}

size_t ArbreCatalogue::Case(std::string_view cle) const
{
    const size_t masque = cases_.size() - 1;
    size_t place = std::hash<std::string_view>()(cle) & masque;
    while (cases_[place] != Aucun && (*this)[cases_[place]].cle != cle)
        place = (place + 1) & masque;
    return place;
}

void ArbreCatalogue::Agrandir()
{
    cases_.assign(std::max<size_t>(cases_.size() * 2, 1024), Aucun);
    for (int32_t i = 0; i < Nombre(); ++i)
        cases_[Case(noeuds_[static_cast<size_t>(i)].cle)] = i;
}

int32_t ArbreCatalogue::Chercher(std::string_view cle) const
{
    return cases_.empty() ? Aucun : cases_[Case(cle)];
}

int32_t ArbreCatalogue::Ajouter(int32_t parent, std::string_view cle, std::string_view texte, int16_t image,
                                int16_t imageSelection)
{
    if (cle.empty())
        return Aucun;
    if (cases_.size() < (noeuds_.size() + 1) * 2)
        Agrandir();
    const size_t place = Case(cle);
    if (cases_[place] != Aucun)
        return Aucun;

    const int32_t nouveau = Nombre();
    Noeud& noeud = noeuds_.emplace_back();
    noeud.cle = textes_.Ranger(cle);
    noeud.texte = textes_.Ranger(texte);
    noeud.parent = parent;
    noeud.niveau = 1;
    noeud.image = image;
    noeud.imageSelection = imageSelection;
    cases_[place] = nouveau;
    if (parent == Aucun)
        return nouveau;

    Noeud& pere = noeuds_[static_cast<size_t>(parent)];
    noeud.niveau = pere.niveau + 1;
    noeud.rang = pere.enfants++;
    if (pere.dernierEnfant == Aucun)
        pere.premierEnfant = nouveau;
    else
        noeuds_[static_cast<size_t>(pere.dernierEnfant)].suivant = nouveau;
    pere.dernierEnfant = nouveau;
    return nouveau;
}

bool ArbreCatalogue::EstMedia(int32_t noeud) const
{
    return noeud != Aucun && (*this)[noeud].niveau == 2;
}

int32_t ArbreCatalogue::Media(int32_t noeud) const
{
    while (noeud != Aucun && (*this)[noeud].niveau > 2)
        noeud = (*this)[noeud].parent;
    return EstMedia(noeud) ? noeud : Aucun;
}

void ArbreCatalogue::Renommer(int32_t noeud, std::string_view texte)
{
    noeuds_[static_cast<size_t>(noeud)].texte = textes_.Ranger(texte);
}

void ArbreCatalogue::Colorer(int32_t noeud, uint32_t couleur)
{
    noeuds_[static_cast<size_t>(noeud)].couleur = couleur;
}

void ArbreCatalogue::DonnerIcone(int32_t noeud, std::string_view octets)
{
    icones_[noeud] = octets;
    noeuds_[static_cast<size_t>(noeud)].image = ImagePropre;
}

const std::string& ArbreCatalogue::Icone(int32_t noeud) const
{
    static const std::string vide;
    const auto trouve = icones_.find(noeud);
    return trouve == icones_.end() ? vide : trouve->second;
}

std::string_view ArbreCatalogue::CleSelection() const
{
    return selection_ == Aucun ? std::string_view() : (*this)[selection_].cle;
}
