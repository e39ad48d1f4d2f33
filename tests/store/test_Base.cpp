#include "outils/Brut.h"
#include "outils/Enfant.h"
#include "outils/Environnement.h"
#include "platform/OperationsFichiers.h"
#include "store/Base.h"
#include "store/Transaction.h"

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

    // Adds so many rows of a disk page and more, or as many as will go in; their number.
    static int AjouterPages(Recordset& liste, int nombre)
    {
        const std::string page(8000, 'x');
        int ecrites = 0;
        while (ecrites < nombre && Ajouter(liste, "fichier", 1, page))
            ++ecrites;
        return ecrites;
    }

    // Why a base is not opened.
    static RefusBase Refus(const std::string& chemin)
    {
        RefusBase refus = RefusBase::Aucun;
        const bool ouverte = OpenDatabase(chemin, {}, &refus).Ouverte();
        EXPECT_EQ(ouverte, refus == RefusBase::Aucun);
        return refus;
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
    Ecrire(travail_ / "vide", "");
    Ecrire(travail_ / "tronquee", std::string_view(base).substr(0, base.size() / 2));
    Ecrire(travail_ / "entete", std::string_view(base).substr(0, 16));
    Ecrire(travail_ / "bruit", base.substr(0, 100) + std::string(base.size() - 100, '\x5a'));
    using enum RefusBase;
    for (const auto& [nom, refus] :
         {std::pair("autre", Etrangere), std::pair("wal", Etrangere), std::pair("demi", Etrangere),
          std::pair("vues", Etrangere), std::pair("vide", Etrangere), std::pair("tronquee", Illisible),
          std::pair("entete", Illisible), std::pair("bruit", Illisible)}) {
        const std::string chemin = (travail_ / nom).string(), avant = Contenu(chemin);
        EXPECT_EQ(Refus(chemin), refus) << nom;
        EXPECT_FALSE(CompactDatabase(chemin, (travail_ / "copie").string())) << nom;
        EXPECT_FALSE(BaseARendre(chemin)) << nom;
        EXPECT_EQ(Contenu(chemin), avant) << nom;
        for (const char* suite : {"-journal", "-wal", "-shm"})
            EXPECT_FALSE(FichierExiste(chemin + suite)) << nom << suite;
    }
    EXPECT_EQ(Refus(travail_.string()), Etrangere);
    EXPECT_EQ(Refus((travail_ / "absente").string()), Absente);
    EXPECT_FALSE(FichierExiste((travail_ / "absente").string()) || FichierExiste((travail_ / "copie").string()));
}

TEST_F(BaseStore, ReadOnlyBaseIsRefused)
{
    const std::string avant = Contenu(chemin_);
    Executer("chmod 755 .. . && chmod 444 essai.vlr");
    EXPECT_TRUE(SansPrivileges([this] { return Refus(chemin_) == RefusBase::LectureSeule; }));
    EXPECT_EQ(Contenu(chemin_), avant);
}

TEST_F(BaseStore, OneProcessAtATime)
{
    int tube[2];
    ASSERT_EQ(pipe(tube), 0);
    const pid_t autre = fork();
    if (autre == 0) {
        const Base retenue = OpenDatabase(chemin_);
        EXPECT_EQ(write(tube[1], "x", 1), 1);
        pause();
    }
    close(tube[1]);
    char octet;
    ASSERT_EQ(read(tube[0], &octet, 1), 1);
    close(tube[0]);
    const std::string avant = Contenu(chemin_);
    EXPECT_EQ(Refus(chemin_), RefusBase::Occupee);
    EXPECT_FALSE(CompactDatabase(chemin_, (travail_ / "copie").string()));
    EXPECT_EQ(Contenu(chemin_), avant);
    kill(autre, SIGKILL);
    waitpid(autre, nullptr, 0);
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
    EXPECT_EQ(liste.RecordCount(), 0) << "the record set that was left open lets go too";
    EXPECT_FALSE(liste.Update());
    EXPECT_TRUE(DansUnEnfant([this] { return OpenDatabase(chemin_).Ouverte(); }));
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
        EXPECT_EQ(base.OpenRecordset("select * from Liste where Nom = 'a.zip' order by Num desc").Entier("Num"),
                  numero);
        EXPECT_EQ(Ajouter(membres, "trois"), numero + 3);
        EXPECT_EQ(base.Valider(), transaction);
    }
    EXPECT_TRUE(base.Execute("delete * from Liste"));
    base.Close();
    base = OpenDatabase(chemin_);
    Recordset liste = base.OpenRecordset("Liste");
    EXPECT_EQ(Ajouter(liste, "neuf"), 9) << "numbers of deleted rows do not come back";
}

