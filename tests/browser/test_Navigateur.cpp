#include "browser/ChargerArbre.h"
#include "browser/Navigateur.h"
#include "catalogue/Cles.h"
#include "catalogue/TexteArbre.h"
#include "commun/Formes.h"
#include "outils/LignesTest.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

using Textes = std::vector<std::string>;

class TestNavigateur : public EnvironnementBase {
protected:
    // Keys and texts below a node, "clé=texte".
    Textes Enfants(std::string_view cle) const
    {
        Textes textes;
        const int32_t noeud = nav_.arbre.Chercher(cle);
        for (int32_t e = noeud < 0 ? noeud : nav_.arbre[noeud].premierEnfant; e >= 0; e = nav_.arbre[e].suivant)
            textes.push_back(std::string(nav_.arbre[e].cle) + "=" + std::string(nav_.arbre[e].texte));
        return textes;
    }
    Textes Noms() const
    {
        Textes noms;
        for (int32_t i = 0; i < nav_.liste.Nombre(); ++i)
            noms.emplace_back(nav_.liste[i].cellules[ColNom]);
        return noms;
    }
    void Charger() { nav_ = ChargerArbre(icones_, {ColNom, false}, {}, part_); }
    // True when the entries were read.
    bool Montrer()
    {
        const bool voulue = nav_.LectureVoulue();
        if (voulue)
            nav_.Montrer(
                LectureListeFichiers(std::string(nav_.arbre.CleSelection()), icones_, {ColNom, false}, {}, part_));
        nav_.MontrerDescriptionNoeud();
        return voulue;
    }
    bool Cliquer(std::string_view cle)
    {
        nav_.arbre.Selectionner(nav_.arbre.Chercher(cle));
        return Montrer();
    }
    uint32_t Couleur(std::string_view cle) { return nav_.arbre[nav_.arbre.Chercher(cle)].couleur; }

    Navigateur nav_;
    IconesExtensions icones_;
    std::atomic<double> part_;
};

std::string Racine(int64_t media)
{
    return CleRepertoire(media, "000000001");
}

}  // namespace

TEST(CleNoeud, ParleDeLaLigne)
{
    const std::tuple<const char*, bool, bool, const char*, const char*> cas[] = {
        {" 12-000000001", true, false, "12", "000000001"},
        {"A 345 12", true, true, "12", "345"},
        {" 7-A 1234 8", true, false, "7", "A 1234 8"},  // a folder inside an archive
        {"Root", false, false, "", ""},
        {"", false, false, "", ""},
        {"A", false, true, "", ""},
    };
    for (const auto& [texte, valide, archive, catalogue, code] : cas) {
        const CleNoeud cle = AnalyserCle(texte);
        EXPECT_EQ(std::tuple(cle.valide, cle.archive, cle.catalogue, cle.code),
                  std::tuple(valide, archive, catalogue, code))
            << texte;
    }
    EXPECT_EQ(CleArchive(345, 12), "A 345 12");
}

TEST_F(TestNavigateur, ChargeLesElementsEtPasseLesCasses)
{
    // The media is number 1. A ";" and a "#" in names, an orphan, a key used twice, and emptiness.
    AjouterMediaTest({"Disque",
                      "## ; 1-000000001# 1-000000002#un;deux; 1-000000002# 1-000000003#a#b"
                      "; 9-000000001# 1-000000004#orphelin; 1-000000001# 1-000000002#double"
                      ";;#;##; 1-000000001# 1-000000005#fin"});
    AjouterMediaTest({"Caché", "#x#y", "Disque RAM", false});
    Charger();
    EXPECT_EQ(Enfants("Root"), Textes{" 1-000000001=Disque"});
    EXPECT_EQ(Enfants(Racine(1)), (Textes{" 1-000000002=un", " 1-000000005=fin"}));
    EXPECT_EQ(Enfants(" 1-000000002"), Textes{" 1-000000003=a"});
    EXPECT_EQ(nav_.arbre.Nombre(), 5);
}

