#include <sys/resource.h>
#include <csignal>

#include <QTest>
#include <QtWidgets>

#include "browser/VersAilleurs.h"
#include "browser/frmView.h"
#include "catalogue/Cles.h"
#include "catalogue/Lignes.h"
#include "catalogue/Medias.h"
#include "fenetres/TextesQt.h"
#include "fenetres/TravailFenetre.h"
#include "outils/Fenetres.h"
#include "outils/LignesTest.h"
#include "platform/Chemins.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

namespace {

class TestEdition : public EnvironnementBase {
protected:
    TestEdition()
    {
        AjouterMediaTest({"Média", "#a; 1-000000001# 1-000000002#sous; 1-000000001# 1-000000003#l'été"});
        AjouterMediaTest({"Zéro", "#a"});
        lignes_ = AjouterLignes(
            1,
            {{"000000001", "000000002", "sous", "D", " ", " ", " ", " ", {}, "<photo>/absente.png</photo>un dossier"},
             {"000000001", "000000003", "l'été", "D"},
             {"000000001", "0", "b.txt", "a", "9 b", " ", " ", " ", {}, "un\r\ndeux"},
             {"000000001", "0", "a.zip", "a", "8 b"},
             {"000000002", "0", "c.txt", "a"}});
        AjouterLignes(2, {{"000000001", "0", "d.txt", "a"}});
        vue_ = std::make_unique<frmView>(dialogues_, choix_, travailleur_);
        vue_->show();
        Charger();
    }
    void Charger()
    {
        FixerArbreARecharger(true);
        EXPECT_TRUE(vue_->ChargerArbre());
        Calmer(travailleur_);
    }
    QTreeView* Arbre() { return Enfant<QTreeView>(*vue_, "tvTreeView"); }
    QTreeView* Rapport() { return Enfant<QTreeView>(*vue_, "lvRapport"); }
    QString Description() { return Enfant<QPlainTextEdit>(*vue_, "description")->toPlainText(); }
    QModelIndex Chercher(QTreeView* vue, const QString& texte)
    {
        const QModelIndex debut = vue->model()->index(0, 0);
        return vue->model()->match(debut, Qt::DisplayRole, texte, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    void Choisir(QTreeView* vue, const QString& texte)
    {
        const QModelIndex index = Chercher(vue, texte);
        ASSERT_TRUE(index.isValid()) << texte.toStdString();
        vue->setCurrentIndex(index);
        Calmer(travailleur_);
    }
    QStringList Noms()
    {
        QStringList noms;
        for (int i = 0; i < Rapport()->model()->rowCount(); ++i)
            noms << Rapport()->model()->index(i, 0).data().toString();
        noms.sort();
        return noms;
    }
    QAction* Action(const char* nom) { return Enfant<QAction>(*vue_, nom); }

    // Gives a command, and does with the dialog that it opens what `faire` says; false when none was opened.
    bool Commander(const char* nom, const std::function<void(QDialog&)>& faire = {})
    {
        bool ouvert = false;
        QTimer guetteur;
        guetteur.callOnTimeout([&] {
            auto* dialogue = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialogue)
                return;
            guetteur.stop();
            ouvert = true;
            if (faire)
                faire(*dialogue);
            if (dialogue->isVisible())
                dialogue->reject();
        });
        guetteur.start(5);
        EXPECT_TRUE(Action(nom)->isEnabled()) << nom;
        Action(nom)->trigger();
        Calmer(travailleur_);
        return ouvert;
    }
    bool Renommer(const char* commande, const QString& nom)
    {
        return Commander(commande, [&](QDialog& dialogue) {
            auto* saisie = Enfant<QLineEdit>(dialogue, "Saisie");
            saisie->selectAll();
            saisie->insert(nom);  // letters that no key of the test has
            QTest::keyClick(saisie, Qt::Key_Return);
        });
    }
    std::string Champ(const std::string& table, const char* champ, int64_t numero)
    {
        Base base = OpenDatabase(BaseCourante());
        Recordset ligne = base.OpenRecordset("select * from " + table + " where Num = " + std::to_string(numero));
        return ligne.Eof() ? "(absente)" : ligne.EstNul(champ) ? "(nul)" : std::string(ligne.Texte(champ));
    }

    class AucunLecteur : public ChoixLecteur {
        char Choisir(const MediaDemande&) override { return 0; }
    } choix_;
    std::vector<int64_t> lignes_;
    QObject contexte_;
    Travail travailleur_{ReveilFenetre(&contexte_, [this] { travailleur_.Livrer(); })};
    std::unique_ptr<frmView> vue_;
};

}  // namespace

TEST_F(TestEdition, RenommeEtLeGarde)
{
    Choisir(Arbre(), "Média");
    EXPECT_TRUE(Renommer("Repert2 1", "Mon \"média\""));
    EXPECT_EQ(Champ("Catalogue", "Label", 1), "Mon \"média\"");
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "Mon \"média\"");
    EXPECT_EQ(Enfant<QLabel>(*vue_, "titre")->text(), "           Mon \"média\"");

