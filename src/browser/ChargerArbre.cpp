#include "browser/ChargerArbre.h"

#include <algorithm>
#include <array>
#include <utility>

#include "catalogue/Cles.h"
#include "commun/Formes.h"
#include "platform/Ceder.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

constexpr char Separateur = ';';
constexpr char SeparateurChamps = '#';

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