TEST_F(TestNavigateur, GardeLImageDuMediaPrecedent)
{
    SaveSetting(SectionTypes, "Jeux", "16711680");
    AjouterMediaTest({"1", "#a", "Lecteur DVD/CD-ROM"});
    AjouterMediaTest({"2", "#a", "Connexion Réseau", true, " Jeux "});
    AjouterMediaTest({"3", "#a", "Lecteur DVD/CD-ROM"});
    AjouterMediaTest({"4", "#a", "Disque RAM", true, "", "octets"});
    AjouterMediaTest({"5", "#a", "Inconnu", true, "", std::string(TailleIconeMaximale + 1, ' ')});
    Charger();
    const int attendues[] = {ImageDisque, ImageReseau, ImageReseau, ImagePropre, ImageGenerique};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(nav_.arbre[nav_.arbre.Chercher(Racine(i + 1))].image, attendues[i]) << i;
    EXPECT_EQ(nav_.arbre.Icone(nav_.arbre.Chercher(Racine(4))), "octets");
    EXPECT_EQ(Couleur(Racine(2)), 16711680U);
    EXPECT_EQ(Couleur(Racine(1)), CouleurNoire);
    EXPECT_EQ(nav_.arbre.CleSelection(), Racine(5));
}

TEST_F(TestNavigateur, SansArbreLitLesRepertoiresUnAUn)
{
    const int64_t media = AjouterMediaTest({"Seul", ""});
    AjouterLignes(media, {{"000000000", "000000001", "D:", "D"},
                          {"000000001", "000000002", "sous", "D"},
                          {"000000002", "000000003", "fond", "D"}});
    AjouterMediaTest({"Vide", ""});  // not even a root row: no node
    Charger();
    EXPECT_EQ(Enfants("Root"), Textes{Racine(media) + "=Seul"});
    EXPECT_EQ(Enfants(Racine(media)), Textes{" 1-000000002=sous"});
    EXPECT_EQ(Couleur(Racine(media)), CouleurRouge);

    Cliquer(" 1-000000002");
    EXPECT_EQ(Enfants(" 1-000000002"), Textes{" 1-000000003=fond"});
    Cliquer(Racine(media));
    EXPECT_EQ(Enfants(Racine(media)), Textes{" 1-000000002=sous"}) << "a directory twice";
}