    EXPECT_TRUE(Renommer("Repert2 1", "  "));
    EXPECT_EQ(dialogues_.dites.back(), "Veuillez saisir un nom de média valable !");
    EXPECT_EQ(Champ("Catalogue", "Label", 1), "Mon \"média\"");

    const QString longue(5000, QChar(0xE9));
    Choisir(Rapport(), "sous");
    EXPECT_TRUE(Renommer("Fichier2 0", longue));
    EXPECT_EQ(Champ("Liste", "Alias", lignes_[0]), longue.toStdString());
    EXPECT_EQ(Champ("Liste", "Nom", lignes_[0]), "sous");
    EXPECT_TRUE(Chercher(Arbre(), longue).isValid());
    Choisir(Arbre(), longue);
    EXPECT_TRUE(Renommer("Repert3 0", "dessous"));
    Choisir(Arbre(), "Mon \"média\"");
    Choisir(Rapport(), "b.txt");
    EXPECT_TRUE(Renommer("Fichier2 0", "bé.txt"));
    EXPECT_TRUE(Noms().contains("bé.txt"));

    Charger();
    Choisir(Arbre(), "Mon \"média\"");
    EXPECT_TRUE(Chercher(Arbre(), "dessous").isValid());
    EXPECT_EQ(Noms(), QStringList({"a.zip", "bé.txt", "dessous", "l'été"}));
    EXPECT_EQ(Champ("Catalogue", "Tree", 1),
              "Root# 1-000000001#Mon \"média\"; 1-000000001# 1-000000002#dessous;"
              " 1-000000001# 1-000000003#l'été");
}

TEST_F(TestEdition, UneApostropheNeFaitRien)
{
    const std::string avant = Champ("Catalogue", "Tree", 1);
    Choisir(Arbre(), "l'été");
    for (const char* commande : {"Repert3 0", "Repert3 1", "Repert3 4"})
        EXPECT_FALSE(Commander(commande)) << commande;
    EXPECT_TRUE(Chercher(Arbre(), "l'été").isValid());
    // A name made so that it would find any row.
    Choisir(Arbre(), "sous");
    EXPECT_TRUE(Renommer("Repert3 0", "x' or 'a'='a"));
    EXPECT_FALSE(Commander("Repert3 1"));
    for (const int64_t ligne : lignes_)
        EXPECT_NE(Champ("Liste", "Nom", ligne), "(absente)");
}

