#include "listings/Listing.h"

#include <cstring>

#include <QXmlStreamReader>

#include "browser/ChargerArbre.h"
#include "catalogue/Cles.h"
#include "commun/Texte.h"
#include "listings/EtatImpression.h"
#include "outils/Enfant.h"
#include "outils/LignesTest.h"
#include "outils/Octets.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"
#include "store/Transaction.h"

namespace {

constexpr ColonnesListing Toutes = {true, true, true, true, true, true};
constexpr FormatListing Formats[] = {FormatListing::Texte, FormatListing::HTML, FormatListing::XML};

LigneTest LigneFichier(const std::string& repertoire, const std::string& nom)
{
    return {repertoire, "0", nom, "r....a....", "1,500 Kb", "Fichier texte", "20031224", "14:05:33"};
}

class Listings : public EnvironnementBase {
protected:
    void Charger()
    {
        IconesExtensions icones;
        std::atomic<double> part;
        arbre_ = ChargerArbre(icones, {}, {}, part).arbre;
    }
    // Two media: one with an alias, folders, an archive that was expanded and one that was not; one without a top row.
    void Remplir()
    {
        AjouterMediaTest({"Été 2003",
                          "# 1-000000001#D:; 1-000000001# 1-000000002#Été 2003; 1-000000001# 1-000000003#Vide",
                          "Lecteur DVD/CD-ROM"});
        AjouterMediaTest({"Vrac", "# 2-000000001#E:; 2-000000001# 2-000000002#Dossier", "Disque Local"});
        Base base = OpenDatabase(BaseCourante());
        base.Execute(
            "update Catalogue set Identifiant = '42', Standard = 'CDFS', NSerie = '1A2B-3C4D', Total = ' 0 "
            "Bytes', Occupe = '640,25 Mo ', Libre = ' 12,50 Go' where Num = 1");
        base.Execute("update Catalogue set Identifiant = 'LOT-7' where Num = 2");
        base.Close();
        const std::string accents = Fois(10, "é") + Fois(24, "x");
        LigneTest renomme = LigneFichier("000000001", "vieux nom.txt");
        renomme.alias = "Nom à lui.txt";
        LigneTest sansAlias = LigneFichier("000000001", "b sans alias.txt");
        sansAlias.alias = "";
        const auto numeros = AjouterLignes(1, {{"000000000", "000000001", "D:", "D"},
                                               {"000000001", "000000002", "Été 2003", "D"},
                                               {"000000001", "000000003", "Vide", "D"},
                                               renomme,
                                               sansAlias,
                                               LigneFichier("000000001", "a&b <c>.txt"),
                                               LigneFichier("000000001", "déplié.zip"),
                                               LigneFichier("000000001", "replié.zip"),
                                               LigneFichier("000000002", accents + ".txt"),    // 38 characters
                                               LigneFichier("000000002", accents + "y.txt"),   // 39
                                               LigneFichier("000000002", accents + "yy.txt"),  // 40
                                               LigneFichier("000000002", accents + Fois(11, "y") + "fin.t")});  // 50
        const int64_t archive = numeros[6];
        const std::string cleArchive = CleArchive(archive, 1), dossier = CodeArchive(archive, 1, 2);
        AjouterLignes(1, {{cleArchive, dossier, "dedans", "Z"},
                          {cleArchive, "0", "lisez.moi", " ", "120", " ", "20011231", "23:59"},
                          {dossier, "0", "profond.txt", " ", "7", " ", " ", " "}});
        AjouterLignes(2, {{"000000001", "000000002", "Dossier", "D"}, LigneFichier("000000002", "seul.txt")});
        Charger();
        // As a click on the archive and on its folder leaves them: behind the nodes of the other media.
        const int32_t noeud = arbre_.Ajouter(arbre_.Chercher(" 1-000000001"), cleArchive, "déplié.zip");
        arbre_.Ajouter(noeud, CleRepertoire("1", dossier), "dedans");
    }
    ResultatListing Ecrire(FormatListing format, int64_t media = 0, const ColonnesListing& colonnes = Toutes,
                           const std::stop_token& arret = {})
    {
        std::atomic<double> part = 0;
        return EcrireListing(arbre_, {format, media, colonnes, chemin_}, arret, part);
    }
    // The bytes of a listing.
    std::string Octets(FormatListing format, int64_t media = 0, const ColonnesListing& colonnes = Toutes)
    {
        const ResultatListing resultat = Ecrire(format, media, colonnes);
        EXPECT_TRUE(resultat.ecrit) << resultat.erreur;
        const std::string octets = Contenu(chemin_);
        EXPECT_EQ(octets.size(), resultat.octets);
        return octets;
    }
    // The same as readable text, its line ends single ones.
    std::string Lire(FormatListing format, int64_t media = 0, const ColonnesListing& colonnes = Toutes)
    {
        return Lisible(Octets(format, media, colonnes));
    }
    static std::string Lisible(const std::string& octets)
    {
        std::string texte = AnsiEnTexte(octets);
        for (size_t place = 0; (place = texte.find("\r\n", place)) != texte.npos;)
            texte.erase(place, 1);
        EXPECT_EQ(texte.find('\r'), texte.npos);
        return texte;
    }
    // A media with one directory, in which these names are.
    void RemplirNoms(const std::vector<std::string>& noms)
    {
        AjouterMediaTest({"Noms", "# 1-000000001#D:"});
        std::vector<LigneTest> lignes = {{"000000000", "000000001", "D:", "D"}};
        for (const std::string& nom : noms)
            lignes.push_back(LigneFichier("000000001", nom));
        Base base = OpenDatabase(BaseCourante());
        Transaction ensemble(base);
        AjouterLignes(1, lignes);
        EXPECT_TRUE(ensemble.Valider());
        base.Close();
        Charger();
    }
    static size_t Compter(const std::string& texte, const std::string& morceau)
    {
        size_t nombre = 0;
        for (size_t place = 0; (place = texte.find(morceau, place)) != texte.npos; ++place)
            ++nombre;
        return nombre;
    }

