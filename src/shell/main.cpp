#include <clocale>
#include <cstdlib>

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "fenetres/BoitesDialogue.h"
#include "platform/Bureau.h"
#include "shell/Fenetres.h"

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

    Fenetres fenetres(dialogues);
    QObject::connect(&fenetres, &Fenetres::terminee, &application, &QCoreApplication::quit, Qt::QueuedConnection);
    fenetres.Demarrer();
    return QApplication::exec();
}