TEST_F(TestNavigateur, MontreLesCellules)
{
    const int64_t media = AjouterMediaTest({"Cellules", "#a"});
    const auto numeros = AjouterLignes(
        media, {{"000000001", "000000002", "dossier", "D", " ", " ", "20031224", "14:05:33", "surnom", {}},
                {"000000001", "0", "IMAGE.PNG", "r....a", "1,5 Kb", "image PNG", "200312", "1:02:03", {}, "4x4"},
                {"000000001", "0", "sans", ".....a", "0 b", "", "19991231", "", {}, "  "},
                {"000000001", "A 9 1", "z", "Z"},
                {"000000001", "0", "l'été.Zip", ".....a", "9 b", "zip", "20200101", "", "alias.zip", {}}});
    Charger();
    Cliquer(Racine(media));
    using Ligne = std::array<std::string_view, NombreColonnes>;
    const Ligne attendues[] = {
        {"alias.zip", "9 b", "zip", "01/01/2020", "", ".....a", ""},
        {"IMAGE.PNG", "1,5 Kb", "image PNG", "", "1:02:03", "r....a", " oui"},
        {"sans", "0 b", "", "31/12/1999", "", ".....a", ""},
        {"surnom", " ", "Répertoire", "24/12/2003", "14:05:33", "D", ""},
        {"z", " ", "Répertoire", "", " ", "D", ""},
    };
    ASSERT_EQ(nav_.liste.Nombre(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(nav_.liste[i].cellules, attendues[i]) << i;
    EXPECT_EQ(nav_.liste[2].icone, ImageGenerique);
    EXPECT_EQ(nav_.liste[2].cle, " 1- " + std::to_string(numeros[2]));
    EXPECT_TRUE(nav_.liste[4].EstRepertoire());
    EXPECT_EQ(nav_.liste[4].cle, " 1-A 9 1");
    // The tree takes a directory's own name, an archive's alias, and the archive by its capital extension.
    EXPECT_EQ(Enfants(Racine(media)),
              (Textes{" 1-000000002=dossier", CleArchive(numeros[4], 1) + "=alias.zip", " 1-A 9 1=z"}));
    EXPECT_EQ(ListeExtensions(), "|png|zip");
}

TEST_F(TestNavigateur, OuvreLesArchives)
{
    const int64_t media = AjouterMediaTest({"Archives", "#a"});
    const int64_t zip = AjouterLignes(media, {{"000000001", "0", "a.zip", "a"}}).front();
    const std::string cle = CleArchive(zip, media), dossier = "A" + Str(zip) + " 2";
    AjouterLignes(media, {{cle, dossier, "dedans", "Z"},
                          {cle, "0", "membre.txt", " ", "1 b"},
                          {dossier, "0", "fond.txt", " ", "2 b", " ", " ", " ", {}, "au fond"}});
    Charger();
    Cliquer(Racine(media));
    Cliquer(cle);
    EXPECT_EQ(Noms(), (Textes{"dedans", "membre.txt"}));
    EXPECT_EQ(nav_.liste[1].cellules[ColType], "Fichier Compressé");
    ASSERT_TRUE(nav_.Descendre(0));
    Montrer();
    EXPECT_EQ(Noms(), Textes{"fond.txt"});
    EXPECT_EQ(nav_.liste[0].cellules[ColType], "Fichier Compressé");
    nav_.CliquerItem(0);
    EXPECT_EQ(nav_.description.texte, "au fond");
    EXPECT_TRUE(EstCleDansArchive(nav_.arbre.CleSelection()));
}

TEST_F(TestNavigateur, LitLesDescriptions)
{
    const int64_t media = AjouterMediaTest({"D", "#a"});
    AjouterLignes(media, {{"000000000", "000000001", "D:", "D", " ", " ", " ", " ", {}, "le média"},
                          {"000000001", "000000002", "un", "D", " ", " ", " ", " ", {}, "<photo>/p.png</photo>du un"},
                          {"000000001", "000000003", "deux", "D", " ", " ", " ", " ", "second", "du deux"},
                          {"000000001", "000000004", "l'autre", "D", " ", " ", " ", " ", {}, "jamais lue"},
                          {"000000001", "0", "l'été.txt", "a", " ", " ", " ", " ", {}, "par numéro"}});
    Charger();
    Cliquer(Racine(media));
    EXPECT_EQ(nav_.description.texte, "le média");
    int item = 0;
    for (const char* texte : {"", "par numéro", "du deux", "du un"}) {  // l'autre, l'été.txt, second, un
        nav_.CliquerItem(item++);
        EXPECT_EQ(nav_.description.texte, texte);
    }
    EXPECT_EQ(nav_.description.photo, "/p.png");
    for (const auto& [cle, texte] :
         {std::pair{" 1-000000002", "du un"}, {" 1-000000003", "du deux"}, {" 1-000000004", ""}}) {
        Cliquer(cle);
        EXPECT_EQ(nav_.description.texte, texte);
    }
    // A node may show the alias, as the cached tree does after a rename.
    nav_.arbre.Renommer(nav_.arbre.Chercher(" 1-000000003"), "second");
    Cliquer(" 1-000000003");
    EXPECT_EQ(nav_.description.texte, "du deux");
}

TEST_F(TestNavigateur, RougitLeMediaMontreEtNoircitLePrecedent)
{
    SaveSetting(SectionTypes, "Jeux", "65280");
    AjouterMediaTest({"1", "#a; 1-000000001# 1-000000002#x", "", true, "Jeux"});
    AjouterMediaTest({"2", "#a"});
    Charger();
    EXPECT_TRUE(Cliquer(Racine(1)));
    EXPECT_FALSE(Cliquer(Racine(1))) << "read again";
    EXPECT_EQ(Couleur(Racine(1)), CouleurRouge);
    Cliquer(Racine(2));
    EXPECT_EQ(Couleur(Racine(1)), CouleurNoire) << "the category's colour is gone until the next load";
    Cliquer(" 1-000000002");
    EXPECT_EQ(Couleur(Racine(2)), CouleurNoire);
    Cliquer("Root");
    EXPECT_EQ(nav_.statut, " 2 catalogue(s) ...");
    EXPECT_EQ(nav_.liste.Nombre(), 0);
}

TEST_F(TestNavigateur, EcritLArbreRenomme)
{
    const int64_t media = AjouterMediaTest(
        {"E", "#a; 1-000000001# 1-000000002#x; 1-000000002# 1-000000003#y; 1-000000001# 1-000000004#z"});
    Charger();
    nav_.arbre.Renommer(nav_.arbre.Chercher(" 1-000000002"), "renommé");
    ASSERT_TRUE(EcrireArbre(nav_.arbre, media));
    Charger();
    EXPECT_EQ(Enfants(Racine(1)), (Textes{" 1-000000002=renommé", " 1-000000004=z"}));
    EXPECT_EQ(Enfants(" 1-000000002"), Textes{" 1-000000003=y"});
}