    ArbreCatalogue arbre_;
    const std::string chemin_ = (travail_ / "sortie").string();
};

std::string Attendu(const char* nom)
{
    return Contenu(std::filesystem::path(DONNEES) / nom);
}

}  // namespace

TEST_F(Listings, WholeBaseInEachFormat)
{
    Remplir();
    EXPECT_EQ(Lire(FormatListing::Texte), Attendu("complet.txt"));
    EXPECT_EQ(Lire(FormatListing::XML), Attendu("complet.xml"));
    EXPECT_EQ(Lire(FormatListing::HTML, 2, {true, true, true, false, true, false}), Attendu("vrac.html"));
    const std::string page = Lire(FormatListing::HTML);
    EXPECT_EQ(Compter(page, "<br><br>\n"), 1U);
    EXPECT_EQ(Compter(page, "<table"), Compter(page, "</table>"));
    EXPECT_NE(page.find(">a&b <c>.txt</font></td>\n"), page.npos);
}

TEST_F(Listings, OneMediaIsAllThatIsListed)
{
    Remplir();
    const std::string complet = Attendu("complet.txt");
    const size_t second = complet.find("\n\nIdentifiant       : LOT-7");
    ASSERT_NE(second, complet.npos);
    EXPECT_EQ(Lire(FormatListing::Texte, 1) + "\n" + complet.substr(second + 1), complet);
    EXPECT_EQ(Lire(FormatListing::Texte, 2), complet.substr(second + 2));
    EXPECT_EQ(Lire(FormatListing::Texte, 3), "");
    const ResultatListing resultat = Ecrire(FormatListing::XML, 1);
    EXPECT_EQ(resultat.bilan.repertoires, 5);
    EXPECT_EQ(resultat.bilan.lignes, 11);
}

