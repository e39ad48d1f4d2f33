#include "catalogue/ListeFichiers.h"

#include <algorithm>
#include <utility>

#include "commun/NombresCompacts.h"
#include "commun/Texte.h"

namespace {

void AjouterTexte(std::string& suite, std::string_view texte)
{
    AjouterNombre(suite, texte.size());
    suite += texte;
}

uint64_t PrendreNombre(const char*& suite)
{
    return LireNombre([&suite] { return static_cast<unsigned char>(*suite++); });
}

std::string_view PrendreTexte(const char*& suite)
{
    const size_t longueur = PrendreNombre(suite);
    const std::string_view texte(suite, longueur);
    suite += longueur;
    return texte;
}

// A text to sort by, with what tells most texts apart at a glance.
struct CleTri {
    DebutFrancais debut;
    std::string_view texte;
    int32_t indice;
};

bool Avant(const CleTri& gauche, const CleTri& droite)
{
    if (gauche.debut != droite.debut)
        return gauche.debut < droite.debut;
    const int ordre = gauche.texte == droite.texte ? 0 : ComparerFrancais(gauche.texte, droite.texte);
    return ordre != 0 ? ordre < 0 : gauche.indice < droite.indice;
}

// Turns a sorted series round; equal texts stay as they are.
void Retourner(std::vector<CleTri>& cles)
{
    std::reverse(cles.begin(), cles.end());
    for (auto debut = cles.begin(); debut != cles.end();) {
        const auto fin = std::find_if(debut, cles.end(), [&](const CleTri& cle) { return cle.texte != debut->texte; });
        std::reverse(debut, fin);
        debut = fin;
    }
}

}  // namespace

const char* ListeFichiers::Ranger(const ItemListe& item)
{
    tampon_.clear();
    AjouterNombre(tampon_, static_cast<uint32_t>(item.icone));
    AjouterTexte(tampon_, item.cle);
    for (const std::string_view cellule : item.cellules)
        AjouterTexte(tampon_, cellule);
    return textes_.Ranger(tampon_).data();
}

ItemListe ListeFichiers::Deplier(const char* suite)
{
    ItemListe deplie;
    deplie.icone = static_cast<int32_t>(PrendreNombre(suite));
    deplie.cle = PrendreTexte(suite);
    for (std::string_view& cellule : deplie.cellules)
        cellule = PrendreTexte(suite);
    return deplie;
}

void ListeFichiers::Ajouter(const ItemListe& item)
{
    ordre_.push_back(static_cast<int32_t>(items_.size()));
    items_.push_back(Ranger(item));
}

void ListeFichiers::Retirer(int32_t rang)
{
    const int32_t indice = Indice(rang);
    items_.erase(items_.begin() + indice);
    ordre_.erase(ordre_.begin() + rang);
    for (int32_t& autre : ordre_)
        autre -= autre > indice;
}

void ListeFichiers::Remplacer(int32_t rang, const ItemListe& item)
{
    items_[static_cast<size_t>(Indice(rang))] = Ranger(item);
}

int32_t ListeFichiers::Chercher(std::string_view cle) const
{
    for (int32_t rang = 0; rang < Nombre(); ++rang)
        if ((*this)[rang].cle == cle)
            return rang;
    return -1;
}

ListeFichiers::Ordre ListeFichiers::Trier(int colonne, bool decroissant, const std::stop_token& arret,
                                          const TexteDeTri& lire) const
{
    if (colonne < 0 || colonne >= NombreColonnes)
        return {};
    std::vector<CleTri> cles;
    cles.reserve(items_.size());
    for (int32_t i = 0; i < Nombre(); ++i) {
        const ItemListe item = Deplier(items_[static_cast<size_t>(i)]);
        std::string_view texte = item.cellules[static_cast<size_t>(colonne)];
        if (lire)
            texte = lire(i, texte);
        cles.push_back({PeserDebut(texte), texte, i});
        if (i % 4096 == 0 && arret.stop_requested())
            return {};
    }
    // Names mostly arrive in order.
    if (!std::is_sorted(cles.begin(), cles.end(), Avant))
        std::sort(cles.begin(), cles.end(), Avant);
    if (decroissant)
        Retourner(cles);
    Ordre ordre(cles.size());
    std::transform(cles.begin(), cles.end(), ordre.begin(), [](const CleTri& cle) { return cle.indice; });
    return ordre;
}

void ListeFichiers::Ordonner(Ordre ordre)
{
    if (ordre.size() == items_.size())
        ordre_ = std::move(ordre);
}
