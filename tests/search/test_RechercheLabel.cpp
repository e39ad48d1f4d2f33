#include <set>

#include "catalogue/Cles.h"
#include "outils/LignesTest.h"
#include "search/Arborescence.h"
#include "search/ChoixRecherche.h"
#include "search/RechercheLabel.h"
#include "search/Requete.h"
#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace fs = std::filesystem;

namespace {

using Noms = std::multiset<std::string>;

class Recherche : public EnvironnementBase {
protected:
    // Each search runs through the engine alone and through the file of names: the results must be the same.
    void Chercher(const DemandeRecherche& demande, const FiltreRecherche& filtre = {})
    {
        liste_ = RechercheLabel(demande, filtre, icones_, {}, nombre_);
        const std::vector<std::string> parIndex = Cles();
        liste_ = RechercheLabel(TexteRecherche(demande), filtre, icones_, {}, nombre_);
        EXPECT_EQ(parIndex, Cles()) << demande.mot.substr(0, 100);
    }
    std::vector<std::string> Cles() const
    {
        std::vector<std::string> cles;
        for (int32_t rang = 0; rang < liste_.Nombre(); ++rang)
            cles.emplace_back(liste_[rang].cle);
        return cles;
    }
    Noms Trouver(const std::string& mot, const FiltreRecherche& filtre = {})
    {
        DemandeRecherche demande;
        demande.mot = mot;
        Chercher(demande, filtre);
        return Trouves();
    }
    Noms Trouves() const
    {
        Noms noms;
        for (int32_t rang = 0; rang < liste_.Nombre(); ++rang)
            noms.emplace(liste_[rang].cellules[ColNom]);
        return noms;
    }
    static LigneTest Fichier(const std::string& nom, const std::string& date = "20030615")
    {
        return {"000000001", "0", nom, "a", "1 b", "Fichier", date};
    }

    ListeFichiers liste_;
    IconesExtensions icones_;
    std::atomic<int32_t> nombre_;
};

}  // namespace

// The file of names follows every change of the base, in this program or out of it, and damage costs nothing but time.
TEST_F(Recherche, FichierDesNoms)
{
    AjouterMediaTest({"Média", ""});
    std::vector<LigneTest> lignes = {Fichier("ligne\ncoupée"), Fichier("Zoé")};
    for (int i = 0; i < 300; ++i)
        lignes.push_back(Fichier("fichier " + std::to_string(i) + std::string(2000, 'x')));
    AjouterLignes(1, lignes);
    EXPECT_EQ(Trouver("*fichier 29*").size(), 11U);
    EXPECT_EQ(Trouver("ligne*coupée").size(), 1U);
    EXPECT_EQ(Trouver("*ZOÉ*").size(), 1U);
    EXPECT_EQ(std::distance(begin(fs::directory_iterator(racine_ / "cache" / "velourne")), {}), 1);

    OpenDatabase(BaseCourante()).Execute("update Liste set Alias = 'autre' where Nom = 'Zoé'");
    EXPECT_EQ(Trouver("autre").size(), 1U);
    OpenDatabase(BaseCourante()).Execute("delete * from Liste where Nom = 'Zoé'");
    EXPECT_EQ(Trouver("*autre*").size(), 0U);
    AjouterLignes(1, {Fichier("autre")});
    EXPECT_EQ(Trouver("autre").size(), 1U);

    const fs::path index = fs::directory_iterator(racine_ / "cache" / "velourne")->path();
    const std::string entier = Contenu(index);
    for (const size_t taille : {entier.size() / 2, entier.size() - 1, size_t{60}, size_t{0}}) {
        Ecrire(index, entier.substr(0, taille));
        EXPECT_EQ(Trouver("autre").size(), 1U) << taille;
    }
}

