#include "Environnement.h"
#include "store/Base.h"
#include "store/Brut.h"
#include "store/TraduireSql.h"

namespace {

struct CasMotif {
    const char* motif;
    std::vector<const char*> oui;
    std::vector<const char*> non;
};

const CasMotif Motifs[] = {
    {"", {""}, {"a"}},
    {"*", {"", "abc"}, {}},
    {"**", {"", "abc"}, {}},
    {"?", {"é", "?"}, {"", "éa"}},
    {"*?", {"a"}, {""}},
    {"*été*", {"Vacances d'ÉTÉ 2003"}, {"ete"}},
    {"*ete*", {"ETE"}, {"été"}},
    {"*œuvre", {"CHEF-D'ŒUVRE"}, {"œuvres"}},
    {"*MOT*", {"un mot là", "momot"}, {"mo", ""}},
    {"100%", {"100%"}, {"1000"}},
    {"a_c", {"A_C"}, {"abc"}},
    {"[ab]", {"[AB]"}, {"a"}},
    {"#", {"#"}, {"1"}},
    {"*.jp?", {"photo.JPG"}, {"photo.jpeg"}},
    {"a*b*c", {"aXbYbZc"}, {"aXcYb"}},
    {"*\\*", {"a\\b"}, {"a/b"}},
    {"*k*", {"\xE2\x84\xAA"}, {}},  // the Kelvin sign is a k
    {"*\xFF",
     {"a\xFF"},
     {"\xFF"
      "a"}},
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
            liste.Poser("R\xC3\xA9pertoire", std::string_view("000000001"));
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
    EXPECT_EQ(Noms("select * from Liste order by Num desc").substr(0, 6), "côte ");
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
        {"select * from Liste where Nom LIKE 'like' order by Nom asc", "like"},
        {"select * from Liste where Nom like 'd'abord' order by Nom asc", ""},
        {"select * from Liste where Nom like 'd", ""},
        {"select * from Liste where RepertoirePere = '000000001'", ""},
        {"select Nom from Liste where Num = 2", "a"},
    };
    for (const auto& [texte, noms] : cas) {
        EXPECT_EQ(Noms(texte), noms) << texte;
        const std::string liste(noms);
        EXPECT_EQ(base_.OpenRecordset(texte).RecordCount() > 0, !liste.empty()) << texte;
    }
}

TEST_F(Sql, HostileStatementsDoNothing)
{
    Remplir({"reste"});
    const std::string avant = Contenu(chemin_);
    for (const char* texte :
         {"", ";", "delete * from Liste", "select * from Liste; delete from Liste", "pragma user_version = 7",
          "select * from Absente", "attach 'x.db' as x", "with t as (select 1) select * from t", "explain select 1",
          "select load_extension('x')", "select * from Liste where Nom = 'x'; drop table Liste", "vacuum", "begin"}) {
        Recordset jeu = base_.OpenRecordset(texte);
        EXPECT_EQ(jeu.RecordCount(), 0) << texte;
        EXPECT_TRUE(jeu.Eof()) << texte;
        jeu.AddNew();
        EXPECT_FALSE(jeu.Update()) << texte;
    }
    EXPECT_TRUE(base_.OpenRecordset(std::string("select * from Liste\0;", 21)).Eof());
    for (const char* texte :
         {"", "select * from Liste", "drop table Liste", "pragma user_version = 7", "attach 'x.db' as x", "vacuum",
          "delete * from Liste; delete * from Catalogue", "delete * from Liste where Nom = 'a'b'", "commit",
          "delete from sqlite_master", "update sqlite_master set sql = ''"})
        EXPECT_FALSE(base_.Execute(texte)) << texte;
    EXPECT_EQ(Noms("select * from Liste"), "reste");
    base_.Close();
    EXPECT_EQ(Contenu(chemin_), avant);
}

TEST_F(Sql, StatementsInUseFindTheirIndex)
{
    base_.Close();
    const std::pair<const char*, const char*> cas[] = {
        {"Select * from Liste where Répertoire= '000000002' and NCatalogue =  3 order by nom asc", "ListeContenu"},
        {"Select * from Liste where Répertoire= 'A 12 8' and NCatalogue =  3 and Nom = 'x' order by nom asc",
         "ListeContenu"},
        {"Select * from Liste where Attribut= 'D' and NCatalogue =  3 order by NCatalogue asc, Répertoire asc, nom asc",
         "ListeContenu"},
        {"select * from Liste where NCatalogue =  3", "ListeContenu"},
        {"delete * from Liste where NCatalogue =  3", "ListeContenu"},
        {"Select * from Liste where RepertoirePere = '000000002'", "ListeDossier"},
        {"Select * from Liste where Repertoirepere= '000000002' and NCatalogue =  3 order by nom asc", "ListeDossier"},
        {"Select * from Liste where NCAtalogue =  3 and RepertoirePere = '000000002' and Nom = 'x' order by nom asc",
         "ListeDossier"},
        {"Select * from Liste where Num =  3 order by nom asc", "PRIMARY KEY"},
        {"Select * from Catalogue where NPret = 2 order by label asc", "CataloguePret"},
    };
    sqlite3* db = nullptr;
    sqlite3_open(chemin_.c_str(), &db);
    sqlite3_create_collation(db, "francais", SQLITE_UTF8, nullptr,
                             [](void*, int, const void*, int, const void*) { return 0; });
    for (const auto& [texte, index] : cas) {
        sqlite3_stmt* enonce = nullptr;
        sqlite3_prepare_v2(db, ("explain query plan " + TraduireSql(texte)).c_str(), -1, &enonce, nullptr);
        ASSERT_EQ(sqlite3_step(enonce), SQLITE_ROW) << texte << sqlite3_errmsg(db);
        const std::string plan = reinterpret_cast<const char*>(sqlite3_column_text(enonce, 3));
        EXPECT_NE(plan.find(index), std::string::npos) << texte << ": " << plan;
        sqlite3_finalize(enonce);
    }
    sqlite3_close(db);
}

}  // namespace
