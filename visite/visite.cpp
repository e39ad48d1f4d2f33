// A visit of the program by keys and clicks: reads a folder into a new base, opens a directory and an archive, searches,
// and goes back from a result into the catalogue. Each step is checked and leaves a picture.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include <QAbstractButton>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeView>

#include "Conduite.h"
#include "browser/frmView.h"
#include "extraction/FrmSemiAuto.h"
#include "fenetres/BoitesDialogue.h"
#include "listings/frmImpression.h"
#include "platform/Chemins.h"
#include "search/frmRecherche.h"
#include "shell/Application.h"
#include "shell/Fenetres.h"
#include "shell/FrmMain.h"

namespace fs = std::filesystem;

namespace {

template <typename Classe>
Classe* Fenetre()
{
    for (QWidget* fenetre : QApplication::topLevelWidgets())
        if (auto* trouvee = qobject_cast<Classe*>(fenetre); trouvee && trouvee->isVisible())
            return trouvee;
    return nullptr;
}

// The row below `parent` whose text begins so; invalid when there is none.
QModelIndex Ligne(const QAbstractItemView& vue, const QString& debut, const QModelIndex& parent = {})
{
    const QAbstractItemModel& modele = *vue.model();
    for (int rang = 0; rang < modele.rowCount(parent); ++rang)
        if (const QModelIndex ligne = modele.index(rang, 0, parent); ligne.data().toString().startsWith(debut))
            return ligne;
    return {};
}

class Visite {
public:
    Visite(const fs::path& depot, const fs::path& archive, const fs::path& images)
        : depot_(QString::fromStdString(depot.string())),
          archive_(fs::relative(archive, depot)),
          main_(QString::fromStdString(images.string()))
    {
    }

    // The program's own loop runs below the visit, and ends as the program does.
    int Faire()
    {
        QTimer::singleShot(0, &fenetres_, [this] { Visiter(); });
        return Application::Mener(fenetres_);
    }

private:
    void Visiter()
    {
        main_.Etape("depart", [] {}, [] { return Fenetre<FrmMain>() != nullptr; });
        Cataloguer();
        Parcourir();
        Rechercher();
        for (const auto& [nom, action] : {std::pair{"label", "Repert2 1"},
                                          {"icone", "Repert2 2"},
                                          {"proprietes", "PropRepert"},
                                          {"description", "Fichier2 2"},
                                          {"prets", "Prets"},
                                          {"preferences", "Menu 4"}})
            Regarder(nom, action);
        Lister();
        main_.AuProchainDialogue("quitter", [](QWidget&) {
            Conduite::Presser(Qt::Key_Return);
            QTimer::singleShot(Conduite::Patience, [] { Conduite::Echouer("fin"); });
        });
        Conduite::Presser(Qt::Key_Q, Qt::ControlModifier);
    }

    void Cataloguer()
    {
        main_.Etape(
            "assistant", [] { Conduite::Presser(Qt::Key_Return); }, [] { return Fenetre<FrmSemiAuto>() != nullptr; });
        FrmSemiAuto& assistant = *Fenetre<FrmSemiAuto>();
        auto& lancer = Conduite::Enfant<QAbstractButton>(assistant, "OK");
        main_.Etape(
            "lecteur",
            [&] {
                main_.AuProchainDialogue("dossier", [this](QWidget& dialogue) {
                    Conduite::Enfant<QLineEdit>(dialogue, "fileNameEdit").setFocus();
                    Conduite::Taper(depot_);
                    Conduite::Presser(Qt::Key_Return);
                });
                Conduite::Cliquer(Conduite::Enfant<QAbstractButton>(assistant, "Dossier"));
            },
            [&] {
                return !assistant.EnConsultation() && lancer.isEnabled() &&
                       Ligne(Conduite::Enfant<QListWidget>(assistant, "Liste"), "CMakeLists.txt").isValid();
            });
        main_.Etape(
            "saisie",
            [&] {
                for (int indice = 0; indice < 4; ++indice)
                    if (auto& lire =
                            Conduite::Enfant<QCheckBox>(assistant, qPrintable(QString("Compression%1").arg(indice)));
                        lire.isVisible() && !lire.isChecked())
                        Conduite::Cliquer(lire);
                Conduite::Enfant<QLineEdit>(assistant, "Identifiant").setFocus();
                Conduite::Taper("VISITE 1");
                Conduite::Presser(Qt::Key_Tab);
                Conduite::Taper("Le dossier de Velourne");
            },
            [&] { return !Conduite::Enfant<QLineEdit>(assistant, "Label").text().isEmpty(); });
        main_.Etape(
            "lu",
            [this] {
                main_.AuProchainDialogue("resultat", [](QWidget&) { Conduite::Presser(Qt::Key_Return); });
                Conduite::Presser(Qt::Key_Return);
            },
            [&] { return !assistant.EnCours(); });
        main_.Etape(
            "catalogue", [&] { Conduite::Cliquer(Conduite::Enfant<QAbstractButton>(assistant, "Bouton")); },
            [] { return Fenetre<frmView>() && Media().isValid(); });
    }