TEST_F(Listings, ColumnSwitchedOff)
{
    struct Cas {
        size_t debut, largeur;
        const char *element, *cellule;
        int pourCent;
    };
    const Cas cas[] = {{45, 10, "<Taille>1,500 Kb</Taille>\n", ">1,500 Kb<", 10},
                       {55, 31, "<TypeFichier>Fichier texte</TypeFichier>\n", ">Fichier texte<", 25},
                       {86, 11, "<DateFichier>24/12/2003</DateFichier>\n", ">24/12/2003<", 10},
                       {97, 11, "<HeureFichier>14:05:33</HeureFichier>\n", ">14:05:33<", 10},
                       {108, 11, "<Attribut>r....a....</Attribut>\n", ">r....a....<", 10}};
    RemplirNoms({"un.txt"});
    const std::string texte = Lire(FormatListing::Texte), xml = Lire(FormatListing::XML);
    const size_t ligne = texte.find("     un.txt");
    ASSERT_NE(ligne, texte.npos);
    EXPECT_EQ(texte.find('\n', ligne) - ligne, 119U);
    for (int i = 0; i < 5; ++i) {
        const Cas& un = cas[i];
        ColonnesListing colonnes = Toutes;
        colonnes[static_cast<size_t>(i) + 1] = false;
        EXPECT_EQ(Lire(FormatListing::Texte, 0, colonnes), Avec(texte, ligne + un.debut, std::string(un.largeur, ' ')));
        std::string sans = xml;
        EXPECT_EQ(Lire(FormatListing::XML, 0, colonnes), sans.erase(sans.find(un.element), strlen(un.element)));
        const std::string page = Lire(FormatListing::HTML, 0, colonnes);
        EXPECT_EQ(page.find(un.cellule), page.npos);
        EXPECT_EQ(Compter(page, "'> </font></td>\n"), 1U);
        EXPECT_EQ(Compter(page, "<td width='" + std::to_string(un.pourCent) + "%'>" + Fois(13, "&nbsp;") + "</td>\n"),
                  1U);
    }
    EXPECT_NE(Lire(FormatListing::Texte, 0, {}).find("     un.txt"), std::string::npos) << "the name always stands";
}

TEST_F(Listings, EmptyBase)
{
    Charger();
    EXPECT_EQ(Octets(FormatListing::Texte), "");
    EXPECT_EQ(Octets(FormatListing::XML),
              "<?xml version='1.0' encoding='iso-8859-1' ?>\r\n<body>\r\n</Identifiant>\r\n</body>\r\n");
    const std::string page = Lire(FormatListing::HTML);
    EXPECT_TRUE(page.ends_with("</head>\n<body>\n</body>\n")) << page;
}

// One byte for each character, whatever the page lacks; cuts come last.
TEST_F(Listings, CharactersAndBytes)
{
    struct Cas {
        const char *nom, *texte, *autres;
    };
    const Cas cas[] = {
        {"01 \xC3\xA9\xE2\x82\xAC\xC5\x93", "01 \xE9\x80\x9C", "01 \xE9\x80\x9C"},  // é, euro, œ
        {"02 e\xCC\x81t\xC3\xA9", "02 \xE9t\xE9", "02 \xE9t\xE9"},                  // an accent behind its letter
        {"03 \xE6\x97\xA5\xF0\x9F\x98\x80", "03 ??", "03 &#26085;&#128512;"},
        {"04 1\xE2\x80\xAF"
         "023",
         "04 1\xA0"
         "023",
         "04 1\xA0"
         "023"},  // narrow no-break blank
        {"05 x\ny", "05 x\ny", "05 x\ny"},
        {"06 l'\xC3\xA9t\xC3\xA9 100%", "06 l'\xE9t\xE9 100%", "06 l'\xE9t\xE9 100%"},
        {"07 \xFF\xC3", "07 \xFF\xC3", "07 \xFF\xC3"},  // no valid text at all
    };
    std::vector<std::string> noms;
    for (const Cas& un : cas)
        noms.emplace_back(un.nom);
    noms.push_back("08 " + Fois(36, "e\xCC\x81") + "fin");
    RemplirNoms(noms);
    const std::string texte = Octets(FormatListing::Texte), xml = Octets(FormatListing::XML),
                      page = Octets(FormatListing::HTML);
    for (const Cas& un : cas) {
        const std::string ligne = "\r\n     " + std::string(un.texte) + std::string(40 - strlen(un.texte), ' ');
        EXPECT_NE(texte.find(ligne + "1,500 Kb"), texte.npos) << un.nom;
        EXPECT_NE(xml.find("<Fichier>" + std::string(un.autres) + "\r\n"), xml.npos) << un.nom;
        EXPECT_NE(page.find(">" + std::string(un.autres) + "</font></td>\r\n"), page.npos) << un.nom;
    }
    EXPECT_NE(texte.find("     08 " + Fois(36, "\xE9") + " 1,500 Kb"), texte.npos);
}

