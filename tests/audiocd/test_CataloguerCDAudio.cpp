#include "audiocd/CataloguerCDAudio.h"

#include "LecteurFactice.h"
#include "catalogue/Descriptions.h"
#include "outils/ChoixTest.h"
#include "outils/Enfant.h"
#include "outils/ExtractionTest.h"
#include "outils/Octets.h"
#include "outils/ServeurHttp.h"
#include "platform/TypesSysteme.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

class CDAudioTest : public EnvironnementExtraction {
protected:
    CDAudioTest()
    {
        DisqueFactice& disque = machine_.Ajouter().disque;
        disque = DisqueFactice("150 14025 200000");
        const std::string nul(1, '\0');
        disque.cdTexte = ReponsePaquets({{0x80, 0, "Opus" + nul + "Un" + nul}, {0x80, 2, "Deux"}, {0x81, 0, "Duo"}});
        SaveSetting(SectionSettings, "BaseLocale", "0");
        SaveSetting(SectionFreedb, "Serveur", serveur_.Adresse());
    }

    FinExtraction Cataloguer(std::stop_token arret = {})
    {
        media_ = Inscrire("CD1", "Disque").numero;
        DemandeCDAudio demande;
        demande.base = BaseCourante();
        demande.media = media_;
        demande.lettre = 'd';
        return CataloguerCDAudio(demande, {machine_, choix_}, suivi_, std::move(arret));
    }
    std::string DescriptionRacine()
    {
        return Lignes("select * from Liste where Répertoire = '000000000'", {"Description"}).at(0);
    }
    std::string DescriptionPiste(int piste)
    {
        return Lignes("select * from Liste where attribut <> 'D' order by Num", {"Description"})
            .at(static_cast<size_t>(piste) - 1);
    }

    static constexpr const char* Duree = "Durée du l'album : 44:24\r\n";
    Reponse requete_ = Http("202 No match found\r\n"), lecture_;
    ServeurHttp serveur_{[this](const std::string& requete) {
        return requete.find("cmd=cddb+read") != requete.npos ? lecture_ : requete_;
    }};
    MachineFactice machine_;
    ChoixTest choix_;
    SuiviCDAudio suivi_;
    int64_t media_ = 0;
};

}  // namespace

TEST_F(CDAudioTest, AvecUnServeur)
{
    SaveSetting(SectionDescriptions, "CDText", "1");  // the server goes before it
    requete_ = Http("200 rock 0d0a6802 x\r\n");
    lecture_ = Http("210 x\r\nDTITLE=Trio / Album\r\nDYEAR=1999\r\nTTITLE0=Premi\xE8re\r\n.\r\n");
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);

    std::vector<std::string> lignes =
        Lignes("select * from Liste order by Num",
               {"NCatalogue", "Répertoire", "RepertoirePere", "Nom", "Alias", "Taille", "TypeF", "Heure", "attribut"});
    const std::string n = std::to_string(media_);
    const std::string type = NomTypeFichier("cda");
    EXPECT_EQ(lignes, (std::vector<std::string>{
                          n + "|000000000|000000001|D:|| | | |D",
                          n + "|000000001|0|Track01.cda|Piste N° 1| |" + type + "|03:05:00|r.........",
                          n + "|000000001|0|Track02.cda|Piste N° 2| |" + type + "|41:19|r.........",
                      }));
    EXPECT_EQ(Lignes("select * from Liste where Nom = 'Track01.cda'", {"DateF"}).at(0).substr(0, 2), "20");
    EXPECT_EQ(DescriptionRacine(),
              "Album  : Album\r\nArtiste  : Trio\r\nCatégorie: rock\r\nGenre  : rock\r\nDurée  : 44:24\r\n"
              "Année  : 1999\r\n01 : Première - 3:05\r\n02 : Track02 - 41:19\r\n");
    EXPECT_EQ(DescriptionPiste(1),
              "Album  : Album\r\nArtiste : Trio\r\nAnnée   : 1999\r\nGenre   : rock\r\n"
              "Titre    : Première\r\nDurée du morceau : 3:05\r\n" +
                  std::string(Duree));
    EXPECT_EQ(Lignes("select * from Catalogue", {"Flag", "Tree"})[0], "1|# " + n + "-000000001#D:");
    EXPECT_EQ(ListeExtensions(), "|cda");
    EXPECT_EQ(suivi_.Lire().pourcentage, "100 %");
    EXPECT_EQ(suivi_.Lire().ligne, "D:\\Track02.cda");
    EXPECT_EQ(suivi_.Lire().compteurs.fichiers, 2);
    EXPECT_EQ(suivi_.Lire().compteurs.descriptions, 3);
}