TEST_F(Recherche, Mots)
{
    const std::vector<std::string> noms = {"a",   "abc", "cba",   "Été.TXT", "ete.txt", "100%", "a_c",
                                           "[x]", "#1",  "quoi?", "*étoile", "l'été",   "",     "\xF0\x9F\x98\x80"};
    AjouterMediaTest({"Média", ""});
    for (const std::string& nom : noms)
        AjouterLignes(1, {Fichier(nom)});
    LigneTest renomme = Fichier("ancien.doc");
    renomme.alias = "nouveau";
    AjouterLignes(1, {renomme});

    Noms tous(noms.begin(), noms.end());
    tous.insert("nouveau");
    Noms nonVides = tous;
    nonVides.erase("");
    const struct {
        std::string mot;
        Noms trouves;
    } cas[] = {
        {"", {""}},
        {"*", tous},
        {"?*", nonVides},
        {"a", {"a"}},
        {"A*", {"a", "abc", "a_c", "nouveau"}},
        {"*a", {"a", "cba"}},
        {"*b*", {"abc", "cba"}},
        {"a*c", {"abc", "a_c", "nouveau"}},  // the name on the media counts beside the alias
        {"a?c", {"abc", "a_c"}},
        {"a_c", {"a_c"}},
        {"?", {"a", "\xF0\x9F\x98\x80"}},
        {"100%", {"100%"}},
        {"%", {}},
        {"[x]", {"[x]"}},
        {"[a]", {}},
        {"#?", {"#1"}},
        {"#", {}},
        {"quoi?", {"quoi?"}},
        {"*étoile", {"*étoile"}},
        {"ÉTÉ.txt", {"Été.TXT"}},
        {"ete.txt", {"ete.txt"}},
        {"NOUVEAU", {"nouveau"}},
        {"ancien*", {"nouveau"}},
        {"l'été", {}},
        {"*'*", {}},
        {" a", {}},
        {std::string(10000, 'a'), {}},
        {std::string(10000, '*') + "ba", {"cba"}},
        {std::string("a\0*", 3), {}},
    };
    for (const auto& [mot, trouves] : cas)
        EXPECT_EQ(Trouver(mot), trouves) << mot.substr(0, 20);
}

TEST_F(Recherche, TexteDeChaqueChoix)
{
    const struct {
        int onglet;
        int64_t media;
        bool descriptions, noms;
        const char* texte;
    } cas[] = {
        {0, 0, true, true, "where   Description like 'm'  or (Nom like 'm' or  Alias like 'm')  order by Nom asc"},
        {0, 0, true, false, "where   Description like 'm'  order by Nom asc"},
        {0, 7, false, true, "where   Nom like 'm' or  Alias like 'm'  order by Nom asc"},
        {1, 0, true, true, "where  Description like 'm'  or (Nom like 'm' or  Alias like 'm')  order by Nom asc"},
        {2, 0, true, false, "where  Description like 'm'  order by Nom asc"},
        {2, 0, false, false, "where  Nom like 'm' or  Alias like 'm'  order by Nom asc"},
        {1, 7, true, true,
         "where  NCatalogue =  7 and ( Description like 'm'  or (Nom like 'm' or Alias like 'm'))  order by Nom asc"},
        {2, 7, true, false, "where  Description like 'm'  order by Nom asc"},
        {2, 7, false, true, "where  NCatalogue =  7 and (Nom like 'm' or Alias like 'm')  order by Nom asc"},
        {1, 7, false, false, "where  NCatalogue =  7 and (Nom like 'm' or Alias like 'm')  order by Nom asc"},
    };
    for (const auto& [onglet, media, descriptions, noms, texte] : cas) {
        DemandeRecherche demande;
        demande.onglet = onglet;
        demande.media = media;
        demande.descriptions = descriptions;
        demande.noms = noms;
        demande.mot = "m";
        EXPECT_EQ(TexteRecherche(demande), std::string("select * from Liste ") + texte);
    }
}

