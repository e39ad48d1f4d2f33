#include <random>

#include "outils/Brut.h"
#include "outils/Enfant.h"
#include "outils/Environnement.h"
#include "platform/Chemins.h"
#include "platform/OperationsFichiers.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/IndexNoms.h"
#include "store/PoserBase.h"
#include "store/Reglages.h"

namespace {

using Lignes = std::vector<std::string>;

class Cycle : public Environnement {
protected:
    std::string Programme(const char* nom) const { return (programme_ / nom).string(); }
    std::string Memorisee() const { return GetSetting("Settings", "BaseCourante", "rien"); }
    void Choisir(const std::string& chemin)
    {
        SaveSetting("Settings", "BaseCourante", chemin);
        RelireBaseCourante();
    }
    // A base with rows to give back.
    std::string BaseGonflee()
    {
        const std::string chemin = (travail_ / "essai.vlr").string();
        CreerBaseVide(chemin);
        Brut(chemin,
             "insert into Catalogue(Num, Label) values(7, 'sept'), (8, 'huit');"
             "with recursive n(i) as (select 1 union all select i + 1 from n where i < 4000)"
             " insert into Liste(NCatalogue, Nom, Description) select 7 + i % 2, 'f' || i, hex(zeroblob(500)) from n;"
             "delete from Liste where NCatalogue = 7");
        Choisir(chemin);
        return chemin;
    }
};

constexpr const char* AncienneForme =
    "create table Catalogue(Num integer primary key autoincrement, Identifiant text(255), Label text(255), Flag "
    "boolean);"
    "create table Liste(Num integer primary key autoincrement, NCatalogue integer, Répertoire text(255),"
    " RepertoirePere text(255), Nom text(255));"
    "insert into Catalogue(Identifiant, Label, Flag) values('a', 'b', 1);";

TEST_F(Cycle, OlderBasesGetExactlyTheirMissingPieces)
{
    struct Cas {
        const char *plus, *colonnesPret, *extensions;
    };
    constexpr const char* toutes = "Num,Nom,PreNom,Adresse,Email,Telephone";
    for (const auto& [plus, colonnesPret, extensions] :
         {Cas{"", toutes, ""},
          {"create table Pret(Num integer, Nom text(255)); insert into Pret values(3, 'Anne')", "Num,Nom", ""},
          {"alter table Catalogue add column Tree text; alter table Catalogue add column NPret smallint", toutes, ""},
          {"create table LE(Data text); insert into LE values('|jpg'); alter table Catalogue add column categorie",
           toutes, "|jpg"}}) {
        const std::string chemin = (travail_ / "ancienne.vlr").string();
        SupprimerFichier(chemin);
        Brut(chemin, AncienneForme + std::string(plus));
        Choisir(chemin);
        for (int passage = 0; passage < 2; ++passage)
            InitialiserBase();
        EXPECT_EQ(BaseCourante(), chemin);
        EXPECT_EQ(Brut(chemin, "select count(*) from pragma_table_info('Catalogue')"), Lignes{"8"}) << plus;
        EXPECT_EQ(Brut(chemin,
                       "select count(*) from Catalogue where Tree is null and Disque is null and NPret is null and"
                       " Categorie is null and Label = 'b'"),
                  Lignes{"1"});
        EXPECT_EQ(Brut(chemin, "select name from sqlite_master where type = 'index' order by name"),
                  (Lignes{"CataloguePret", "ListeContenu", "ListeDossier"}));
        EXPECT_EQ(Brut(chemin, "select group_concat(name) from pragma_table_info('Pret')"), Lignes{colonnesPret});
        EXPECT_EQ(ListeExtensions(), extensions) << plus;
    }
}

TEST_F(Cycle, FirstStartAndAVanishedBase)
{
    const std::string defaut = Programme("defaut.vlr"), partie = (travail_ / "partie.vlr").string();
    InitialiserBase();
    EXPECT_EQ(BaseCourante() + Memorisee(), defaut + defaut);
    EXPECT_FALSE(FichierExiste(Programme("velour.vlr")));
    EXPECT_TRUE(OpenDatabase(BaseCourante()).TableDefs("le"));

    Choisir(partie);
    EXPECT_TRUE(GarantirBase(false));
    EXPECT_EQ(BaseCourante() + Memorisee(), defaut + partie);
    EXPECT_FALSE(GarantirBase(true));
    FixerBaseCourante("");
    EXPECT_TRUE(GarantirBase(true));
    EXPECT_EQ(Memorisee(), defaut);
}

TEST_F(Cycle, ABaseInItsUsualPlaceIsTakenAndTheTemplateIsCopied)
{
    Brut(Programme("Data.z"), std::string(AncienneForme));
    CopierModele(Programme("velour.vlr"));
    EXPECT_EQ(Contenu(Programme("velour.vlr")), Contenu(Programme("Data.z")));
    InitialiserBase();
    EXPECT_EQ(BaseCourante(), Programme("velour.vlr"));
    EXPECT_EQ(Memorisee(), "rien");
    EXPECT_FALSE(FichierExiste(Programme("defaut.vlr")));
    EXPECT_EQ(Brut(Programme("Data.z"), "select count(*) from sqlite_master where name = 'Pret'"), Lignes{"0"});
}

static bool Enregistrer()
{
    Base base = OpenDatabase(BaseCourante());
    return EnregistrerExtensions(base);
}

TEST_F(Cycle, AForeignCurrentFileGivesAnEmptyCatalogue)
{
    AjouterExtension("jpg");
    Ecrire(travail_ / "lettre.vlr", "bonjour");
    Choisir((travail_ / "lettre.vlr").string());
    InitialiserBase();
    CompacterBase();
    EXPECT_EQ(ListeExtensions(), "");
    EXPECT_FALSE(Enregistrer());
    EXPECT_EQ(Contenu(travail_ / "lettre.vlr"), "bonjour");
}

TEST_F(Cycle, ExtensionListKeepsItsOddities)
{
    InitialiserBase();
    const std::pair<const char*, bool> suite[] = {{"", false},    {"jpg", true}, {"jp", false}, {"JPG", true},
                                                  {"jpg", false}, {"a|b", true}, {"b", false}};
    EXPECT_TRUE(Enregistrer());
    InitialiserBase();
    EXPECT_EQ(ListeExtensions(), " ");
    Brut(BaseCourante(), "delete from LE");
    InitialiserBase();
    for (const auto& [extension, neuve] : suite)
        EXPECT_EQ(AjouterExtension(extension), neuve) << extension;
    EXPECT_EQ(ListeExtensions(), "|jpg|JPG|a|b");
    EXPECT_TRUE(Enregistrer());
    InitialiserBase();
    EXPECT_EQ(ListeExtensions(), "|jpg|JPG|a|b");
    EXPECT_FALSE(AjouterExtension("pg|J"));
}

TEST_F(Cycle, TheExtensionListAnswersAsAPlainSearchWould)
{
    std::mt19937 hasard(7);
    std::string attendu;
    const auto ajouter = [&](const std::string& extension) {
        const bool neuve = attendu.find(extension) == attendu.npos;
        ASSERT_EQ(AjouterExtension(extension), neuve) << extension << " in " << attendu.size();
        attendu += neuve ? '|' + extension : "";
    };
    // Few characters make long repeats, many make many ways on from each part.
    for (const std::string_view alphabet : {"ab|\xC3", "abcdefghijklmnopqrstuvwxyz|"}) {
        attendu.clear();
        ChargerListeExtensions("");
        for (int i = 0; i < 4000; ++i) {
            std::string extension(hasard() % (i % 2 == 0 ? 4 : 12), ' ');
            for (char& c : extension)
                c = alphabet[hasard() % alphabet.size()];
            ajouter(extension);
            if (i == 2000)
                ChargerListeExtensions(attendu);
        }
    }
    // A list longer than anyone's: its end is known too, and what lies across the place where the index ends.
    for (int i = 0; attendu.size() < (size_t{2} << 20) + 5000; ++i)
        attendu += '|' + std::to_string(i * 7919LL);
    ChargerListeExtensions(attendu);
    for (const size_t place : {size_t{1000}, (size_t{2} << 20) - 5, attendu.size() - 10})
        ajouter(attendu.substr(place, 10));
    ajouter("zz");
    ajouter("z");
    EXPECT_EQ(ListeExtensions(), attendu);
}

TEST_F(Cycle, CompactionGivesBackAndKeepsTheRows)
{
    const std::string chemin = BaseGonflee();
    const auto taille = std::filesystem::file_size(chemin);
    const Lignes avant = Brut(chemin, "select Num || Nom from Liste order by Num");
    Ecrire(Programme("temp.db"), "reste d'un plantage");
    CompacterBase();
    EXPECT_LT(std::filesystem::file_size(chemin), taille * 2 / 3);
    EXPECT_EQ(Brut(chemin, "select Num || Nom from Liste order by Num"), avant);
    EXPECT_EQ(Brut(chemin, "select seq from sqlite_sequence where name = 'Liste'"), Lignes{"4000"});
    EXPECT_FALSE(FichierExiste(Programme("temp.db")));

    const auto date = std::filesystem::last_write_time(chemin);
    CompacterBase();
    EXPECT_EQ(std::filesystem::last_write_time(chemin), date);
}

TEST_F(Cycle, CompactionOnAFullDiskOrAnOpenBaseChangesNothing)
{
    const std::string chemin = BaseGonflee();
    const std::string avant = Contenu(chemin);
    DansUnEnfant([] {
        LimiterDisque(256 << 10);
        CompacterBase();
        return true;
    });
    EXPECT_TRUE(Contenu(chemin) == avant);
    EXPECT_FALSE(FichierExiste(Programme("temp.db")));

    const Base ouverte = OpenDatabase(chemin);
    CompacterBase();
    EXPECT_TRUE(Contenu(chemin) == avant);
}

// Leaves a base as a crash in mid transaction does, its journal beside it.
void Planter(const std::string& chemin)
{
    EXPECT_FALSE(DansUnEnfant([&] {
        sqlite3* db = nullptr;
        sqlite3_open(chemin.c_str(), &db);
        sqlite3_exec(db, "pragma cache_size = 5; begin; update Liste set Nom = 'x' || Nom; delete from Catalogue",
                     nullptr, nullptr, nullptr);
        return Mourir();
    }));
    ASSERT_TRUE(FichierExiste(chemin + "-journal"));
}

TEST_F(Cycle, ABasePutInPlaceIsNotUndoneByAStaleJournal)
{
    const std::string source = BaseGonflee(), cible = (travail_ / "cible.vlr").string();
    Brut(Programme("Data.z"), std::string(AncienneForme));
    const std::pair<std::function<bool()>, std::string> poses[] = {
        {[&] { return CopierModele(cible); }, "1"},
        {[&] { return CreerBaseVide(cible); }, "0"},
        {[&] { return CopierBase(source, cible); }, "2"},
    };
    for (const auto& [poser, medias] : poses) {
        SupprimerFichier(cible);
        std::filesystem::copy_file(source, cible);
        Planter(cible);
        const std::string journal = Contenu(cible + "-journal");
        EXPECT_TRUE(poser());
        EXPECT_FALSE(FichierExiste(cible + "-journal"));
        EXPECT_EQ(Brut(cible, "select count(*) from Catalogue"), Lignes{medias});
        EXPECT_EQ(Brut(cible, "pragma integrity_check"), Lignes{"ok"});

        SupprimerFichier(cible);
        Ecrire(cible + "-journal", journal);  // of a base that has gone
        EXPECT_TRUE(poser());
        EXPECT_EQ(Brut(cible, "select count(*) from Catalogue"), Lignes{medias});
    }
}

TEST_F(Cycle, ACopyIsWholeOrNotMade)
{
    const std::string source = BaseGonflee(), cible = (travail_ / "cible.vlr").string();
    const std::string octets = Contenu(source);
    EXPECT_TRUE(CopierBase(source, cible));
    EXPECT_TRUE(Contenu(cible) == octets);
    Planter(source);
    EXPECT_TRUE(CopierBase(source, cible)) << "what the crash left undone is undone first";
    EXPECT_EQ(Brut(cible, "select count(*) from Liste where Nom like 'x%' union all select count(*) from Catalogue"),
              (Lignes{"0", "2"}));
    {
        const Base ouverte = OpenDatabase(source);
        EXPECT_TRUE(CopierBase(source, cible));
        EXPECT_FALSE(CopierBase(cible, source)) << "an open base is not replaced";
        EXPECT_TRUE(DansUnEnfant([&] { return OpenDatabase(cible).Ouverte() || true; }));
    }
    const std::string avant = Contenu(cible);
    EXPECT_FALSE(CopierBase(source, (travail_ / "absent/x.vlr").string()));
    EXPECT_FALSE(CopierBase((travail_ / "absente.vlr").string(), cible));
    EXPECT_FALSE(CopierBase(travail_.string(), cible));
    EXPECT_TRUE(DansUnEnfant([&] {
        LimiterDisque(256 << 10);
        return !CopierBase(source, cible);
    }));
    EXPECT_TRUE(Contenu(cible) == avant);
    Ecrire(travail_ / "lettre.vlr", "bonjour");
    EXPECT_TRUE(CopierBase((travail_ / "lettre.vlr").string(), cible));
    EXPECT_EQ(Contenu(cible), "bonjour");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(travail_), {}), 3);
}

