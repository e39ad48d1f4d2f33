#include <algorithm>
#include <array>
#include <utility>

#include "browser/ArbreCatalogue.h"
#include "platform/Ceder.h"
#include "shell/Textes.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

constexpr char Separateur = ';';
constexpr char SeparateurChamps = '#';

// The next piece of a text and what is left behind its separator.
std::string_view Detacher(std::string_view& reste, char separateur)
{
    const size_t fin = reste.find(separateur);
    const std::string_view morceau = reste.substr(0, fin);
    reste.remove_prefix(fin == std::string_view::npos ? reste.size() : fin + 1);
    return morceau;
}

// A type outside the table leaves the picture of the media read before: meant so.
void ChoisirImage(std::string_view type, int16_t& image)
{
    static constexpr std::array<std::pair<std::string_view, int16_t>, 7> table = {{
        {"Unknown", ImageInconnue},
        {"Inexistant", ImageInconnue},
        {"Lecteur de Disquette", ImageInconnue},
        {"Disque Local", ImageDisque},
        {"Connexion Réseau", ImageReseau},
        {"Lecteur CD-ROM", ImageRacine},
        {"Disque RAM", ImageGenerique},
    }};
    for (const auto& [nom, valeur] : table)
        if (nom == type)
            image = valeur;
}

int32_t AjouterMedia(ArbreCatalogue& arbre, Recordset& medias, std::string_view cle, int16_t image)
{
    const int32_t racine = arbre.Chercher("Root");
    const int32_t media = arbre.Ajouter(racine, cle, medias.Texte("Label"), image);
    if (media == ArbreCatalogue::Aucun)
        return media;
    if (!medias.EstNul("Icone"))
        arbre.DonnerIcone(media, medias.Texte("Icone"));
    arbre.Selectionner(media);
    const double couleur = GetSettingNombre(SectionTypes, Trim(medias.Texte("Categorie")), 0);
    if (couleur > 0 && couleur <= 0xFFFFFF)
        arbre.Colorer(media, static_cast<uint32_t>(couleur));
    return media;
}

// Elements that a ";" or "#" in a name has broken have no parent or no key, and are passed over.
void AjouterElements(ArbreCatalogue& arbre, std::string_view texte)
{
    Detacher(texte, Separateur);
    std::string_view clePrecedente;
    int32_t parent = ArbreCatalogue::Aucun;
    const uint64_t generation = arbre.Generation();
    while (!texte.empty() && arbre.Generation() == generation) {
        std::string_view element = Detacher(texte, Separateur);
        const std::string_view cleParent = Detacher(element, SeparateurChamps);
        const std::string_view cle = Detacher(element, SeparateurChamps);
        const std::string_view nom = Detacher(element, SeparateurChamps);
        if (cleParent != clePrecedente) {
            parent = arbre.Chercher(cleParent);
            clePrecedente = cleParent;
        }
        if (parent != ArbreCatalogue::Aucun)
            arbre.Ajouter(parent, cle, nom, ImageRepertoire, ImageRepertoireOuvert);
        Ceder();
    }
}

// Without a tree text: the media alone; its directories come as they are looked at.
void AjouterDepuisListe(ArbreCatalogue& arbre, Base& base, Recordset& medias, int16_t image,
                        const EcouteChargement& ecoute)
{
    Recordset lignes =
        base.OpenRecordset("Select * from Liste where Attribut= 'D' and NCatalogue = " + Str(medias.Entier("Num")) +
                           " order by NCatalogue asc, Répertoire asc, nom asc");
    for (; !lignes.Eof(); lignes.MoveNext()) {
        if (lignes.Entier("Repertoirepere") != 1)
            continue;
        const std::string cle = CleRepertoire(lignes.Entier("NCatalogue"), lignes.Texte("Repertoirepere"));
        if (AjouterMedia(arbre, medias, cle, image) != ArbreCatalogue::Aucun && ecoute.cliquer)
            ecoute.cliquer();
        return;
    }
}

}  // namespace