TEST_F(Recherche, MediaEtDescriptions)
{
    LigneTest decrit = Fichier("x");
    decrit.description = "un mot là";
    for (int media = 1; media <= 2; ++media) {
        AjouterMediaTest({"Média", ""});
        decrit.nom = "decrit" + std::to_string(media);
        AjouterLignes(media, {decrit, Fichier("mot" + std::to_string(media))});
    }
    DemandeRecherche demande;
    demande.onglet = RechercheLabelMedia;
    demande.media = 2;
    demande.mot = "*mot*";
    Chercher(demande);
    EXPECT_EQ(Trouves(), (Noms{"mot2"}));
    demande.descriptions = demande.noms = true;
    Chercher(demande);
    EXPECT_EQ(Trouves(), (Noms{"mot2", "decrit2"}));
    demande.noms = false;
    Chercher(demande);
    EXPECT_EQ(Trouves(), (Noms{"decrit1", "decrit2"})) << "descriptions alone are looked for on every media";
}

TEST_F(Recherche, Filtres)
{
    AjouterMediaTest({"Média", ""});
    AjouterLignes(1, {Fichier("a.JPG", "20030101"),
                      Fichier("b.jpg", "20030601"),
                      Fichier("c.jpg", "20031231"),
                      Fichier("d.tar.gz", "20030601"),
                      Fichier("jpg", "20030601"),
                      Fichier("e.jpg.", "20030601"),
                      {"000000001", "0", "sans type.jpg", "a", " ", " ", "20030601"},
                      {"A 4 1", "0", "membre.jpg", " ", " ", " ", "19990101"},
                      {"A 4 1", "A 4 2", "plis.jpg", "Z"},
                      {"000000001", "000000002", "dossier.jpg", "D", " ", " ", "20030601"}});
    const std::string tout = "*";
    const Noms types = {"a.JPG", "b.jpg", "c.jpg", "d.tar.gz", "jpg", "e.jpg.", "dossier.jpg"};
    Noms tous = types;
    tous.insert({"sans type.jpg", "membre.jpg", "plis.jpg"});
    const struct {
        FiltreRecherche filtre;
        Noms trouves;
    } avec[] = {
        {{FiltreAucun, "", "", ""}, tous},
        {{FiltreExtension, "JPG", "", ""}, {"a.JPG", "b.jpg", "c.jpg", "sans type.jpg", "membre.jpg"}},
        {{FiltreDates, "", "19990101", "20030101"}, {"a.JPG", "membre.jpg"}},
        {{FiltreExtensionEtDates, "jpg", "20030601", "20030601"}, {"b.jpg", "sans type.jpg"}},
    };
    for (const auto& [filtre, trouves] : avec)
        EXPECT_EQ(Trouver(tout, filtre), trouves) << filtre.mode;
    struct {
        FiltreRecherche filtre;
        Noms trouves;
    } cas[] = {
        {{FiltreAucun, "", "", ""}, types},
        {{FiltreExtension, " jpg ", "", ""}, {"a.JPG", "b.jpg", "c.jpg"}},
        {{FiltreExtension, "gz", "", ""}, {"d.tar.gz"}},
        {{FiltreDates, "", "20030101", "20030601"}, {"a.JPG", "b.jpg", "d.tar.gz", "jpg", "e.jpg."}},
        {{FiltreDates, "", "20030102", "20031230"}, {"b.jpg", "d.tar.gz", "jpg", "e.jpg."}},
        {{FiltreDates, "", "20031231", "20030101"}, {}},
        {{FiltreExtensionEtDates, "jpg", "20030601", "20031231"}, {"b.jpg", "c.jpg"}},
    };
    for (auto& [filtre, trouves] : cas) {
        filtre.sansType = false;
        EXPECT_EQ(Trouver(tout, filtre), trouves) << filtre.mode << filtre.extension << filtre.debut;
    }
    EXPECT_EQ(ChoisirMode(RechercheAvancee, true, true), FiltreExtensionEtDates);
    EXPECT_EQ(ChoisirMode(RechercheIdentifiant, true, true), FiltreAucun);
}

