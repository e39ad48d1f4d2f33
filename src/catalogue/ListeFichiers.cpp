#include "catalogue/ListeFichiers.h"

#include <algorithm>
#include <unordered_set>

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "platform/Ceder.h"
#include "platform/TypesSysteme.h"
#include "store/Base.h"
#include "store/CycleBase.h"

void ListeFichiers::Vider()
{
    items_.clear();
    ordre_.clear();
    textes_.Vider();
    cleLue_.clear();
    ++generation_;
}

namespace {

// A number takes one byte per seven bits, the lowest first; the top bit says that more follow.
void AjouterNombre(std::string& suite, size_t nombre)
{
    for (; nombre >= 0x80; nombre >>= 7)
        suite += static_cast<char>(nombre | 0x80);
    suite += static_cast<char>(nombre);
}

size_t PrendreNombre(const char*& suite)
{
    size_t nombre = 0;
    for (int decalage = 0;; decalage += 7) {
        const auto octet = static_cast<unsigned char>(*suite++);
        nombre |= static_cast<size_t>(octet & 0x7F) << decalage;
        if (octet < 0x80)
            return nombre;
    }
}

void AjouterTexte(std::string& suite, std::string_view texte)
{
    AjouterNombre(suite, texte.size());
    suite += texte;
}

std::string_view PrendreTexte(const char*& suite)
{
    const size_t longueur = PrendreNombre(suite);
    const std::string_view texte(suite, longueur);
    suite += longueur;
    return texte;
}

}  // namespace

void ListeFichiers::Ajouter(const ItemListe& item)
{
    tampon_.clear();
    AjouterNombre(tampon_, static_cast<uint32_t>(item.icone));
    AjouterTexte(tampon_, item.cle);
    for (const std::string_view cellule : item.cellules)
        AjouterTexte(tampon_, cellule);
    ordre_.push_back(static_cast<int32_t>(items_.size()));
    items_.push_back(textes_.Ranger(tampon_).data());
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

int32_t ListeFichiers::Chercher(std::string_view cle) const
{
    for (int32_t rang = 0; rang < Nombre(); ++rang)
        if ((*this)[rang].cle == cle)
            return rang;
    return -1;
}

namespace {

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

void ListeFichiers::Trier(int colonne, bool decroissant)
{
    TrierSelon([](int32_t, std::string_view montre) { return montre; }, colonne, decroissant);
}

void ListeFichiers::TrierSelon(const std::function<std::string_view(int32_t, std::string_view)>& lire, int colonne,
                               bool decroissant)
{
    if (colonne < 0 || colonne >= NombreColonnes)
        return;
    std::vector<CleTri> cles;
    cles.reserve(items_.size());
    for (int32_t i = 0; i < Nombre(); ++i) {
        const ItemListe item = Deplier(items_[static_cast<size_t>(i)]);
        const std::string_view texte = lire(i, item.cellules[static_cast<size_t>(colonne)]);
        cles.push_back({PeserDebut(texte), texte, i});
    }
    // Names mostly arrive in order.
    if (!std::is_sorted(cles.begin(), cles.end(), Avant))
        std::sort(cles.begin(), cles.end(), Avant);
    if (decroissant)
        Retourner(cles);
    std::transform(cles.begin(), cles.end(), ordre_.begin(), [](const CleTri& cle) { return cle.indice; });
}

int32_t IconesExtensions::Chercher(const std::string& extension)
{
    if (extension.empty())
        return ImageGenerique;
    const auto [place, nouvelle] = icones_.try_emplace(extension, ImageGenerique);
    if (nouvelle && !NomIconeFichier(extension).empty()) {
        place->second = Premiere + static_cast<int32_t>(extensions_.size());
        extensions_.push_back(extension);
    }
    return place->second;
}

ChampsItem::ChampsItem(Recordset& lignes)
    : num(lignes.Indice("Num")),
      catalogue(lignes.Indice("NCatalogue")),
      code(lignes.Indice("Repertoirepere")),
      nom(lignes.Indice("Nom")),
      alias(lignes.Indice("Alias")),
      taille(lignes.Indice("Taille")),
      type(lignes.Indice("TypeF")),
      date(lignes.Indice("DateF")),
      heure(lignes.Indice("Heure")),
      attribut(lignes.Indice("attribut")),
      description(lignes.Indice("Description"))
{
}

namespace {

// "20031224" as "24/12/2003"; anything else than eight characters shows nothing.
std::string_view MontrerDate(std::string_view date, std::string& place)
{
    place.clear();
    if (date.size() == 8)
        place.append(date.substr(6)).append("/").append(date.substr(4, 2)).append("/").append(date.substr(0, 4));
    return place;
}

}  // namespace

ItemListe FaireItem(Recordset& lignes, const ChampsItem& champs, bool dansArchive, TextesItem& textes)
{
    ItemListe item;
    const std::string_view attribut = lignes.Texte(champs.attribut);
    const bool repertoire = attribut == "D" || attribut == "Z";
    const int64_t catalogue = lignes.Entier(champs.catalogue);
    textes.cle =
        CleRepertoire(catalogue, repertoire ? std::string(lignes.Texte(champs.code)) : Str(lignes.Entier(champs.num)));
    item.cle = textes.cle;
    item.icone = repertoire ? ImageRepertoire : ImageGenerique;
    item.cellules = {
        lignes.Texte(lignes.EstNul(champs.alias) ? champs.nom : champs.alias),
        lignes.Texte(champs.taille),
        repertoire    ? std::string_view("Répertoire")
        : dansArchive ? std::string_view("Fichier Compressé")
                      : lignes.Texte(champs.type),
        MontrerDate(lignes.Texte(champs.date), textes.date),
        lignes.Texte(champs.heure),
        repertoire ? std::string_view("D") : attribut,
        Trim(lignes.Texte(champs.description)).empty() ? std::string_view() : std::string_view(" oui"),
    };
    return item;
}

bool EstExtensionArchive(std::string_view extension)
{
    constexpr std::string_view archives[] = {"zip", "arj", "lha", "lzh", "ace", "rar"};
    return std::find(std::begin(archives), std::end(archives), extension) != std::end(archives);
}