bool ChargerArbre(ArbreCatalogue& arbre, const EcouteChargement& ecoute)
{
    if (!ArbreARecharger() && arbre.Nombre() > 0)
        return false;
    FixerArbreARecharger(false);
    arbre.Vider();
    arbre.FixerTag("");
    const uint64_t generation = arbre.Generation();
    if (GarantirBase(false) && ecoute.baseChangee)
        ecoute.baseChangee();

    Base base = OpenDatabase(BaseCourante());
    arbre.Ajouter(ArbreCatalogue::Aucun, "Root", "Liste des catalogues", ImageRacine, ImageRacine);
    Recordset medias = base.OpenRecordset("Select * from Catalogue where  Flag = true order by  Label asc");
    const auto nombre = static_cast<double>(medias.RecordCount());
    int16_t image = ImageDisque;
    for (double i = 0; !medias.Eof(); medias.MoveNext(), ++i) {
        Ceder();
        if (arbre.Generation() != generation)
            return true;
        if (ecoute.progression)
            ecoute.progression(i / nombre);
        ChoisirImage(medias.Texte("typed"), image);
        const std::string_view texte = medias.Texte("Tree");
        if (texte.empty()) {
            AjouterDepuisListe(arbre, base, medias, image, ecoute);
            continue;
        }
        AjouterMedia(arbre, medias, CleRepertoire(medias.Entier("Num"), "000000001"), image);
        AjouterElements(arbre, medias.Texte("Tree"));
    }
    return true;
}

std::string SeparerPhoto(std::string_view description, std::string& photo)
{
    constexpr std::string_view debut = "<photo>", fin = "</photo>";
    if (description.find(debut) == std::string_view::npos)
        return std::string(description);
    const size_t place = description.find(fin);
    if (place == std::string_view::npos)  // a block that never ends: no path
        return std::string(description.substr(std::min(description.size(), fin.size() - 1)));

    photo = description.substr(0, place);
    for (size_t i = photo.find(debut); i != std::string::npos; i = photo.find(debut))
        photo.erase(i, debut.size());
    return std::string(description.substr(place + fin.size()));
}

std::string LireDescriptionNoeud(const ArbreCatalogue& arbre, std::string& photo)
{
    photo.clear();
    const int32_t noeud = arbre.Selection();
    if (noeud == ArbreCatalogue::Aucun || arbre[noeud].parent == ArbreCatalogue::Aucun)
        return {};

    Base base = OpenDatabase(BaseCourante());
    Recordset lignes;
    if (arbre.EstMedia(noeud)) {
        const CleNoeud cle = AnalyserCle(arbre[noeud].cle);
        lignes = base.OpenRecordset("Select * from Liste where RepertoirePere = '" + cle.code +
                                    "' and NCatalogue = " + cle.catalogue + " order by nom asc");
    } else {
        const std::string cleParent(arbre[arbre[noeud].parent].cle);
        const CleNoeud parent = AnalyserCle(cleParent);
        const std::string debut = "Select * from Liste where Répertoire= '" +
                                  (parent.archive ? cleParent : parent.code) + "' and NCatalogue = " + parent.catalogue;
        const std::string fin = std::string(arbre[noeud].texte) + "' order by nom asc";
        lignes = base.OpenRecordset(debut + " and Nom = '" + fin);
        if (lignes.Eof())
            lignes = base.OpenRecordset(debut + " and Alias = '" + fin);
    }
    if (lignes.Eof() || lignes.EstNul("Description"))
        return {};
    return SeparerPhoto(lignes.Texte("Description"), photo);
}

std::string TexteArbre(const ArbreCatalogue& arbre, int64_t numero)
{
    const std::string prefixe = Str(numero) + '-';
    std::string texte;
    for (int32_t i = 0; i < arbre.Nombre(); ++i) {
        const ArbreCatalogue::Noeud& noeud = arbre[i];
        if (!noeud.cle.starts_with(prefixe))
            continue;
        if (!arbre.EstMedia(i))
            texte += Separateur;
        texte.append(arbre[noeud.parent].cle).append(1, SeparateurChamps).append(noeud.cle);
        texte.append(1, SeparateurChamps).append(noeud.texte);
    }
    return texte;
}

bool EcrireArbre(const ArbreCatalogue& arbre, int64_t numero)
{
    return ModifierCatalogue(numero, true, TexteArbre(arbre, numero));
}