TEST_F(CDAudioTest, CDTextSansReponse)
{
    const std::string titres = "01 : Track01 - 3:05\r\n02 : Track02 - 41:19\r\n";
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);
    EXPECT_EQ(DescriptionRacine(), titres);
    EXPECT_EQ(DescriptionPiste(2),
              "Album  : \r\nArtiste : \r\nAnnée   : \r\nGenre   : \r\nTitre    : \r\n"
              "Durée du morceau : 41:19\r\n" +
                  std::string(Duree));

    SaveSetting(SectionDescriptions, "CDText", "1");
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);  // in its place
    EXPECT_EQ(DescriptionRacine(), "Album  : Opus\r\nArtiste  : Duo\r\n" + titres);
    EXPECT_EQ(DescriptionPiste(2),
              "Album  : Opus\r\nArtiste : Duo\r\nAnnée   : \r\nGenre   : \r\nTitre    : Deux\r\n"
              "Durée du morceau : 41:19\r\n" +
                  std::string(Duree));
    EXPECT_EQ(Compter("select * from Catalogue"), 1);

    // The choice window closed: the disc speaks for itself again.
    requete_ = Http("211 x\r\nrock 1 A\r\n.\r\n");
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);
    EXPECT_EQ(choix_.montrees.size(), 1U);
    EXPECT_EQ(DescriptionRacine().substr(0, 13), "Album  : Opus");

    // A read that fails leaves empty values.
    requete_ = Http("200 rock 1 A\r\n");
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);
    EXPECT_EQ(DescriptionRacine(),
              "Album  : \r\nArtiste  : \r\nCatégorie: rock\r\nGenre  : rock\r\nDurée  : 44:24\r\n"
              "Année  : \r\n" +
                  titres);
}

TEST_F(CDAudioTest, BaseLocaleSansDossierEtSansDisque)
{
    SaveSetting(SectionSettings, "BaseLocale", "1");
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);
    EXPECT_TRUE(serveur_.Requetes().empty());
    EXPECT_EQ(Compter("select * from Liste"), 3);

    machine_[0].present = false;
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);
    EXPECT_EQ(Lignes("select * from Liste", {"Nom", "Description"}), std::vector<std::string>{"D:|"});
    EXPECT_EQ(Compter("Select * from Catalogue where  Flag = true order by  Label asc"), 1);
}

TEST_F(CDAudioTest, ArretOuDisquePlein)
{
    requete_.muette = true;
    std::stop_source arret;
    const std::jthread ailleurs = serveur_.ArreterALaPremiere(arret);
    EXPECT_EQ(Cataloguer(arret.get_token()), FinExtraction::Abandonnee);
    EXPECT_EQ(Compter("select * from Catalogue") + Compter("select * from Liste"), 0);

    SaveSetting(SectionSettings, "BaseLocale", "1");
    EXPECT_TRUE(DansUnEnfant([&] {
        media_ = Inscrire("CD2", "Autre").numero;
        LimiterDisque(4096);  // not even the base's own pages can be written
        DemandeCDAudio demande;
        demande.media = media_;
        demande.lettre = 'd';
        return CataloguerCDAudio(demande, {machine_, choix_}, suivi_, {}) == FinExtraction::Echec;
    }));
    EXPECT_EQ(Compter("select * from Liste"), 0);
    EXPECT_EQ(Compter("Select * from Catalogue where  Flag = true order by  Label asc"), 0);
}

TEST_F(CDAudioTest, DescriptionApresCoup)
{
    ASSERT_EQ(Cataloguer(), FinExtraction::Complete);
    Base base = OpenDatabase(BaseCourante());
    EXPECT_TRUE(ModifierDescriptionFichier(base, media_, "l'été"));
    EXPECT_EQ(DescriptionRacine(), "l'été");
    EXPECT_FALSE(ModifierDescriptionFichier(base, media_ + 1, "x"));
}

TEST(DatePiste, JourDeLAnnee)
{
    EXPECT_EQ(DatePiste({2026, 11, 21}), "20263251121");
    EXPECT_EQ(DatePiste({2024, 12, 31}), "20243661231");
    EXPECT_EQ(DatePiste({2025, 1, 2}), "20252102");
}
