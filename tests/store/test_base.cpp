#include <sys/stat.h>

#include "Environnement.h"
#include "platform/Fichiers.h"
#include "store/Base.h"
#include "store/Brut.h"
#include "store/Enfant.h"

namespace {

class BaseStore : public Environnement {
protected:
    BaseStore() : chemin_((travail_ / "essai.vlr").string()) { CreerBaseVide(chemin_); }

    // A row of `Liste` in each call; its number.
    static int64_t Ajouter(Recordset& liste, std::string_view nom, int64_t media = 1, std::string_view texte = "")
    {
        liste.AddNew();
        const int64_t numero = liste.Numero();
        liste.Poser("NCatalogue", media);
        liste.Poser("nom", nom);
        liste.Poser("Description", texte);
        if (!liste.Update())
            return 0;
        liste.Bookmark(liste.LastModified());
        return numero;
    }

    int64_t Compter(const std::string& texte) { return OpenDatabase(chemin_).OpenRecordset(texte).RecordCount(); }

    std::string chemin_;
};

TEST_F(BaseStore, ForeignFilesAreRefusedAndLeftAsTheyWere)
{
    const std::string base = Contenu(chemin_);
    Brut((travail_ / "autre").string(), "create table Notes(x); insert into Notes values(1)");
    Brut((travail_ / "wal").string(), "pragma journal_mode=wal; create table Notes(x)");
    Brut((travail_ / "demi").string(), "create table Catalogue(Num integer primary key)");
    Brut((travail_ / "vues").string(), "create view Catalogue as select 1; create view Liste as select 1");
    Ecrire(travail_ / "texte", "Ceci n'est pas une base.\n");
    Ecrire(travail_ / "vide", "");
    Ecrire(travail_ / "tronquee", std::string_view(base).substr(0, base.size() / 2));
    Ecrire(travail_ / "entete", std::string_view(base).substr(0, 16));
    Ecrire(travail_ / "bruit", base.substr(0, 100) + std::string(base.size() - 100, '\x5a'));
    for (const char* nom : {"autre", "wal", "demi", "vues", "texte", "vide", "tronquee", "entete", "bruit"}) {
        const std::string chemin = (travail_ / nom).string();
        const std::string avant = Contenu(chemin);
        EXPECT_FALSE(OpenDatabase(chemin).Ouverte()) << nom;
        EXPECT_FALSE(CompactDatabase(chemin, (travail_ / "copie").string())) << nom;
        EXPECT_FALSE(BaseARendre(chemin)) << nom;
        EXPECT_EQ(Contenu(chemin), avant) << nom;
        for (const char* suite : {"-journal", "-wal", "-shm"})
            EXPECT_FALSE(FichierExiste(chemin + suite)) << nom << suite;
    }
    EXPECT_FALSE(OpenDatabase(travail_.string()).Ouverte());
    EXPECT_FALSE(OpenDatabase((travail_ / "absente").string()).Ouverte());
    EXPECT_FALSE(FichierExiste((travail_ / "absente").string()));
    EXPECT_FALSE(FichierExiste((travail_ / "copie").string()));
}

TEST_F(BaseStore, ReadOnlyBaseIsRefused)
{
    const std::string avant = Contenu(chemin_);
    chmod(racine_.c_str(), 0755);
    chmod(travail_.c_str(), 0755);
    chmod(chemin_.c_str(), 0444);
    const int resultat = DansUnEnfant([this] {
        if (geteuid() == 0 && setuid(65534) != 0)
            return 2;
        return OpenDatabase(chemin_).Ouverte() ? 1 : 0;
    });
    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(Contenu(chemin_), avant);
}

TEST_F(BaseStore, OneProcessAtATime)
{
    const std::string avant = Contenu(chemin_);
    Base retenue;
    EnfantEnAttente autre([&] { retenue = OpenDatabase(chemin_); });
    EXPECT_FALSE(OpenDatabase(chemin_).Ouverte());
    EXPECT_FALSE(CompactDatabase(chemin_, (travail_ / "copie").string()));
    EXPECT_EQ(Contenu(chemin_), avant);
    autre.Tuer();
    EXPECT_TRUE(OpenDatabase(chemin_).Ouverte());
}

TEST_F(BaseStore, OpeningsInsideTheProcessShareTheFileUntilTheLastOneCloses)
{
    const std::filesystem::path lien = travail_ / "lien.vlr";
    std::filesystem::create_symlink(chemin_, lien);
    Base une = OpenDatabase(chemin_);
    Base deux = OpenDatabase(lien.string());
    Recordset liste = une.OpenRecordset("Liste");
    ASSERT_TRUE(deux.Ouverte());
    ASSERT_TRUE(une.CommencerTransaction());
    Ajouter(liste, "vue");
    EXPECT_EQ(deux.OpenRecordset("select * from Liste where Nom = 'vue'").RecordCount(), 1);
    EXPECT_FALSE(deux.CommencerTransaction());
    EXPECT_TRUE(une.Valider());
    une.Close();
    EXPECT_EQ(liste.RecordCount(), 1);
    deux.Close();
    // The record set that was left open lets go too.
    EXPECT_EQ(liste.RecordCount(), 0);
    EXPECT_FALSE(liste.Update());
    EXPECT_TRUE(liste.Eof());
    EXPECT_EQ(DansUnEnfant([this] { return OpenDatabase(chemin_).Ouverte() ? 1 : 0; }), 1);
}

TEST_F(BaseStore, CounterIsKnownBeforeTheRowIsWritten)
{
    Base base = OpenDatabase(chemin_);
    for (const bool transaction : {false, true}) {
        EXPECT_EQ(transaction && base.CommencerTransaction(), transaction);
        Recordset archive = base.OpenRecordset("Liste");
        archive.AddNew();
        archive.Poser("Nom", std::string_view("a.zip"));
        const int64_t numero = archive.Numero();
        Recordset membres = base.OpenRecordset("Liste");
        EXPECT_EQ(Ajouter(membres, "un"), numero + 1);
        EXPECT_EQ(Ajouter(membres, "deux"), numero + 2);
        ASSERT_TRUE(archive.Update());
        EXPECT_EQ(archive.LastModified(), numero);
        EXPECT_EQ(base.OpenRecordset("select * from Liste where Num = " + std::to_string(numero)).Texte("NOM"),
                  "a.zip");
        EXPECT_EQ(Ajouter(membres, "trois"), numero + 3);
        EXPECT_EQ(base.Valider(), transaction);
    }
    // Numbers of deleted rows do not come back.
    EXPECT_TRUE(base.Execute("delete * from Liste"));
    base.Close();
    base = OpenDatabase(chemin_);
    Recordset liste = base.OpenRecordset("Liste");
    EXPECT_EQ(Ajouter(liste, "neuf"), 9);
}

TEST_F(BaseStore, RowsAreWalkedEditedAndDeleted)
{
    Base base = OpenDatabase(chemin_);
    {
        Recordset liste = base.OpenRecordset("Liste");
        EXPECT_TRUE(liste.Eof());
        for (const char* nom : {"c", "a", "b"})
            Ajouter(liste, nom);
    }
    Recordset liste = base.OpenRecordset("select * from Liste where NCatalogue = 1 order by nom asc");
    EXPECT_EQ(liste.RecordCount(), 3);
    std::string noms;
    for (; !liste.Eof(); liste.MoveNext()) {
        noms += liste.Texte("Nom");
        if (liste.Texte("Nom") == "a") {
            EXPECT_TRUE(liste.Delete());
            EXPECT_EQ(liste.Texte("Nom"), "");
            continue;
        }
        liste.Edit();
        liste.Poser("Alias", liste.Texte("Nom"));
        liste.PoserNul("nom");
        EXPECT_TRUE(liste.Update());
        liste.Bookmark(liste.LastModified());
        EXPECT_TRUE(liste.EstNul("Nom"));
    }
    EXPECT_EQ(noms, "abc");
    EXPECT_EQ(base.OpenRecordset("select * from Liste where Alias = 'c'").Entier("Num"), 1);
    EXPECT_EQ(base.OpenRecordset("Liste").RecordCount(), 2);
}

TEST_F(BaseStore, TextsAndBinariesKeepEveryByte)
{
    const std::string zeros("a\0b\0", 4), ecorche = "\xC3(\xFF\xE9", tous = [] {
        std::string octets;
        for (int i = 0; i < 256; ++i)
            octets += static_cast<char>(i);
        return octets;
    }();
    Base base = OpenDatabase(chemin_);
    Recordset medias = base.OpenRecordset("Catalogue");
    medias.AddNew();
    medias.Poser("Label", zeros);
    medias.Poser("Identifiant", ecorche);
    medias.Poser("NSerie", std::string_view("00123"));
    medias.Poser("Tree", std::string_view("12"));
    medias.PoserOctets("Icone", tous);
    ASSERT_TRUE(medias.Update());
    Recordset relu = base.OpenRecordset("select * from Catalogue where Label like 'A*' order by Identifiant, Label");
    EXPECT_EQ(relu.Texte("Label"), zeros);
    EXPECT_EQ(relu.Texte("Identifiant"), ecorche);
    EXPECT_EQ(relu.Texte("NSerie"), "00123");
    EXPECT_EQ(relu.Texte("Tree"), "12");
    EXPECT_EQ(relu.Texte("Icone"), tous);
    EXPECT_TRUE(relu.EstNul("NPret"));
    EXPECT_EQ(relu.Entier("NPret"), 0);
}

TEST_F(BaseStore, KilledInMidTransaction)
{
    {
        EnfantEnAttente autre([this] {
            static Base base = OpenDatabase(chemin_);
            Recordset medias = base.OpenRecordset("Catalogue");
            medias.AddNew();
            medias.Update();
            base.CommencerTransaction();
            static Recordset liste = base.OpenRecordset("Liste");
            const std::string page(8000, 'x');
            for (int i = 0; i < 6000; ++i)  // more than the cache holds
                Ajouter(liste, "fichier", 1, page);
        });
    }
    ASSERT_TRUE(FichierExiste(chemin_ + "-journal"));
    ASSERT_GT(std::filesystem::file_size(chemin_), 1000000U);
    EXPECT_EQ(Compter("Catalogue"), 1);
    EXPECT_EQ(Compter("select * from Liste"), 0);
    EXPECT_FALSE(FichierExiste(chemin_ + "-journal"));
    EXPECT_EQ(Brut(chemin_, "pragma integrity_check"), std::vector<std::string>{"ok"});
}

TEST_F(BaseStore, FullDiskLosesTheWholeTransactionAndSaysSo)
{
    const int resultat = DansUnEnfant([this] {
        LimiterDisque(3 << 20);
        Base base = OpenDatabase(chemin_);
        if (!base.CommencerTransaction())
            return 1;
        Recordset liste = base.OpenRecordset("Liste");
        const std::string page(8000, 'x');
        int ecrites = 0;
        while (ecrites < 6000 && Ajouter(liste, "fichier", 1, page))
            ++ecrites;
        if (ecrites == 6000)
            return 2;
        if (Ajouter(liste, "apres", 2))
            return 3;
        return base.Valider() || base.Valider() ? 4 : 0;
    });
    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(Compter("Liste"), 0);
    EXPECT_EQ(Brut(chemin_, "pragma integrity_check"), std::vector<std::string>{"ok"});
}

TEST_F(BaseStore, FullDiskAtTheCommit)
{
    const int resultat = DansUnEnfant([this] {
        LimiterDisque(1 << 20);
        Base base = OpenDatabase(chemin_);
        base.CommencerTransaction();
        Recordset liste = base.OpenRecordset("Liste");
        const std::string page(8000, 'x');
        for (int i = 0; i < 500; ++i)
            Ajouter(liste, "fichier", 1, page);
        return base.Valider() ? 1 : 0;
    });
    EXPECT_EQ(resultat, 0);
    EXPECT_EQ(Compter("Liste"), 0);
}

TEST_F(BaseStore, StrangersSchemaDoesNotAct)
{
    Brut(chemin_,
         "create trigger piege after insert on Liste begin delete from Catalogue; end;"
         "insert into Catalogue(Label) values('x')");
    {
        Base base = OpenDatabase(chemin_);
        Recordset liste = base.OpenRecordset("Liste");
        EXPECT_GT(Ajouter(liste, "a"), 0);
    }
    EXPECT_EQ(Compter("Catalogue"), 1);
}

}  // namespace
