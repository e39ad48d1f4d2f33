// Measures how long the windows keep the user waiting: the longest time between two turns of the event loop, in
// milliseconds, while the real windows work offscreen on a base. Results are lines "key: value".

#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include "browser/FrmDescription.h"
#include "Fenetre.h"
#include "browser/frmView.h"
#include "platform/Chemins.h"
#include "search/frmRecherche.h"
#include "shell/Fenetres.h"
#include "shell/FrmMain.h"
#include "store/Reglages.h"

namespace {

class Muet : public Dialogues {
public:
    void Informer(const std::string&) override {}
    bool Demander(const std::string&, const std::string&) override { return false; }
    std::string ChoisirFichier(const DemandeFichier&) override { return {}; }
    std::string ChoisirDossier(const std::string&) override { return {}; }
};

// What this thread has reckoned, whatever else the machine does.
double MillisecondesDeCalcul()
{
    timespec temps{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &temps);
    return static_cast<double>(temps.tv_sec) * 1e3 + static_cast<double>(temps.tv_nsec) / 1e6;
}

// Turns the loop until nothing goes on any more, and prints the longest turn.
void Mesurer(const char* etape, const std::function<bool()>& enCours, const std::function<void()>& agir)
{
    using Horloge = std::chrono::steady_clock;
    const auto debut = Horloge::now();
    double pire = 0, pireCalcul = 0;
    const auto tourner = [&](const std::function<void()>& tour) {
        const auto avant = Horloge::now();
        const double calcule = MillisecondesDeCalcul();
        tour();
        pireCalcul = std::max(pireCalcul, MillisecondesDeCalcul() - calcule);
        pire = std::max(pire, std::chrono::duration<double, std::milli>(Horloge::now() - avant).count());
    };
    tourner(agir);
    for (int calme = 0; calme < 20; calme = enCours() ? 0 : calme + 1)
        tourner([] { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents); });
    std::printf("%s.ecart_max_ms: %.0f\n%s.calcul_max_ms: %.0f\n%s.secondes: %.2f\n", etape, pire, etape, pireCalcul,
                etape, std::chrono::duration<double>(Horloge::now() - debut).count());
}

void Mesurer(const char* etape, const Travail& travail, const std::function<void()>& agir)
{
    Mesurer(
        etape, [&travail] { return travail.EnCours(); }, agir);
}

void ParcourirTout(const std::string& base)
{
    SaveSetting(SectionSettings, CleBaseCourante, base);
    Muet dialogues;
    Fenetres fenetres(dialogues);
    fenetres.Demarrer();
    Travail& travail = fenetres.Ouvrage();
    QTimer battement;  // the loop turns at least so often
    battement.start(2);

    Mesurer("arbre", travail, [] { Fenetre<FrmMain>()->findChild<QToolButton*>("Visualiser")->click(); });
    auto* vue = Fenetre<frmView>();
    auto* arbre = vue->findChild<QTreeView*>("tvTreeView");
    Mesurer("deplier", travail, [&] { arbre->expand(arbre->currentIndex()); });
    Mesurer("media", travail, [&] { emit arbre->clicked(arbre->currentIndex()); });
    const auto* liste = vue->findChild<QTreeView*>("lvRapport")->model();
    for (int rang = 0; rang < std::min(liste->rowCount(), 3); ++rang)
        Mesurer("decrire", travail,
                [&] { vue->findChild<QTreeView*>("lvRapport")->setCurrentIndex(liste->index(rang, 0)); });
    Mesurer("grandes_icones", travail, [&] {
        for (QAction* action : vue->findChildren<QAction*>())
            if (action->text() == "&Mosaique")
                action->trigger();
    });
    Mesurer("trier_liste", travail, [&] { emit vue->findChild<QTreeView*>("lvRapport")->header()->sectionClicked(0); });
    Mesurer("fenetre_recherche", travail, [&] { emit vue->rechercheVoulue(); });
    auto* recherche = Fenetre<frmRecherche>();
    recherche->findChild<QLineEdit*>("Saisie0")->setText("*");
    auto* ok = recherche->findChild<QPushButton*>("OK0");
    auto* resultats = recherche->findChild<QTreeView*>("lvListView");
    Mesurer("chercher_tout", travail, [&] { ok->click(); });
    std::printf("chercher_tout.resultats: %d\n", resultats->model()->rowCount());
    Mesurer("trier_resultats", travail, [&] { emit resultats->header()->sectionClicked(1); });
    Mesurer("bas_de_liste", travail,
            [&] { resultats->setCurrentIndex(resultats->model()->index(resultats->model()->rowCount() - 1, 0)); });
    Mesurer("vider", travail, [&] { recherche->close(); });
}

// Descriptions of several megabytes in the editor: from opening to the whole text, a key pressed in it, and OK.
void EcrireLongsTextes()
{
    Muet dialogues;
    QTimer battement;
    battement.start(2);
    constexpr int taille = 5'000'000;
    const std::pair<const char*, int> textes[] = {
        {"lignes_courtes", 10}, {"lignes_longues", 100'000}, {"une_ligne", taille}};
    for (const auto& [nom, ligne] : textes) {
        std::string texte;
        while (texte.size() < taille)
            texte += std::string(static_cast<size_t>(ligne), 'l') + "\r\n";
        texte[100] = '\0';
        std::unique_ptr<FrmDescription> longue;
        QPlainTextEdit* saisie = nullptr;
        const auto etape = [nom = nom](const char* suite) { return std::string(nom) + suite; };
        const auto jamais = [] { return false; };
        Mesurer(
            etape(".ouvrir").c_str(), [&] { return saisie->isReadOnly(); },
            [&] {
                longue = std::make_unique<FrmDescription>(
                    dialogues, "nom", Description{texte, ""}, [](const Description&) { return true; }, nullptr);
                saisie = longue->findChild<QPlainTextEdit*>("Saisie");
                longue->show();
            });
        Mesurer(etape(".fin").c_str(), jamais, [&] { saisie->moveCursor(QTextCursor::End); });
        Mesurer(etape(".frappe").c_str(), jamais, [&] { saisie->insertPlainText("x"); });
        Mesurer(etape(".ok").c_str(), jamais, [&] { longue->accept(); });
        Mesurer(etape(".fermer").c_str(), jamais, [&] { longue.reset(); });
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("Usage : velourne_boucle BASE\n", stderr);
        return 2;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("TZ", ":/etc/localtime", 0);  // as the program does
    Q_INIT_RESOURCE(velourne);
    QApplication application(argc, argv);
    setlocale(LC_NUMERIC, "C");
    EcrireLongsTextes();
    ParcourirTout(argv[1]);
    return 0;
}
