#include <gtest/gtest.h>

#include "catalogue/ListeFichiers.h"

namespace {

ItemListe Item(std::string_view nom, std::string_view taille = "")
{
    ItemListe item;
    item.cle = nom;
    item.cellules[ColNom] = nom;
    item.cellules[ColTaille] = taille;
    return item;
}

std::string Noms(const ListeFichiers& liste)
{
    std::string noms;
    for (int32_t rang = 0; rang < liste.Nombre(); ++rang)
        noms.append(liste[rang].cellules[ColNom]).append(" ");
    return noms;
}

}  // namespace

TEST(ListeFichiers, SeTrieSeReduitEtChange)
{
    ListeFichiers liste;
    for (const auto& [nom, taille] : {std::pair{"c", "1"}, {"a", "2"}, {"É", "1"}, {"d", "2"}, {"e", "1"}})
        liste.Ajouter(Item(nom, taille));
    EXPECT_EQ(Noms(liste), "c a É d e ");
    liste.Ordonner(liste.Trier(ColNom, false));
    EXPECT_EQ(Noms(liste), "a c d e É ");
    liste.Ordonner(liste.Trier(ColTaille, true));
    EXPECT_EQ(Noms(liste), "a d c É e ") << "equal ones as they arrived";

    liste.Retirer(1);
    EXPECT_EQ(Noms(liste), "a c É e ");
    liste.Remplacer(2, Item("remplacé", "0"));
    EXPECT_EQ(Noms(liste), "a c remplacé e ");
    EXPECT_EQ(liste.Chercher("remplacé"), 2);
    EXPECT_EQ(liste.Chercher("d"), -1);
    liste.Ordonner(liste.Trier(ColNom, false));
    EXPECT_EQ(Noms(liste), "a c e remplacé ");

    liste.Ordonner(ListeFichiers::Ordre{0, 1});  // of another list
    liste.Ordonner(liste.Trier(NombreColonnes, false));
    std::stop_source arret;
    arret.request_stop();
    EXPECT_TRUE(liste.Trier(ColNom, true, arret.get_token()).empty());
    EXPECT_EQ(Noms(liste), "a c e remplacé ");
    while (liste.Nombre() > 0)
        liste.Retirer(0);
    EXPECT_EQ(Noms(liste), "");
}
