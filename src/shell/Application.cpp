#include "shell/Application.h"

#include <clocale>
#include <cstdlib>

#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>

#include "commun/Consultation.h"
#include "fenetres/StyleVisible.h"
#include "menus/StyleMenus.h"
#include "shell/Fenetres.h"

namespace {

int& Preparer(int& argc)
{
    setenv("TZ", ":/etc/localtime", 0);  // the zone as it is, but libc no longer looks for a new one at every date
    return argc;
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(Preparer(argc), argv)
{
    Q_INIT_RESOURCE(velourne);
    setlocale(LC_NUMERIC, "C");
    setStyle(new StyleMenus(new StyleVisible));
    setApplicationName("velourne");
    setDesktopFileName("velourne");
    setWindowIcon(QIcon(":/images/velourne.svg"));
    setQuitOnLastWindowClosed(false);  // windows hide while another shows
    if (francais_.load(QLocale(QLocale::French), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(&francais_);
    installEventFilter(&gardien_);
}

int Application::Mener(Fenetres& fenetres)
{
    // The windows have had their say: `quit` would ask each of them once more.
    connect(&fenetres, &Fenetres::terminee, qApp, [] { exit(); }, Qt::QueuedConnection);
    fenetres.Demarrer();
    return exec();
}

void Application::Finir(int code)
{
    using namespace std::chrono_literals;
    if (!AttendreConsultations(500ms))
        std::_Exit(code);
    std::exit(code);
}
