#include "extraction/AjouterFichierZip.h"

#include "commun/Formes.h"
#include "outils/Archives.h"
#include "outils/ExtractionTest.h"
#include "store/Base.h"
#include "store/CycleBase.h"

using MembresTest = EnvironnementExtraction;

// Fields of a member between its ":", of which a name may bring some; "h" is a ":" of the time.
TEST_F(MembresTest, ChampsDesMembres)
{
    Executer(
        "mkdir z && cd z && touch -d '2003-12-24 14:05' x && echo a > heure:h && echo b > a:b:c:d && echo c > x && "
        "touch -d '2003-12-24 14:05' * && zip -q ../un.zip heure:h a:b:c:d x && arj a -m0 ../un.arj x");
    const auto lister = [&](const char* nom, std::stop_token arret = {}) {
        Base base = OpenDatabase(BaseCourante());
        const Fichier fichier((travail_ / nom).string());
        AjouterFichierZip({base, fichier, ExtensionFichier(nom), 5, 3, std::move(arret)});
        std::vector<std::string> lignes =
            Lignes("select * from Liste order by Num", {"Répertoire", "Nom", "Taille", "DateF", "Heure", "NCatalogue"});
        base.Execute("delete * from Liste");
        return lignes;
    };
    EXPECT_EQ(lister("un.zip"), (std::vector<std::string>{
                                    "A 3 5|heure|h|2 b|14:05|5",
                                    "A 3 5|a|b|c|2 b|5",
                                    "A 3 5|x|2 b|20031224|14:05|5",
                                }));
    EXPECT_EQ(lister("un.arj"), std::vector<std::string>{"A 3 5|x|2 b|||5"});
    EXPECT_EQ(lister("un.zip", Arrete()), std::vector<std::string>());
}

// A picture that lacks a field shows that of the one before it, within a run.
TEST_F(MembresTest, ImagesCourtes)
{
    Ecrire(disque_ / "a.tga", Petit(0, 12) + Petit(7) + Petit(5) + Petit(24, 1));
    Ecrire(disque_ / "b.tga", "");
    const auto lire = [&](const char* nom) {
        EXPECT_EQ(Lire(Inscrire(nom, nom).numero), FinExtraction::Complete);
        std::vector<std::string> lignes =
            Lignes("select * from Liste where Nom = 'b.tga' order by Num", {"Description"});
        return lignes.back();
    };
    EXPECT_EQ(lire("CD1"), "7*5*24xTGA");
    std::filesystem::remove(disque_ / "a.tga");
    EXPECT_EQ(lire("CD2"), "0*0*0xTGA");
}
