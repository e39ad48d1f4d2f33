#include <clocale>

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "platform/Bureau.h"
#include "platform/Ceder.h"
#include "shell/FenetreDialogues.h"
#include "shell/FrmMain.h"

int main(int argc, char** argv)
{
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

    FenetreDialogues dialogues;
    if (!PremiereInstance()) {
        dialogues.Informer(
            "  Velourne est en cours d'utilsation sur votre machine\n\n"
            "Pour pouvoir l'utiliser de nouveau, veuillez fermer la version ouverte !");
        return 0;
    }

    FixerPompe([] { QCoreApplication::processEvents(); });
    FrmMain principale(dialogues, nullptr);
    principale.show();
    return QApplication::exec();
}