TEST_F(Recherche, ClesEtCellules)
{
    AjouterMediaTest({"Média", ""});
    LigneTest fichier = {"000000002", "0", "photo.jpg", "a", "10 b", "Image", "20030615", "14:05:33", {}, "vue"};
    AjouterLignes(1, {{"000000001", "000000002", "p dossier", "D", " ", " ", "20030615", "1:00:00", "p renommé"},
                      fichier,
                      {"A 2 1", "0", "p membre", " ", "5 b", "Fichier", "15/6/03"},
                      {"A 2 1", "A 2 2", "p plis", "Z", " ", "Pli"},
                      {"A 2 2", "0", "pq membre", " ", "6 b"},
                      {"A 2 2", "A 2 3", "pq plis", "Z"},
                      {"000000001", "0", "pq sans", "a", "7 b", ""}});
    Trouver("p*");
    ASSERT_EQ(liste_.Nombre(), 7);
    const auto cellules = [this](int32_t rang) {
        std::string texte(liste_[rang].cle);
        for (const std::string_view cellule : liste_[rang].cellules)
            texte.append("|").append(cellule);
        return texte;
    };
    EXPECT_EQ(cellules(0), " 1-000000002# 1|p renommé||||||");
    EXPECT_EQ(cellules(1), " 1-A 2 1# 3|p membre|5 b|Fichier|| | |");
    EXPECT_EQ(cellules(2), " 1-A 2 1# 4|p plis| |Pli|| |D|");
    EXPECT_EQ(cellules(3), " 1-000000002# 2|photo.jpg|10 b|Image|15/06/2003|14:05:33|a| oui");
    EXPECT_EQ(cellules(4), " 1-A 2 2# 5|pq membre|6 b|Fichier Compressé|| | |");
    EXPECT_EQ(cellules(5), " 1-A 2 2# 6|pq plis| |Répertoire|| |D|");
    EXPECT_EQ(cellules(6), " 1-000000001# 7|pq sans|7 b||| |a|");
    for (int32_t rang = 0; rang < liste_.Nombre(); ++rang)
        EXPECT_EQ(liste_[rang].EstRepertoire(), rang == 0) << "a folder of an archive is reached as its member";

    const struct {
        const char *cle, *noeud, *item, *catalogue, *ligne;
    } cas[] = {
        {" 1-000000002# 2", " 1-000000002", " 1- 2", "1", "2"},
        {" 12-A 345 12# 346", "A 345 12", " 12- 346", "12", "346"},
        {" 12-A 345 13# 347", " 12-A 345 13", " 12- 347", "12", "347"},
        {"Root", "", "", "", ""},
        {"#-", "", "", "", ""},
        {"", "", "", "", ""},
    };
    for (const auto& [cle, noeud, item, catalogue, ligne] : cas) {
        const CleResultat resultat = AnalyserCleResultat(cle);
        EXPECT_EQ(resultat.noeud, noeud) << cle;
        EXPECT_EQ(resultat.item, item) << cle;
        EXPECT_EQ(resultat.catalogue, catalogue) << cle;
        EXPECT_EQ(resultat.ligne, ligne) << cle;
    }
}

