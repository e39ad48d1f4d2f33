#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "commun/TableNumeros.h"
#include "commun/TextesRanges.h"

// Pictures of nodes and list items, by their place in the picture lists.
enum ImageNavigateur : int16_t {
    ImagePropre = -2,  // the media's own icon
    SansImage = -1,
    ImageDisque = 0,
    ImageRepertoire = 2,
    ImageRepertoireOuvert = 3,
    ImageRacine = 5,
    ImageReseau = 9,
    ImageInconnue = 11,
    ImageGenerique = 12,
};

inline constexpr uint32_t CouleurNoire = 0;
inline constexpr uint32_t CouleurRouge = 255;  // colours are RGB longs: red in the low byte

// An icon of a media is no larger; what a base holds beyond is no icon.
inline constexpr size_t TailleIconeMaximale = size_t{4} << 20;

// The tree of the catalogue: nodes in the order of their making, found by key, linked to parent, children and next
// sibling by their places. Root is at level 1, media at 2. A node that is removed leaves its place empty; places are
// never given again. Holds a million nodes in some hundred megabytes. For one thread at a time.
class ArbreCatalogue {
public:
    static constexpr int32_t Aucun = -1;

    struct Noeud {
        std::string_view cle, texte;  // no key: an empty place
        int32_t parent = Aucun;
        int32_t premierEnfant = Aucun, dernierEnfant = Aucun, suivant = Aucun;
        int32_t enfants = 0;
        int32_t rang = 0;  // place among the children of its parent, from 0
        int32_t niveau = 0;
        uint32_t couleur = CouleurNoire;
        int16_t image = SansImage, imageSelection = SansImage;
    };

    // Place of the new node; Aucun when the key is empty or taken. A parent of Aucun makes a root.
    int32_t Ajouter(int32_t parent, std::string_view cle, std::string_view texte, int16_t image = SansImage,
                    int16_t imageSelection = SansImage);
    int32_t Chercher(std::string_view cle) const;

    // Takes a node and all below it out. A selection among them moves to the next sibling, else to the parent. Costs no
    // more than the siblings and the nodes that go.
    void Retirer(int32_t noeud);

    int32_t Nombre() const { return nombre_; }
    const Noeud& operator[](int32_t noeud) const { return noeuds_[static_cast<size_t>(noeud)]; }
    bool EstMedia(int32_t noeud) const;
    // The node of the media below which a node lies; Aucun for the root.
    int32_t Media(int32_t noeud) const;

    // Hands every node over, in the order of their making.
    template <typename Recevoir>
    void Parcourir(const Recevoir& recevoir) const
    {
        for (size_t i = 0; i < noeuds_.size(); ++i)
            if (!noeuds_[i].cle.empty())
                recevoir(static_cast<int32_t>(i), noeuds_[i]);
    }

    void Renommer(int32_t noeud, std::string_view texte);
    void Colorer(int32_t noeud, uint32_t couleur);

    // Bytes of a media's own icon; empty when it has none.
    void DonnerIcone(int32_t noeud, std::string_view octets);
    const std::string& Icone(int32_t noeud) const;

    int32_t Selection() const { return selection_; }
    void Selectionner(int32_t noeud) { selection_ = noeud; }
    std::string_view CleSelection() const;

    // Key of the node last shown.
    const std::string& Tag() const { return tag_; }
    void FixerTag(std::string_view cle) { tag_ = cle; }

private:
    auto EstLaCle(std::string_view cle) const
    {
        return [this, cle](int32_t noeud) { return (*this)[noeud].cle == cle; };
    }
    auto EmpreinteDe() const
    {
        return [this](int32_t noeud) { return Empreinte((*this)[noeud].cle); };
    }
    static size_t Empreinte(std::string_view cle) { return std::hash<std::string_view>()(cle); }
    void Delier(int32_t noeud);
    void Oublier(int32_t noeud);

    std::vector<Noeud> noeuds_;
    int32_t nombre_ = 0;
    TableNumeros cles_;
    TextesRanges textes_;
    std::unordered_map<int32_t, std::string> icones_;
    std::string tag_;
    int32_t selection_ = Aucun;
};