TEST_F(BaseStore, RowsAreWalkedEditedAndDeleted)
{
    Base base = OpenDatabase(chemin_);
    Recordset ajouts = base.OpenRecordset("Liste");
    EXPECT_TRUE(ajouts.Eof());
    for (const char* nom : {"c", "a", "b"})
        Ajouter(ajouts, nom);
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
    }
    EXPECT_EQ(noms, "abc");
    EXPECT_EQ(base.OpenRecordset("select * from Liste where Alias = 'c'").Entier("Num"), 1);
    EXPECT_EQ(base.OpenRecordset("Liste").RecordCount(), 2);
}

TEST_F(BaseStore, TextsAndBinariesKeepEveryByte)
{
    const std::string zeros("a\0b\0", 4), ecorche = "\xC3(\xFF\xE9", image("\0\1\x1A\x80\xFF\0", 6);
    Base base = OpenDatabase(chemin_);
    Recordset medias = base.OpenRecordset("Catalogue");
    medias.AddNew();
    medias.Poser("Label", zeros);
    medias.Poser("Identifiant", ecorche);
    medias.Poser("NSerie", std::string_view("00123"));
    medias.PoserOctets("Icone", image);
    ASSERT_TRUE(medias.Update());
    Recordset relu = base.OpenRecordset("select * from Catalogue where Label like 'A*' order by Identifiant, Label");
    EXPECT_EQ(relu.Texte("Label"), zeros);
    EXPECT_EQ(relu.Texte("Identifiant"), ecorche);
    EXPECT_EQ(relu.Texte("NSerie"), "00123");
    EXPECT_EQ(relu.Texte("Icone"), image);
    EXPECT_TRUE(relu.EstNul("NPret"));
}

TEST_F(BaseStore, ATransactionThatGoesAwayLeavesNothing)
{
    Base base = OpenDatabase(chemin_);
    Recordset liste = base.OpenRecordset("Liste");
    for (const bool valider : {false, true}) {
        Transaction transaction(base);
        Transaction dedans(base);
        EXPECT_TRUE(transaction.Ouverte() && !dedans.Ouverte());
        Ajouter(liste, "a");
        EXPECT_FALSE(dedans.Valider());
        EXPECT_EQ(valider && transaction.Valider(), valider);
        EXPECT_FALSE(valider && transaction.Valider());
    }
    EXPECT_EQ(base.OpenRecordset("select * from Liste").RecordCount(), 1);
}

TEST_F(BaseStore, KilledInMidTransaction)
{
    EXPECT_FALSE(DansUnEnfant([this] {
        Base base = OpenDatabase(chemin_);
        Recordset medias = base.OpenRecordset("Catalogue");
        medias.AddNew();
        medias.Update();
        base.CommencerTransaction();
        Recordset liste = base.OpenRecordset("Liste");
        AjouterPages(liste, 6000);  // more than the cache holds
        return Mourir();
    }));
    ASSERT_TRUE(FichierExiste(chemin_ + "-journal"));
    ASSERT_GT(std::filesystem::file_size(chemin_), 1000000U);
    EXPECT_EQ(Compter("Catalogue"), 1);
    EXPECT_EQ(Compter("select * from Liste"), 0);
    EXPECT_FALSE(FichierExiste(chemin_ + "-journal"));
    EXPECT_EQ(Brut(chemin_, "pragma integrity_check"), std::vector<std::string>{"ok"});
}

TEST_F(BaseStore, FullDiskLosesTheWholeTransactionAndSaysSo)
{
    for (const bool aLaFin : {false, true}) {  // the disk fills up in mid transaction or at its end
        EXPECT_TRUE(DansUnEnfant([&] {
            LimiterDisque(aLaFin ? 1 << 20 : 3 << 20);
            Base base = OpenDatabase(chemin_);
            EXPECT_TRUE(base.CommencerTransaction());
            Recordset liste = base.OpenRecordset("Liste");
            const int voulues = aLaFin ? 500 : 6000;
            const bool toutes = AjouterPages(liste, voulues) == voulues;
            return toutes == aLaFin && (toutes || !Ajouter(liste, "apres", 2)) && !base.Valider() && !base.Valider();
        }));
        EXPECT_EQ(Compter("Liste"), 0);
        EXPECT_EQ(Brut(chemin_, "pragma integrity_check"), std::vector<std::string>{"ok"});
    }
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