TEST_F(Recherche, ChercheVersLeHaut)
{
    // "b" has lost its row, but the media's tree still tells of it; "anneau" holds itself.
    AjouterMediaTest({"Média", "#D:; 1-000000001# 1-000000002#a; 1-000000002# 1-000000003#b"});
    AjouterLignes(1, {{"000000000", "000000001", "D:", "D"},
                      {"000000001", "000000002", "a", "D", " ", " ", " ", " ", "alias"},
                      {"000000003", "000000004", "c", "D"},
                      {"000000004", "0", "perdu.txt", "a", "1 b", "Texte"},
                      {"000000009", "000000009", "anneau", "D"},
                      {"000000009", "0", "coince.txt", "a", "1 b", "Texte"},
                      {"000000003", "0", "ancien.zip", "a", "1 b", "Zip", " ", " ", "nouveau.zip"},
                      {"A 7 1", "0", "membre.txt", " ", "1 b"},
                      {"A 7 1", "A 7 2", "plis", "Z"},
                      {"A 7 2", "A 7 3", "creux", "Z"},
                      {"A 7 3", "0", "fond.txt", " ", "1 b"},
                      {"A 77 1", "0", "orphelin.txt", " ", "1 b"}});
    // Row 7 is of the first media.
    AjouterMediaTest({"Autre", ""});
    AjouterLignes(2, {{"A 7 2", "0", "etranger.txt", " ", "1 b"}});
    const struct {
        const char *mot, *chemin, *noeud, *item, *dossier;
    } cas[] = {
        {"perdu.txt", "Média\\a\\b\\c", "c", " 1- 4", "\\a\\b\\c"},
        {"c", "Média\\a\\b\\c", "c", "", "\\a\\b"},
        {"a", "Média\\a", "a", "", "\\"},
        {"D:", "Média", "Média", "", "\\"},
        {"coince.txt", "Média\\anneau", "", " 1- 6", "\\anneau"},
        {"membre.txt", "Média\\a\\b\\nouveau.zip", "nouveau.zip", " 1- 8", "\\a\\b\\nouveau.zip"},
        {"plis", "Média\\a\\b\\nouveau.zip", "nouveau.zip", " 1-A 7 2", "\\a\\b\\nouveau.zip"},
        {"creux", "Média\\a\\b\\nouveau.zip\\plis", "plis", " 1-A 7 3", "\\a\\b\\nouveau.zip\\plis"},
        {"fond.txt", "Média\\a\\b\\nouveau.zip\\plis\\creux", "creux", " 1- 11", "\\a\\b\\nouveau.zip\\plis\\creux"},
        {"orphelin.txt", "Média", "", " 1- 12", "\\"},
        {"etranger.txt", "Autre", "", " 2- 13", "\\"},
    };
    for (const auto& [mot, chemin, noeud, item, dossier] : cas) {
        ArbreCatalogue arbre;
        const int32_t racine = arbre.Ajouter(ArbreCatalogue::Aucun, "Root", "");
        for (const char* media : {"Média", "Autre"})
            arbre.Ajouter(racine, CleMedia(arbre[racine].enfants + 1), media);
        Trouver(mot);
        ASSERT_EQ(liste_.Nombre(), 1) << mot;
        EXPECT_EQ(Generer_Arborescence_Lite(liste_[0].cle), chemin);
        const int32_t trouve = Generer_Arborescence(arbre, liste_[0].cle);
        EXPECT_EQ(trouve == ArbreCatalogue::Aucun ? "" : arbre[trouve].texte, noeud) << mot;
        EXPECT_EQ(liste_[0].EstRepertoire() ? "" : CleItemResultat(liste_[0].cle), item) << mot;
    }

    // The same for all at once, whatever the order on the screen.
    Trouver("*");
    liste_.Ordonner(liste_.Trier(ColNom, true));
    const LieuxResultats lieux = LireLieux(liste_);
    for (const auto& [mot, chemin, noeud, item, dossier] : cas)
        for (int32_t rang = 0; rang < liste_.Nombre(); ++rang)
            if (liste_[rang].cellules[ColNom] == mot) {
                const Lieu& lieu = lieux[liste_.Indice(rang)];
                EXPECT_EQ(lieu.media, std::string(chemin).substr(0, lieu.media.size())) << mot;
                EXPECT_EQ(lieu.dossier, dossier) << mot;
            }
}

