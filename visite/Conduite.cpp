#include "Conduite.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <QAbstractItemView>
#include <QApplication>
#include <QDeadlineTimer>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QTest>
#include <QWindow>

namespace {

QWidget* Devant()
{
    for (QWidget* fenetre : {QApplication::activeModalWidget(), QApplication::activeWindow()})
        if (fenetre && fenetre->isVisible())
            return fenetre;
    for (QWidget* fenetre : QApplication::topLevelWidgets())
        if (fenetre->isVisible() && fenetre->windowType() == Qt::Window)
            return fenetre;
    return nullptr;
}

}  // namespace

Conduite::Conduite(QString images) : images_(std::move(images))
{
    QObject::connect(&regard_, &QTimer::timeout, &regard_, [this] { RegarderDialogues(); });
    regard_.start(50);
}

void Conduite::Etape(const char* nom, const std::function<void()>& agir, const std::function<bool()>& attendu)
{
    agir();
    if (!Attendre([&] { return !repondre_ && attendu(); }))
        Echouer(nom);
    Photographier(nom);
}

void Conduite::AuProchainDialogue(const char* nom, std::function<void(QWidget&)> repondre)
{
    nomDialogue_ = nom;
    repondre_ = std::move(repondre);
}

void Conduite::RegarderDialogues()
{
    QWidget* dialogue = QApplication::activeModalWidget();
    if (!repondre_ || !dialogue || !dialogue->isActiveWindow())
        return;
    const auto repondre = std::exchange(repondre_, nullptr);
    Photographier(nomDialogue_);
    repondre(*dialogue);
}

void Conduite::Cliquer(QWidget& cible)
{
    QWidget* fenetre = cible.window();
    QTest::mouseClick(fenetre->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      cible.mapTo(fenetre, cible.rect().center()));
}

void Conduite::Cliquer(QAbstractItemView& vue, const QModelIndex& index, bool deuxFois)
{
    vue.scrollTo(index);
    QWidget* fenetre = vue.window();
    // Into the text: an icon stands left of it, and the row may be wider than what shows.
    const QRect ligne = vue.visualRect(index).intersected(vue.viewport()->rect());
    const QPoint place = vue.viewport()->mapTo(fenetre, QPoint(ligne.left() + 30, ligne.center().y()));
    QTest::mouseClick(fenetre->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    if (deuxFois)
        QTest::mouseDClick(fenetre->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
}

void Conduite::Choisir(const QMainWindow& fenetre, const char* action)
{
    const auto cliquer = [](QWidget* cible, const QPoint& place) {
        QTest::mouseClick(cible->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          cible->mapTo(cible->window(), place));
    };
    QMenuBar* barre = fenetre.menuBar();
    for (QAction* tete : barre->actions())
        for (QAction* entree : tete->menu()->actions())
            if (entree->objectName() == action) {
                cliquer(barre, barre->actionGeometry(tete).center());
                if (!Attendre([&] { return tete->menu()->isVisible() && entree->isEnabled(); }))
                    Echouer(action);
                cliquer(tete->menu(), tete->menu()->actionGeometry(entree).center());
                return;
            }
    Echouer(action);
}

void Conduite::Taper(const QString& texte)
{
    for (const QChar lettre : texte)
        QTest::sendKeyEvent(QTest::Click, Devant()->windowHandle(), static_cast<Qt::Key>(lettre.toUpper().unicode()),
                            lettre, Qt::NoModifier);
}

void Conduite::Presser(Qt::Key touche, Qt::KeyboardModifiers avec)
{
    QTest::keyClick(Devant()->windowHandle(), touche, avec);
}

bool Conduite::Attendre(const std::function<bool()>& condition)
{
    const QDeadlineTimer delai(Patience);
    while (!condition()) {
        if (delai.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
    return true;
}

void Conduite::Photographier(const char* nom)
{
    const QString image = images_ + QString("/%1-%2.png").arg(++numero_, 2, 10, QChar('0')).arg(nom);
    QWidget* fenetre = Devant();
    if (!fenetre || !fenetre->grab().save(image))
        Echouer(nom);
    std::printf("%s\n", qPrintable(image));
    std::fflush(stdout);
}

void Conduite::Echouer(const char* etape)
{
    std::fprintf(stderr, "La visite s'arrête : %s.\n", etape);
    std::_Exit(1);  // the windows are in the midst of something
}
