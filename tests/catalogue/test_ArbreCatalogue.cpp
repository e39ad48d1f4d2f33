#include <map>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "catalogue/ArbreCatalogue.h"
#include "catalogue/TexteArbre.h"

namespace {

// Keys of the children of a node, in order; their ranks must count from 0.
std::vector<std::string> Enfants(const ArbreCatalogue& arbre, int32_t noeud)
{
    std::vector<std::string> cles;
    for (int32_t e = arbre[noeud].premierEnfant; e != ArbreCatalogue::Aucun; e = arbre[e].suivant) {
        EXPECT_EQ(arbre[e].rang, static_cast<int32_t>(cles.size()));
        EXPECT_EQ(arbre[e].parent, noeud);
        cles.emplace_back(arbre[e].cle);
    }
    EXPECT_EQ(arbre[noeud].enfants, static_cast<int32_t>(cles.size()));
    return cles;
}

}  // namespace

// Against a plain model: nodes come and go at random, and whatever is left is found where it belongs.
TEST(ArbreCatalogue, RetireSansRienDeranger)
{
    ArbreCatalogue arbre;
    std::map<std::string, std::vector<std::string>> modele;  // children by key
    std::map<std::string, std::string> parents;
    const int32_t racine = arbre.Ajouter(ArbreCatalogue::Aucun, "Root", "");
    modele["Root"];
    std::mt19937 hasard(7);
    const auto auHasard = [&] {
        auto place = modele.begin();
        std::advance(place, hasard() % modele.size());
        return place->first;
    };
    for (int tour = 0; tour < 6000; ++tour) {
        if (hasard() % 12 != 0 || modele.size() < 3) {
            const std::string pere = auHasard(), cle = "k" + std::to_string(hasard() % 5000);
            const bool nouveau = !modele.contains(cle);
            EXPECT_EQ(arbre.Ajouter(arbre.Chercher(pere), cle, "texte") != ArbreCatalogue::Aucun, nouveau);
            if (nouveau) {
                modele[cle];
                modele[pere].push_back(cle);
                parents[cle] = pere;
            }
            continue;
        }
        const std::string parti = auHasard();
        if (parti == "Root")
            continue;
        arbre.Retirer(arbre.Chercher(parti));
        std::erase(modele[parents[parti]], parti);
        std::vector<std::string> aOublier = {parti};
        while (!aOublier.empty()) {
            const std::string cle = aOublier.back();
            aOublier.pop_back();
            aOublier.insert(aOublier.end(), modele[cle].begin(), modele[cle].end());
            modele.erase(cle);
            EXPECT_EQ(arbre.Chercher(cle), ArbreCatalogue::Aucun) << cle;
        }
    }
    ASSERT_GT(modele.size(), 100U);
    EXPECT_EQ(arbre.Nombre(), static_cast<int32_t>(modele.size()));
    size_t vus = 0;
    arbre.Parcourir([&](int32_t noeud, const ArbreCatalogue::Noeud& n) {
        ++vus;
        EXPECT_EQ(Enfants(arbre, noeud), modele.at(std::string(n.cle))) << n.cle;
        EXPECT_EQ(arbre.Chercher(n.cle), noeud);
    });
    EXPECT_EQ(vus, modele.size());
    for (const std::string& cle : Enfants(arbre, racine))
        arbre.Retirer(arbre.Chercher(cle));
    EXPECT_EQ(arbre.Nombre(), 1);
}

TEST(ArbreCatalogue, LaSelectionPasseAuVoisin)
{
    const struct {
        const char *choisi, *retire, *ensuite;
    } cas[] = {
        {"a", "a", "b"},     // the next sibling
        {"a1", "a", "b"},    // also from below
        {"b", "b", "Root"},  // else the parent
        {"b", "a", "b"},     // untouched
        {"a2", "a2", "a"},  {"Root", "a", "Root"},
    };
    for (const auto& [choisi, retire, ensuite] : cas) {
        ArbreCatalogue arbre;
        const int32_t racine = arbre.Ajouter(ArbreCatalogue::Aucun, "Root", "");
        const int32_t a = arbre.Ajouter(racine, "a", "");
        arbre.Ajouter(a, "a1", "");
        arbre.Ajouter(a, "a2", "");
        arbre.Ajouter(racine, "b", "");
        arbre.DonnerIcone(a, "octets");
        arbre.Selectionner(arbre.Chercher(choisi));
        arbre.Retirer(arbre.Chercher(retire));
        EXPECT_EQ(arbre.CleSelection(), ensuite) << choisi << " " << retire;
    }
}

TEST(TexteArbre, SEcritEtSeLit)
{
    std::string texte;
    AjouterElement(texte, {"", " 1-000000001", "D:"});
    AjouterElement(texte, {" 1-000000001", " 1-000000002", "un"});
    AjouterElement(texte, {" 1-000000002", " 1-000000003", "c#;d"});
    EXPECT_EQ(texte, "# 1-000000001#D:; 1-000000001# 1-000000002#un; 1-000000002# 1-000000003#c#;d");

    const std::vector<std::vector<std::string_view>> attendus = {{"", " 1-000000001", "D:"},
                                                                 {" 1-000000001", " 1-000000002", "un"},
                                                                 {" 1-000000002", " 1-000000003", "c"},
                                                                 {"d", "", ""}};
    std::string_view reste = texte;
    ElementArbre element;
    for (const auto& attendu : attendus) {
        ASSERT_TRUE(PrendreElement(reste, element));
        EXPECT_EQ((std::vector{element.cleParent, element.cle, element.texte}), attendu);
    }
    EXPECT_FALSE(PrendreElement(reste, element));
    ASSERT_TRUE(ChercherElement(texte, " 1-000000003", element));
    EXPECT_EQ(element.cleParent, " 1-000000002");
    EXPECT_FALSE(ChercherElement(texte, " 1-00000000", element));
    EXPECT_FALSE(ChercherElement("", "", element));
}