TEST_F(Recherche, DitPourquoiRien)
{
    const std::pair<const char*, const char*> cas[] = {
        {"", "saisir *"}, {"l'eau*", "apostrophe"}, {"eau", "*eau*"}, {"*eau", ""}, {"e?u", ""}};
    for (const auto& [mot, attendu] : cas) {
        DemandeRecherche demande;
        demande.mot = mot;
        const std::string texte = ExpliquerRien(demande);
        EXPECT_NE(texte.find(attendu), std::string::npos) << mot;
        EXPECT_EQ(texte.empty(), *attendu == 0) << mot;
    }
    DemandeRecherche tout;
    tout.mot = "*";
    EXPECT_EQ(ExpliquerRien(tout, {FiltreDates, "", "20030101", "20030101"}), "");
    EXPECT_NE(ExpliquerRien(tout, {FiltreDates, "", "20030102", "20030101"}), "");
}

TEST_F(Recherche, DescriptionParNomOuAlias)
{
    AjouterMediaTest({"Média", ""});
    LigneTest fichier = Fichier("nom");
    fichier.alias = "alias";
    fichier.description = "<photo>C:\\p.jpg</photo>texte";
    AjouterLignes(1, {fichier});
    ItemListe resultat;
    resultat.cle = " 1-000000001# 1";
    for (const auto& [montre, texte] :
         {std::pair{"alias", "texte"}, {"nom", "texte"}, {"autre", ""}, {"l'autre", ""}, {"", ""}}) {
        resultat.cellules[ColNom] = montre;
        EXPECT_EQ(AfficherDescriptionInfobulle(resultat), texte) << montre;
    }
}

TEST_F(Recherche, SArreteDansLeMoteur)
{
    AjouterMediaTest({"Média", ""});
    Base base = OpenDatabase(BaseCourante());
    base.CommencerTransaction();
    AjouterLignes(1, std::vector<LigneTest>(20000, Fichier("rien")));
    base.Valider();
    base.Close();
    const std::string requete = "select * from Liste where Nom like '*n' order by Nom asc";
    std::stop_source arret;
    const auto compter = [&] { return RechercheLabel(requete, {}, icones_, arret.get_token(), nombre_).Nombre(); };
    EXPECT_EQ(compter(), 20000);
    EXPECT_EQ(nombre_, 20000);
    nombre_ = 0;
    arret.request_stop();
    EXPECT_EQ(compter(), 0);
    EXPECT_EQ(nombre_, 0) << "given up before the first row";
}

TEST_F(Recherche, ListesDesChoix)
{
    for (const char* extension : {"zip", "été", "eps", "A", " "})
        AjouterExtension(extension);
    EXPECT_EQ(ChargerExtension(), (std::vector<std::string>{"Tous ", "A", "eps", "été", "zip"}));

    for (const char* label : {"zèbre", "âne", "Ours"})
        AjouterMediaTest({label, ""});
    EXPECT_EQ(ChargerLabel().textes, (std::vector<std::string>{"Tous ", "âne", "Ours", "zèbre"}));
    const ChoixMedias choix = ChargerIdentifiant();
    EXPECT_EQ(choix.textes, (std::vector<std::string>{"Tous ", "ID2", "ID3", "ID1"}));
    const struct {
        int rang;
        int64_t numero;
    } cas[] = {{-1, 0}, {0, 0}, {1, 2}, {3, 1}, {4, 0}};
    for (const auto& [rang, numero] : cas)
        EXPECT_EQ(choix.Numero(rang), numero) << rang;
}

TEST_F(Recherche, Historique)
{
    for (const char* mot : {"un", "*deux*", "un", "", " un", "UN"})
        NoterSaisie(mot);
    EXPECT_EQ(LireSaisies(), (std::vector<std::string>{"un", "*deux*", " un", "UN"}));
    EXPECT_EQ(GetSetting(SectionSettings, "CptSaisie", ""), "4");
    EXPECT_EQ(GetSetting(SectionSettings, "Saisie 2", ""), "*deux*");
    SaveSetting(SectionSettings, "CptSaisie", "-5");
    EXPECT_TRUE(LireSaisies().empty());
}