TEST_F(Listings, IdentifiersDatesAndPaths)
{
    const std::pair<const char*, const char*> identifiants[] = {
        {"42", "0000042"}, {"12345678", "12345678"}, {"007", "0000007"}, {"-1", "-1"}, {"4a", "4a"}, {"", ""}};
    for (const auto& [identifiant, ecrit] : identifiants) {
        const int64_t media = AjouterMediaTest({"M", "#k#t"});
        OpenDatabase(BaseCourante())
            .Execute("update Catalogue set Identifiant = '" + std::string(identifiant) +
                     "' where Num = " + std::to_string(media));
        Charger();
        EXPECT_TRUE(Lire(FormatListing::Texte, media).starts_with("Identifiant       : " + std::string(ecrit) + "\n"));
    }
    // The label comes again below, a key leads nowhere, a date is none.
    const int64_t media = AjouterMediaTest({"D", "#; 7-000000001# 7-000000002#D; 7-000000002# 7-00'03#D\\D"});
    ASSERT_EQ(media, 7);
    LigneTest sansDate = LigneFichier("000000002", "sans date");
    sansDate.date = "2003";
    AjouterLignes(media, {{"000000000", "000000001", "E:", "D"}, sansDate});
    Charger();
    const std::string texte = Lire(FormatListing::Texte, media);
    for (const char* chemin : {"E:", "E:\\D", "E:\\D\\D\\D"})
        EXPECT_NE(texte.find("Répertoire  : " + std::string(chemin) + "\n--------------\n"), texte.npos) << chemin;
    EXPECT_NE(texte.find("Fichier texte" + std::string(18 + 11, ' ') + "14:05:33"), texte.npos);
}

// A media without a tree text: the nodes that loading gives it.
TEST_F(Listings, MediaWithoutTreeText)
{
    AjouterMediaTest({"Nu", ""});
    AjouterLignes(1, {{"000000000", "000000001", "D:", "D"},
                      {"000000001", "000000002", "un", "D"},
                      {"000000002", "000000003", "deux", "D"},
                      LigneFichier("000000002", "dedans.txt")});
    Charger();
    const std::string texte = Lire(FormatListing::Texte);
    EXPECT_NE(texte.find("Répertoire  : D:\\un\n--------------\n     dedans.txt"), texte.npos);
    EXPECT_EQ(texte.find("deux"), texte.npos);
}

TEST_F(Listings, OrdinaryNamesMakeXmlThatParses)
{
    Remplir();
    OpenDatabase(BaseCourante()).Execute("delete * from Liste where Nom = 'a&b <c>.txt'");
    const std::string octets = Octets(FormatListing::XML);
    QXmlStreamReader lecteur(QByteArray(octets.data(), static_cast<qsizetype>(octets.size())));
    int fichiers = 0;
    bool accents = false;
    while (!lecteur.atEnd()) {
        lecteur.readNext();
        fichiers += lecteur.isStartElement() && lecteur.name() == QStringLiteral("Fichier") ? 1 : 0;
        accents = accents || lecteur.text().contains(QStringLiteral("Nom à lui.txt"));
    }
    EXPECT_FALSE(lecteur.hasError()) << lecteur.errorString().toStdString();
    EXPECT_EQ(fichiers, 11);
    EXPECT_TRUE(accents);
}