TEST_F(TestEdition, SupprimeEtChoisitLeSuivant)
{
    dialogues_.oui = false;
    Choisir(Arbre(), "sous");
    Commander("Repert3 1");
    EXPECT_EQ(Champ("Liste", "Nom", lignes_[0]), "sous") << "the answer was no";
    dialogues_.oui = true;
    Commander("Repert3 1");
    EXPECT_EQ(Champ("Liste", "Nom", lignes_[0]), "(absente)");
    EXPECT_EQ(Champ("Liste", "Nom", lignes_[4]), "c.txt") << "what lay in it stays";
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "l'été");
    EXPECT_FALSE(Chercher(Arbre(), "sous").isValid());

    Choisir(Arbre(), "Média");
    Choisir(Rapport(), "a.zip");
    EXPECT_TRUE(Chercher(Arbre(), "a.zip").isValid());
    Commander("Fichier2 1");
    EXPECT_EQ(dialogues_.dites.back(), "Voulez-vous réellement retirer 'a.zip' du catalogue ?");
    EXPECT_EQ(Champ("Liste", "Nom", lignes_[3]), "(absente)");
    EXPECT_FALSE(Chercher(Arbre(), "a.zip").isValid());
    Choisir(Rapport(), "l'été");
    Commander("Fichier2 1");
    EXPECT_EQ(Champ("Liste", "Nom", lignes_[1]), "(absente)") << "found by its code";
    EXPECT_EQ(Noms(), QStringList({"b.txt"}));
    EXPECT_FALSE(Chercher(Arbre(), "l'été").isValid());

    Choisir(Arbre(), "Média");
    Commander("Repert2 3");
    EXPECT_EQ(dialogues_.dites.back(), "Voulez-vous réellement supprimer ce média : Média ?");
    EXPECT_EQ(Champ("Catalogue", "Label", 1), "(absente)");
    EXPECT_EQ(Champ("Liste", "Nom", lignes_[4]), "(absente)");
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "Zéro");
    EXPECT_EQ(Noms(), QStringList({"d.txt"}));
    Commander("Repert2 3");
    EXPECT_EQ(Arbre()->currentIndex().data().toString(), "Liste des catalogues") << "there is no next one";
    EXPECT_TRUE(Noms().isEmpty());
    EXPECT_FALSE(Action("Repert2 3")->isEnabled());
}

TEST_F(TestEdition, DecritSansRienPerdre)
{
    using namespace std::string_literals;
    const std::string etrange = "a\0b\u00ad\u00a0c\x1b\n\r\nfin"s;
    lignes_.push_back(AjouterLignes(1, {{"000000001", "0", "x", "a", " ", " ", " ", " ", {}, etrange}}).front());
    Choisir(Arbre(), "Média");
    Choisir(Rapport(), "x");
    const auto fermer = [](QDialog& d) { Enfant<QPushButton>(d, "OK 0")->click(); };
    EXPECT_TRUE(Commander("Fichier2 2", fermer));
    EXPECT_EQ(Champ("Liste", "Description", lignes_[5]), etrange) << "not touched";
    EXPECT_TRUE(Commander("Fichier2 2", [&](QDialog& d) {
        auto* saisie = Enfant<QPlainTextEdit>(d, "Saisie");
        saisie->moveCursor(QTextCursor::End);
        QTest::keyClicks(saisie, "!");
        fermer(d);
    }));
    EXPECT_EQ(Champ("Liste", "Description", lignes_[5]), "a\0b\u00ad\u00a0c\x1b\r\n\r\nfin!"s);
    EXPECT_EQ(Description(), "a\u2400b- c\u241b\n\nfin!");

    // A picture alone, then none, in the list cell and the panel too.
    const QString image = QString::fromStdString((travail_ / "i.png").string());
    QImage(40, 20, QImage::Format_RGB32).save(image);
    dialogues_.fichier = image.toStdString();
    Choisir(Rapport(), "a.zip");
    EXPECT_TRUE(Commander("Fichier2 2", [&](QDialog& d) {
        Enfant<QPushButton>(d, "OK 2")->click();
        fermer(d);
    }));
    auto* cadre = Enfant<QWidget>(*vue_, "FrPhoto");
    EXPECT_TRUE(Attendre([&] { return cadre->isVisible(); }));
    EXPECT_EQ(Champ("Liste", "Description", lignes_[3]), "<photo>" + image.toStdString() + "</photo>");
    const auto cellule = [&] { return Rapport()->currentIndex().siblingAtColumn(ColDescription).data().toString(); };
    EXPECT_EQ(cellule(), " oui");
    QTest::mouseClick(Enfant<QToolButton>(*vue_, "ModifDesc 1"), Qt::LeftButton);
    Calmer(travailleur_);
    EXPECT_EQ(dialogues_.dites.back(), "Voulez-vous réellement supprimer l'image ?");
    EXPECT_EQ(Champ("Liste", "Description", lignes_[3]), "");
    EXPECT_EQ(cellule(), "");
    EXPECT_FALSE(cadre->isVisible());
    EXPECT_TRUE(QFile::exists(image));

    Choisir(Arbre(), "sous");
    EXPECT_EQ(Description(), "un dossier");
    EXPECT_TRUE(Commander("Repert3 4", [&](QDialog& d) {
        Enfant<QPlainTextEdit>(d, "Saisie")->setPlainText("autre");
        Enfant<QPlainTextEdit>(d, "Saisie")->document()->setModified(true);
        fermer(d);
    }));
    EXPECT_EQ(Champ("Liste", "Description", lignes_[0]), "<photo>/absente.png</photo>autre") << "the link stays";
    EXPECT_FALSE(cadre->isVisible());
}

