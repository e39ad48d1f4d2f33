#include "catalogue/ArbreCatalogue.h"

int32_t ArbreCatalogue::Chercher(std::string_view cle) const
{
    return cles_.Chercher(Empreinte(cle), EstLaCle(cle));
}

int32_t ArbreCatalogue::Ajouter(int32_t parent, std::string_view cle, std::string_view texte, int16_t image,
                                int16_t imageSelection)
{
    const auto nouveau = static_cast<int32_t>(noeuds_.size());
    if (cle.empty() || !cles_.Ajouter(Empreinte(cle), nouveau, EstLaCle(cle), EmpreinteDe()))
        return Aucun;

    ++nombre_;
    Noeud& noeud = noeuds_.emplace_back();
    noeud.cle = textes_.Ranger(cle);
    noeud.texte = textes_.Ranger(texte);
    noeud.parent = parent;
    noeud.niveau = 1;
    noeud.image = image;
    noeud.imageSelection = imageSelection;
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

void ArbreCatalogue::Retirer(int32_t noeud)
{
    const int32_t suivant = (*this)[noeud].suivant, pere = (*this)[noeud].parent;
    int32_t dessus = selection_;
    while (dessus != Aucun && dessus != noeud)
        dessus = (*this)[dessus].parent;
    if (dessus == noeud)
        selection_ = suivant != Aucun ? suivant : pere;
    Delier(noeud);

    // From the leaves up, along the links, so that nesting has no limit.
    int32_t courant = noeud;
    for (;;) {
        while ((*this)[courant].premierEnfant != Aucun)
            courant = (*this)[courant].premierEnfant;
        const int32_t frere = (*this)[courant].suivant, parent = (*this)[courant].parent;
        Oublier(courant);
        if (courant == noeud)
            return;
        noeuds_[static_cast<size_t>(parent)].premierEnfant = frere;
        courant = frere != Aucun ? frere : parent;
    }
}

// Takes a node out of its parent's children.
void ArbreCatalogue::Delier(int32_t noeud)
{
    Noeud& parti = noeuds_[static_cast<size_t>(noeud)];
    if (parti.parent == Aucun)
        return;
    Noeud& pere = noeuds_[static_cast<size_t>(parti.parent)];
    int32_t precedent = Aucun;
    for (int32_t frere = pere.premierEnfant; frere != noeud; frere = (*this)[frere].suivant)
        precedent = frere;
    if (precedent == Aucun)
        pere.premierEnfant = parti.suivant;
    else
        noeuds_[static_cast<size_t>(precedent)].suivant = parti.suivant;
    if (pere.dernierEnfant == noeud)
        pere.dernierEnfant = precedent;
    --pere.enfants;
    for (int32_t frere = parti.suivant; frere != Aucun; frere = (*this)[frere].suivant)
        --noeuds_[static_cast<size_t>(frere)].rang;
    parti.suivant = Aucun;
}

void ArbreCatalogue::Oublier(int32_t noeud)
{
    const std::string_view cle = (*this)[noeud].cle;
    cles_.Retirer(Empreinte(cle), EstLaCle(cle), EmpreinteDe());
    icones_.erase(noeud);
    noeuds_[static_cast<size_t>(noeud)] = {};
    --nombre_;
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