TEST_F(Cycle, MakingABaseLeavesTheUsersFilesAlone)
{
    const std::string chemin = (travail_ / "essai.vlr").string();
    Ecrire(chemin + ".nouveau", "à moi");
    EXPECT_TRUE(CreerBaseVide(chemin));
    EXPECT_EQ(Contenu(chemin + ".nouveau"), "à moi");
}

TEST_F(Cycle, NameIndexesGoWithTheirBases)
{
    const std::string restee = BaseGonflee(), partie = (travail_ / "partie.vlr").string();
    CreerBaseVide(partie);
    EXPECT_TRUE(PreparerIndexNoms(restee) && PreparerIndexNoms(partie));
    SupprimerFichier(partie);
    const std::filesystem::path cache = DossierCache();
    Ecrire(cache / "0123456789abcdef.noms", "vlnoms1\n" + std::string(100, 'x'));  // of an older version
    Ecrire(cache / "les miens.noms", "Anne");
    NettoyerRestes();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(cache), {}), 2);
    EXPECT_EQ(CandidatsNoms(restee, "*f3998*").value_or(std::vector<int64_t>{}).size(), 0U) << "a row that was deleted";
    EXPECT_EQ(CandidatsNoms(restee, "*f3999*").value_or(std::vector<int64_t>{}).size(), 1U);
    EXPECT_TRUE(FichierExiste((cache / "les miens.noms").string()));
}

