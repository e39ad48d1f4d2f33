#include <clocale>
#include <cstdlib>

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "browser/frmView.h"
#include "extraction/FrmGetDrive.h"
#include "fenetres/BoitesDialogue.h"
#include "platform/Bureau.h"
#include "platform/Ceder.h"
#include "search/frmRecherche.h"
#include "shell/FrmExit.h"
#include "shell/FrmMain.h"

namespace {

FrmMain::Vue CreerVue(FrmMain& principale, Dialogues& dialogues)
{
    auto fenetre = std::make_unique<frmView>(dialogues);
    frmView* vue = fenetre.get();
    vue->demanderAjout = [&principale] { principale.AjouterMedias(); };
    vue->demanderQuitter = [&principale, vue] { principale.Quitter(vue); };
    vue->fermer = [&principale] { return principale.FermerVue(); };
    vue->choisirLecteur = DemanderLecteur;
    vue->demanderRecherche = [vue, &dialogues, recherche = std::shared_ptr<frmRecherche>()]() mutable {
        if (!recherche)
            recherche = std::make_shared<frmRecherche>(dialogues, *vue);
        recherche->Ouvrir();
    };
    const auto charger = [vue](FrmExit& attente) {
        vue->ChargerArbre([&attente](double part) { attente.Avancer("Chargement en cours ...", part); });
    };
    return {std::move(fenetre), charger};
}

}  // namespace

int main(int argc, char** argv)
{
    setenv("TZ", ":/etc/localtime", 0);  // the zone as it is, but libc no longer looks for a new one at every date
    Q_INIT_RESOURCE(velourne);
    QApplication application(argc, argv);
    setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName("velourne");
    QApplication::setDesktopFileName("velourne");
    QApplication::setWindowIcon(QIcon(":/images/velourne.svg"));
    // Windows hide while another shows; only the exit procedure ends the program.
    QApplication::setQuitOnLastWindowClosed(false);

    QTranslator francais;
    if (francais.load(QLocale(QLocale::French), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&francais);

    BoitesDialogue dialogues;
    if (!PremiereInstance()) {
        dialogues.Informer(
            "  Velourne est en cours d'utilsation sur votre machine\n\n"
            "Pour pouvoir l'utiliser de nouveau, veuillez fermer la version ouverte !");
        return 0;
    }

    FixerPompe([] { QCoreApplication::processEvents(); });
    FrmMain principale(dialogues, [&](FrmMain& p) { return CreerVue(p, dialogues); });
    principale.show();
    return QApplication::exec();
}