TEST_F(TestEdition, PrendUnTexteDePlusieursMegaoctets)
{
    std::string texte(1'000'000, 'l');
    for (int i = 0; i < 40'000; ++i)
        texte += "\r\nligne " + std::to_string(i);
    lignes_.push_back(AjouterLignes(1, {{"000000001", "0", "x", "a", " ", " ", " ", " ", {}, texte}}).front());
    Choisir(Arbre(), "Média");
    Choisir(Rapport(), "x");
    EXPECT_TRUE(Commander("Fichier2 2", [&](QDialog& d) {
        auto* saisie = Enfant<QPlainTextEdit>(d, "Saisie");
        EXPECT_LT(saisie->document()->characterCount(), 500'000) << "not all at once";
        EXPECT_TRUE(Attendre([&] { return !saisie->isReadOnly(); }));
        saisie->moveCursor(QTextCursor::End);
        QTest::keyClicks(saisie, "!");
        Enfant<QPushButton>(d, "OK 0")->click();
    }));
    EXPECT_EQ(Champ("Liste", "Description", lignes_.back()), texte + "!");
}

TEST_F(TestEdition, ChangeLIcone)
{
    QPixmap(16, 16).save(QString::fromStdString((travail_ / "i.ico").string()), "ICO");
    Ecrire(travail_ / "faux.ico", "rien");
    Choisir(Arbre(), "Média");
    for (const char* nom : {"faux.ico", "i.ico"}) {
        dialogues_.fichier = (travail_ / nom).string();
        EXPECT_TRUE(Commander("Repert2 2", [](QDialog& d) {
            Enfant<QPushButton>(d, "Recherche")->click();
            Enfant<QPushButton>(d, "OK 0")->click();
        }));
        EXPECT_EQ(Champ("Catalogue", "Icone", 1), nom[0] == 'f' ? "(nul)" : Contenu(travail_ / "i.ico"));
    }
}

TEST_F(TestEdition, MeneALaRechercheEtALAide)
{
    Choisir(Arbre(), "Zéro");
    int voulue = 0;
    QObject::connect(vue_.get(), &frmView::rechercheVoulue, [&] { ++voulue; });
    Commander("recherche2");
    EXPECT_EQ(voulue, 1);
    EXPECT_EQ(GetSetting(SectionSettings, CleLLabel, ""), "2");
    EXPECT_EQ(GetSetting(SectionLvListView, CleOnglet, ""), "2");

    const std::string dossier = travail_.string();
    EXPECT_EQ(CheminAide({dossier}), "");
    for (const char* nom : {"README.md", "guide/index.html", "VL.chm"}) {
        Ecrire(travail_ / nom, "x");
        EXPECT_EQ(CheminAide({"/rien", dossier}), dossier + "/" + nom);
    }
}

TEST_F(TestEdition, UneBaseQuOnNePeutPasFaireLaisseTout)
{
    const std::string avant = BaseCourante();
    dialogues_.fichier = (travail_ / "absent" / "x.vlr").string();
    for (const char* commande : {"Repert 0", "Repert 2"}) {
        Action(commande)->trigger();
        Calmer(travailleur_);
        EXPECT_EQ(BaseCourante(), avant);
    }
    EXPECT_TRUE(Chercher(Arbre(), "Média").isValid());
}

TEST_F(TestEdition, UneBaseQuiNeSEcritPasResteCommeElleEst)
{
    const auto statut = [&] { return Enfant<QLabel>(*vue_, "Commentaire")->text().toStdString(); };
    const std::string base = BaseCourante(), octets = Contenu(base);
    const struct {
        const char *noeud, *item, *commande;
    } cas[] = {{"Média", "", "Repert2 1"},       {"Média", "", "Repert2 2"},      {"Média", "", "Repert2 3"},
               {"sous", "", "Repert3 0"},        {"sous", "", "Repert3 1"},       {"sous", "", "Repert3 4"},
               {"a.zip", "", "Repert3 2"},       {"a.zip", "", "Repert3 3"},      {"Média", "b.txt", "Fichier2 0"},
               {"Média", "b.txt", "Fichier2 1"}, {"Média", "sous", "Fichier2 1"}, {"Média", "b.txt", "Fichier2 2"},
               {"Média", "sous", "Fichier2 0"}};
    QPixmap(16, 16).save(QString::fromStdString((travail_ / "i.ico").string()), "ICO");
    dialogues_.fichier = (travail_ / "i.ico").string();
    const auto changer = [&](QDialog& dialogue) {
        if (auto* nom = dialogue.findChild<QLineEdit*>("Saisie"))
            nom->insert("autre");
        if (auto* texte = dialogue.findChild<QPlainTextEdit*>("Saisie")) {
            texte->setPlainText("autre");
            texte->document()->setModified(true);
        }
        if (auto* icone = dialogue.findChild<QPushButton*>("Recherche"))
            icone->click();
        Enfant<QPushButton>(dialogue, "OK 0")->click();
    };
    Choisir(Arbre(), "Média");
    for (const auto& [noeud, item, commande] : cas) {
        SCOPED_TRACE(std::string(commande) + " " + noeud + " " + item);
        Choisir(Arbre(), noeud);
        if (*item)
            Choisir(Rapport(), item);
        const QStringList noms = Noms();
        Ecrire(base, "d'un autre programme");
        dialogues_.dites.clear();
        EXPECT_FALSE(Commander(commande, changer));
        EXPECT_TRUE(dialogues_.dites.empty()) << "nothing to ask about";
        EXPECT_NE(statut().find(base), std::string::npos) << statut();
        EXPECT_EQ(Contenu(base), "d'un autre programme");
        Ecrire(base, octets);
        Charger();
        Choisir(Arbre(), "Média");
        Choisir(Arbre(), noeud);
        if (*item)
            Choisir(Rapport(), item);

        // It opens and can't be written.
        rlimit avant{};
        getrlimit(RLIMIT_FSIZE, &avant);
        signal(SIGXFSZ, SIG_IGN);
        const rlimit aucune{0, avant.rlim_max};
        setrlimit(RLIMIT_FSIZE, &aucune);
        Commander(commande, changer);
        setrlimit(RLIMIT_FSIZE, &avant);
        EXPECT_EQ(statut(), "La base n'a pas pu être écrite : " + base);
        EXPECT_EQ(Contenu(base), octets);
        EXPECT_EQ(Noms(), noms);
        EXPECT_TRUE(Chercher(Arbre(), noeud).isValid());
    }
}

TEST(TextesQt, CeQuiNeSeTapePasRevient)
{
    using namespace std::string_literals;
    for (const std::string& texte :
         {"a\0b\x1a\x7f\tc"s, "\u2400 et \0"s, "\u2421\x7f\0"s, "\r\n\r\n"s, "é\r\nfin"s, ""s}) {
        const QString montre = EnLignesEditables(texte);
        EXPECT_FALSE(montre.contains(QChar(0)));
        EXPECT_EQ(RelireLignes(montre + "!", texte), texte.find("\u2400") == 0   ? "\u2400 et \u2400!"
                                                     : texte.find("\u2421") == 0 ? "\u2421\u2421\0!"s
                                                                                 : texte + "!");
    }
    EXPECT_EQ(EnLignesEditables("a\rb\r\nc\r\r\n\r"), "a\nb\nc\n\n\n");
}

TEST(Commandes, PermisesSelonLaSelection)
{
    // A letter for each kind of node (none, root, media, directory, archive), then of item.
    const struct {
        Commande commande;
        const char *noeuds, *items;
    } cas[] = {
        {Commande::CreerCatalogue, "0rmda", "0dfa"},
        {Commande::DupliquerCatalogue, "rmda", "0dfa"},
        {Commande::RetirerCatalogue, "mda", "0dfa"},
        {Commande::AjouterMedia, "0rmda", "0dfa"},
        {Commande::ModifierLabel, "mda", "0dfa"},
        {Commande::ModifierIcone, "mda", "0dfa"},
        {Commande::SupprimerMedia, "mda", "0dfa"},
        {Commande::RenommerRepertoire, "d", "0dfa"},
        {Commande::SupprimerRepertoire, "d", "0dfa"},
        {Commande::RenommerArchive, "a", "0dfa"},
        {Commande::SupprimerArchive, "a", "0dfa"},
        {Commande::DecrireNoeud, "mda", "0dfa"},
        {Commande::RechercherMedia, "mda", "0dfa"},
        {Commande::RenommerItem, "0rmda", "dfa"},
        {Commande::RetirerItem, "0rmda", "dfa"},
        {Commande::DecrireItem, "0rmda", "dfa"},
        {Commande::LancerFichier, "0rmda", "f"},
        {Commande::OuvrirDossier, "0rmda", "df"},
        {Commande::CopierNoeud, "mda", "0dfa"},
        {Commande::CopierItem, "0rmda", "dfa"},
        {Commande::Monter, "mda", "0dfa"},
        {Commande::CategorieMedia, "mda", "0dfa"},
        {Commande::Reculer, "", ""},
    };
    for (const auto& [commande, noeuds, items] : cas)
        for (int n = 0; n < 5; ++n)
            for (int i = 0; i < 4; ++i) {
                const ContexteCommandes contexte{static_cast<NoeudChoisi>(1 << n), static_cast<ItemChoisi>(1 << i)};
                EXPECT_EQ(CommandePermise(commande, contexte),
                          strchr(noeuds, "0rmda"[n]) != nullptr && strchr(items, "0dfa"[i]) != nullptr)
                    << static_cast<int>(commande) << ' ' << n << ' ' << i;
            }
    EXPECT_FALSE(CommandePermise(Commande::RenommerItem, {NoeudChoisi::Media, ItemChoisi::Fichier, true}));
    EXPECT_FALSE(CommandePermise(Commande::Actualiser, {NoeudChoisi::Aucun, ItemChoisi::Aucun, true}));
    EXPECT_TRUE(CommandePermise(Commande::Reculer, {NoeudChoisi::Racine, ItemChoisi::Aucun, false, true}));
}
