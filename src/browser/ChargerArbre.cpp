#include "browser/ChargerArbre.h"

#include <array>
#include <string>
#include <utility>

#include "catalogue/Categories.h"
#include "catalogue/Cles.h"
#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "catalogue/TexteArbre.h"
#include "store/CycleBase.h"

namespace {

// A type outside the table leaves the picture of the media read before: kept, particularité 1.
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

bool AjouterMedia(ArbreCatalogue& arbre, Recordset& medias, std::string_view cle, int16_t image)
{
    const int32_t media = arbre.Ajouter(arbre.Chercher(CleRacine), cle, medias.Texte("Label"), image);
    if (media == ArbreCatalogue::Aucun)
        return false;
    if (!medias.EstNul("Icone") && medias.Texte("Icone").size() <= TailleIconeMaximale)
        arbre.DonnerIcone(media, medias.Texte("Icone"));
    arbre.Selectionner(media);
    arbre.Colorer(media, CouleurCategorie(medias.Texte("Categorie")));
    return true;
}

// Elements that a ";" or "#" in a name has broken have no parent or no key, and are passed over.
void AjouterElements(ArbreCatalogue& arbre, std::string_view texte, const std::stop_token& arret)
{
    ElementArbre element;
    PrendreElement(texte, element);
    std::string_view clePrecedente;
    int32_t parent = ArbreCatalogue::Aucun;
    while (PrendreElement(texte, element) && !arret.stop_requested()) {
        if (element.cleParent != clePrecedente) {
            parent = arbre.Chercher(element.cleParent);
            clePrecedente = element.cleParent;
        }
        if (parent != ArbreCatalogue::Aucun)
            arbre.Ajouter(parent, element.cle, element.texte, ImageRepertoire, ImageRepertoireOuvert);
    }
}

// The key of a media's top by its rows; empty when it has no such row.
std::string CleDuSommet(Base& base, int64_t media)
{
    for (Recordset lignes = LignesRepertoires(base, media); !lignes.Eof(); lignes.MoveNext())
        if (lignes.Entier("Repertoirepere") == 1)
            return CleRepertoire(lignes.Entier("NCatalogue"), lignes.Texte("Repertoirepere"));
    return {};
}

// A base that has gone from its place is stood in for, and the user is told.
void GarantirEtDire()
{
    const std::string absente = BaseCourante();
    if (!GarantirBase(false) || absente.empty())
        return;
    const std::string suite = ReprendreAvis();
    LaisserAvis("La base est introuvable : " + absente + (suite.empty() ? "" : "  " + suite));
}

}  // namespace

Navigateur ChargerArbre(IconesExtensions& icones, const TriListe& tri, const std::stop_token& arret,
                        std::atomic<double>& part)
{
    Navigateur navigateur;
    ArbreCatalogue& arbre = navigateur.arbre;
    GarantirEtDire();
    navigateur.cheminBase = BaseCourante();
    Base base = OuvrirBase(arret);
    arbre.Ajouter(ArbreCatalogue::Aucun, CleRacine, "Liste des catalogues", ImageRacine, ImageRacine);
    Recordset medias = MediasMontres(base);
    const auto nombre = static_cast<double>(medias.RecordCount());
    int16_t image = ImageDisque;
    for (double i = 0; !medias.Eof() && !arret.stop_requested(); medias.MoveNext(), ++i) {
        part.store(i / nombre, std::memory_order_relaxed);
        ChoisirImage(medias.Texte("typed"), image);
        const int64_t media = medias.Entier("Num");
        if (!medias.Texte("Tree").empty()) {
            AjouterMedia(arbre, medias, CleMedia(media), image);
            AjouterElements(arbre, medias.Texte("Tree"), arret);
            continue;
        }
        // Without a tree text: the media alone; its directories come as they are looked at.
        const std::string cle = CleDuSommet(base, media);
        if (cle.empty() || !AjouterMedia(arbre, medias, cle, image))
            continue;
        std::atomic<double> partLecture;
        navigateur.Montrer(LectureListeFichiers(cle, icones, tri, arret, partLecture));
        navigateur.MontrerDescriptionNoeud();
    }
    navigateur.OublierVus();
    return navigateur;
}