TEST_F(Listings, FailureKeepsTheLastListing)
{
    std::vector<std::string> noms(3000);
    for (size_t i = 0; i < noms.size(); ++i)
        noms[i] = "nom " + std::to_string(i);
    RemplirNoms(noms);
    ::Ecrire(chemin_, "le précédent");
    const auto intact = [&] {
        const auto fichiers = std::distance(std::filesystem::directory_iterator(travail_), {});
        return Contenu(chemin_) == "le précédent" && fichiers == 2;  // the base is the other one
    };
    EXPECT_TRUE(DansUnEnfant([&] {
        LimiterDisque(100'000);
        const ResultatListing resultat = Ecrire(FormatListing::Texte);
        return !resultat.ecrit && resultat.erreur == strerror(EFBIG) && intact();
    }));
    std::stop_source arret;
    arret.request_stop();
    const ResultatListing arrete = Ecrire(FormatListing::HTML, 0, Toutes, arret.get_token());
    EXPECT_FALSE(arrete.ecrit);
    EXPECT_EQ(arrete.erreur, "");
    EXPECT_TRUE(intact());

    SaveSetting(SectionSettings, CleBaseCourante, chemin_);  // no base
    RelireBaseCourante();
    EXPECT_EQ(Ecrire(FormatListing::Texte).erreur, "Le catalogue n'a pas pu être lu !");
    EXPECT_TRUE(intact());

    std::atomic<double> part;
    const auto erreur = [&](const std::string& chemin) {
        return EcrireListing(arbre_, {FormatListing::Texte, 0, Toutes, chemin}, {}, part).erreur;
    };
    EXPECT_EQ(erreur((travail_ / "nulle part" / "fic.txt").string()), strerror(ENOENT));
    EXPECT_EQ(erreur(travail_.string()), strerror(EISDIR));
}

TEST_F(Listings, PreviewIsTheBeginningAndHarmless)
{
    std::vector<std::string> noms = {"00<img src='x'> &amp;"};
    for (int i = 0; i < 3000; ++i)
        noms.push_back("nom " + std::to_string(i));
    RemplirNoms(noms);
    for (const FormatListing format : Formats) {
        const DemandeListing demande = {format, 0, Toutes, {}};
        const ApercuListing debut = LireApercu(arbre_, demande, 100'000, {});
        EXPECT_FALSE(debut.entier);
        EXPECT_TRUE(debut.texte.ends_with("\r\n"));
        EXPECT_GT(debut.texte.size(), 98'000U);
        EXPECT_LE(debut.texte.size(), 100'500U);  // accents take two bytes here
        const ApercuListing tout = LireApercu(arbre_, demande, size_t{1} << 23, {});
        EXPECT_TRUE(tout.entier);
        EXPECT_TRUE(tout.texte.starts_with(debut.texte));
        if (format != FormatListing::HTML)
            EXPECT_EQ(tout.texte, AnsiEnTexte(Octets(format)));
        else
            EXPECT_NE(tout.texte.find(">00&lt;img src='x'&gt; &amp;amp;</font>"), std::string::npos);
    }
}

// A store that was never touched: the window shows all columns on, the writers take them as off.
TEST_F(Listings, ChoicesAreKept)
{
    AjouterMediaTest({"B", "#"});
    AjouterMediaTest({"A", "#"});
    EtatImpression neuf;
    EXPECT_TRUE(neuf.UneColonne());
    EXPECT_EQ(neuf.Demande().colonnes, ColonnesListing{});
    EXPECT_FALSE(neuf.OptFormat(0));
    EXPECT_EQ(neuf.Demande().chemin, (programme_ / "fic.txt").string());
    neuf.ChargerMedias();
    EXPECT_EQ(neuf.Medias(), (std::vector<std::string>{"Tous", "A", "B"}));
    EXPECT_EQ(neuf.Demande().media, 0);
    neuf.ChoisirMedia(1);
    neuf.ChoisirFormat(2);
    neuf.ChangerOpt(ListingDate, true);
    neuf.ChangerOpt(ListingTaille, false);

    EtatImpression suivant;
    suivant.ChargerMedias();
    EXPECT_EQ(suivant.Demande().media, 2);
    EXPECT_EQ(suivant.Demande().chemin, (programme_ / "fic.xml").string());
    EXPECT_EQ(suivant.Demande().colonnes, (ColonnesListing{false, false, false, true}));
    EXPECT_TRUE(suivant.OptFormat(2) && !suivant.OptFormat(0) && !suivant.Opt(ListingTaille));
    for (int i = 0; i < NombreColonnesListing; ++i)
        suivant.ChangerOpt(i, false);
    EXPECT_FALSE(suivant.UneColonne());
    SaveSetting(SectionSettings, CleLMedias, "12");
    suivant.ChargerMedias();
    EXPECT_EQ(suivant.RangMedia(), 0);
}