TEST_F(Cycle, ADefaultBaseThatHoldsMediaIsSetAside)
{
    const std::string defaut = Programme("defaut.vlr"), debranchee = (travail_ / "debranchee.vlr").string();
    for (int fois = 1; fois <= 2; ++fois) {
        Choisir(debranchee);
        InitialiserBase();
        EXPECT_EQ(ReprendreAvis(), "") << "an empty one is replaced without a word";
        Brut(defaut, "insert into Catalogue(Label) values('gardé" + std::to_string(fois) + "')");
        Choisir(debranchee);
        InitialiserBase();
        EXPECT_EQ(BaseCourante(), defaut);
        EXPECT_EQ(Brut(defaut, "select count(*) from Catalogue"), Lignes{"0"});
        const std::string avis = ReprendreAvis();
        ASSERT_NE(avis.find(Programme("defaut 2")), avis.npos) << avis;
        EXPECT_EQ(Brut(avis.substr(avis.find(" : ") + 3), "select Label from Catalogue"),
                  Lignes{"gardé" + std::to_string(fois)});
        EXPECT_EQ(ReprendreAvis(), "");
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(programme_), {}), 3);
}

TEST_F(Cycle, MediaReadIntoTheBaseThatStandsInStay)
{
    const std::string defaut = Programme("defaut.vlr"), partie = (travail_ / "partie.vlr").string();
    Choisir(partie);
    ASSERT_TRUE(GarantirBase(false));  // the tree is loaded
    EXPECT_FALSE(GarantirBase(true));  // a run begins
    Brut(BaseCourante(), "insert into Catalogue(Label) values('lu')");
    CompacterBase();
    GarantirBase(false);  // the tree is loaded again
    EXPECT_EQ(BaseCourante() + Memorisee(), defaut + partie);
    EXPECT_EQ(Brut(BaseCourante(), "select Label from Catalogue"), Lignes{"lu"});
    EXPECT_EQ(ReprendreAvis(), "");

    CreerBaseVide(partie);  // the key is back
    RelireBaseCourante();
    EXPECT_EQ(BaseCourante(), partie);
}

}  // namespace