    static QTreeView& Arbre() { return Conduite::Enfant<QTreeView>(*Fenetre<frmView>(), "tvTreeView"); }
    static QTreeView& Liste() { return Conduite::Enfant<QTreeView>(*Fenetre<frmView>(), "lvRapport"); }
    static QModelIndex Media() { return Ligne(Arbre(), "Le dossier", Arbre().model()->index(0, 0)); }

    // Opens the tree down the path, a click and an arrow key for each name.
    static void Descendre(const fs::path& chemin)
    {
        Conduite::Cliquer(Arbre(), Media());
        QPersistentModelIndex noeud = Media();
        for (const fs::path& nom : chemin) {
            Conduite::Presser(Qt::Key_Right);
            const QString texte = QString::fromStdString(nom.string());
            if (!Conduite::Attendre([&] { return Ligne(Arbre(), texte, noeud).isValid(); }))
                Conduite::Echouer(nom.c_str());
            noeud = Ligne(Arbre(), texte, noeud);
            Conduite::Cliquer(Arbre(), noeud);
        }
    }

    void Parcourir()
    {
        main_.Etape(
            "repertoire", [] { Descendre("src"); }, [] { return Ligne(Liste(), "browser").isValid(); });
        main_.Etape(
            "archive", [this] { Descendre(archive_); }, [] { return Ligne(Liste(), "architecture.md").isValid(); });
    }

    void Rechercher()
    {
        main_.Etape(
            "recherche", [] { Conduite::Presser(Qt::Key_F, Qt::ControlModifier); },
            [] { return Fenetre<frmRecherche>() != nullptr; });
        const frmRecherche& recherche = *Fenetre<frmRecherche>();
        auto& resultats = Conduite::Enfant<QTreeView>(recherche, "lvListView");
        main_.Etape(
            "resultats",
            [&] {
                Conduite::Enfant<QLineEdit>(recherche, "Saisie0").setFocus();
                Conduite::Taper("*frmview*");
                Conduite::Presser(Qt::Key_Return);
            },
            [&] { return Ligne(resultats, "frmView.cpp").isValid(); });
        main_.Etape(
            "retrouve", [&] { Conduite::Cliquer(resultats, Ligne(resultats, "frmView.cpp"), true); },
            [] { return Fenetre<frmView>() && Liste().currentIndex().data().toString() == "frmView.cpp"; });
    }

    // Has a look at a dialogue and leaves it.
    void Regarder(const char* nom, const char* action)
    {
        bool vu = false;
        main_.AuProchainDialogue(nom, [&vu](QWidget&) {
            Conduite::Presser(Qt::Key_Escape);
            vu = true;
        });
        Conduite::Choisir(*Fenetre<frmView>(), action);
        if (!Conduite::Attendre([&] { return vu && !QApplication::activeModalWidget(); }))
            Conduite::Echouer(nom);
    }

    void Lister()
    {
        main_.Etape(
            "listing", [] { Conduite::Choisir(*Fenetre<frmView>(), "Imprimer"); },
            [] { return Fenetre<frmImpression>() != nullptr; });
        main_.Etape(
            "retour", [] { Conduite::Presser(Qt::Key_Escape); }, [] { return Fenetre<frmView>() != nullptr; });
    }

    QString depot_;
    fs::path archive_;  // from the top of the folder
    BoitesDialogue dialogues_;
    Fenetres fenetres_{dialogues_};
    Conduite main_;
};

// The colours of a dark desktop.
QPalette Sombre()
{
    QPalette couleurs(QColor(49, 54, 59));
    couleurs.setColor(QPalette::Base, QColor(35, 38, 41));
    couleurs.setColor(QPalette::AlternateBase, QColor(49, 54, 59));
    couleurs.setColor(QPalette::Link, QColor(41, 150, 230));
    couleurs.setColor(QPalette::Highlight, QColor(61, 120, 180));
    couleurs.setColor(QPalette::ToolTipBase, QColor(49, 54, 59));
    couleurs.setColor(QPalette::ToolTipText, Qt::white);
    return couleurs;
}

int Executer(int argc, char** argv)
{
    const bool sombre = argc == 5 && argv[1] == std::string_view("--sombre");
    if (argc != 4 && !sombre) {
        std::fputs("Usage : velourne_visite [--sombre] DOSSIER ARCHIVE_DEDANS SORTIE\n", stderr);
        return 2;
    }
    char** arguments = argv + argc - 3;
    const fs::path dossier = fs::canonical(arguments[0]), archive = fs::canonical(arguments[1]),
                   sortie = fs::absolute(arguments[2]);
    for (const auto& [variable, sous] :
         {std::pair{"XDG_CONFIG_HOME", "config"}, {"XDG_DATA_HOME", "data"}, {"XDG_CACHE_HOME", "cache"}})
        setenv(variable, (sortie / sous).c_str(), 1);
    fs::create_directories(sortie / "programme");
    FixerDossierProgramme((sortie / "programme").string());

    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Application application(argc, argv);
    if (sombre)
        QApplication::setPalette(Sombre());
    return Visite(dossier, archive, sortie).Faire();
}

}  // namespace

int main(int argc, char** argv)
{
    Application::Finir(Executer(argc, argv));
}
