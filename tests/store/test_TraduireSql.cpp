#include "commun/Motif.h"
#include "outils/Brut.h"
#include "outils/Environnement.h"
#include "store/Base.h"
#include "store/TraduireSql.h"

namespace {

struct CasMotif {
    const char* motif;
    std::vector<const char*> oui, non;
};

const CasMotif Motifs[] = {
    {"", {""}, {"a"}},
    {"*", {"", "abc"}, {}},
    {"?", {"é", "?"}, {"", "éa"}},
    {"*?", {"a"}, {""}},
    {"*été*", {"Vacances d'ÉTÉ 2003"}, {"ete"}},
    {"*œuvre", {"CHEF-D'ŒUVRE"}, {"œuvres"}},
    {"100%", {"100%"}, {"1000"}},
    {"#", {"#"}, {"1"}},
    {"*.jp?", {"photo.JPG"}, {"photo.jpeg"}},
    {"a*b*c", {"aXbYbZc"}, {"aXcYb"}},
    {"*\\*", {"a\\b"}, {"a/b"}},
    {"*k*", {"\xE2\x84\xAA"}, {}},  // the Kelvin sign is a k
    {"*\xFF", {"a\xFF"}, {"\xFF!"}},
};

TEST(MotifSql, WildcardsCaseAndAccents)
{
    for (const auto& [motif, oui, non] : Motifs) {
        for (const char* texte : oui)
            EXPECT_TRUE(CorrespondMotif(motif, texte)) << motif << " / " << texte;
        for (const char* texte : non)
            EXPECT_FALSE(CorrespondMotif(motif, texte)) << motif << " / " << texte;
    }
    EXPECT_TRUE(CorrespondMotif("a*", std::string_view("a\0b", 3)));
    EXPECT_FALSE(CorrespondMotif("a", std::string_view("a\0b", 3)));
    // No pattern costs more than the product of the lengths.
    EXPECT_FALSE(CorrespondMotif("*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b", std::string(20000, 'a')));
}

class Sql : public Environnement {
protected:
    Sql() : chemin_((travail_ / "essai.vlr").string())
    {
        CreerBaseVide(chemin_);
        base_ = OpenDatabase(chemin_);
    }

    void Remplir(std::initializer_list<const char*> noms)
    {
        Recordset liste = base_.OpenRecordset("Liste");
        for (const char* nom : noms) {
            liste.AddNew();
            liste.Poser("NCatalogue", int64_t{1});
            liste.Poser("Répertoire", std::string_view("000000001"));
            liste.Poser("RepertoirePere", std::string_view("0"));
            liste.Poser("Nom", std::string_view(nom));
            EXPECT_TRUE(liste.Update());
        }
    }

    std::string Noms(const std::string& texte)
    {
        std::string noms;
        for (Recordset jeu = base_.OpenRecordset(texte); !jeu.Eof(); jeu.MoveNext())
            noms.append(noms.empty() ? "" : " ").append(jeu.Texte("Nom"));
        return noms;
    }

    std::string chemin_;
    Base base_;
};

TEST_F(Sql, OrderIsFrench)
{
    Remplir({"zèbre", "Été", "côté", "cote", "été", "Cote", "coté", "eta", "10", "côte"});
    EXPECT_EQ(Noms("Select * from Liste where Répertoire= '000000001' and NCatalogue =  1 order by nom asc"),
              "10 cote Cote coté côte côté eta été Été zèbre");
    EXPECT_EQ(Noms("Select * from Liste ORDER  BY Nom desc,Num asc").substr(0, 7), "zèbre ");
}

TEST_F(Sql, SearchStatements)
{
    Remplir({"A", "a", "d'abord", "100%", "like", "order by"});
    const std::pair<const char*, const char*> cas[] = {
        {"Select * from Liste where NCAtalogue =  1 and RepertoirePere = '0' and Nom = 'A' order by nom asc", "A"},
        {"select * from Liste where   Nom like 'A' or  Alias like 'A'  order by Num asc", "A a"},
        {"select * from Liste where   Nom like '*''*' or  Alias like '*''*'  order by Nom asc", "d'abord"},
        {"select * from Liste where  NCatalogue =  1 and ( Description like '*0%*'  or (Nom like '*0%*' or Alias like "
         "'*0%*'))  order by Nom asc",
         "100%"},
        {"select * from Liste where Nom = 'order by' order by Nom", "order by"},
        {"select * from Liste where Nom like 'd'abord' order by Nom asc", ""},
        {"select * from Liste where Nom like 'd", ""},
        {"select * from Liste where RepertoirePere = '000000001'", ""},
        {"select Nom from Liste where Num = 2", "a"},
    };
    for (const auto& [texte, noms] : cas)
        EXPECT_EQ(Noms(texte), noms) << texte;
}

TEST_F(Sql, HostileStatementsDoNothing)
{
    Remplir({"reste"});
    const std::string avant = Contenu(chemin_);
    for (const char* texte :
         {"", ";", "delete * from Liste", "select * from Liste; delete from Liste", "pragma user_version = 7",
          "select * from Absente", "attach 'x.db' as x", "with t as (select 1) select * from t",
          "select load_extension('x')", "vacuum", "begin"}) {
        Recordset jeu = base_.OpenRecordset(texte);
        EXPECT_EQ(jeu.RecordCount(), 0) << texte;
        jeu.AddNew();
        EXPECT_FALSE(jeu.Update()) << texte;
    }
    EXPECT_TRUE(base_.OpenRecordset(std::string("select * from Liste\0;", 21)).Eof());
    for (const char* texte : {"", "select * from Liste", "drop table Liste", "attach 'x.db' as x", "commit",
                              "delete * from Liste; delete * from Catalogue", "delete from sqlite_master"})
        EXPECT_FALSE(base_.Execute(texte)) << texte;
    EXPECT_EQ(Noms("select * from Liste"), "reste");
    base_.Close();
    EXPECT_EQ(Contenu(chemin_), avant);
}

TEST_F(Sql, StatementsInUseFindTheirIndex)
{
    base_.Close();
    const std::pair<const char*, const char*> cas[] = {
        {"Select * from Liste where Répertoire= '000000002' and NCatalogue =  3", "ListeContenu"},
        {"Select * from Liste where Attribut= 'D' and NCatalogue =  3", "ListeContenu"},
        {"delete * from Liste where NCatalogue =  3", "ListeContenu"},
        {"Select * from Liste where RepertoirePere = '000000002'", "ListeDossier"},
        {"Select * from Liste where NCAtalogue =  3 and RepertoirePere = '000000002' and Nom = 'x'", "ListeDossier"},
        {"Select * from Liste where Num =  3", "PRIMARY KEY"},
        {"Select * from Catalogue where NPret = 2", "CataloguePret"},
    };
    for (const auto& [texte, index] : cas) {
        const std::vector<std::string> plan = Brut(chemin_, "explain query plan " + TraduireSql(texte));
        ASSERT_FALSE(plan.empty()) << texte;
        EXPECT_NE(plan[0].find(index), std::string::npos) << texte << ": " << plan[0];
    }
}

}  // namespace
