#pragma once

#include <QApplication>
#include <QTranslator>

#include "fenetres/GardienEcran.h"

class Fenetres;

// The desktop application around the windows: its name and pictures, French texts in the library's own windows, and
// windows that stay within their screen. It ends through the exit procedure only.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);

    // Shows the first window and runs until the exit procedure is through.
    static int Mener(Fenetres& fenetres);
    // Ends the process with the code, for when all windows have gone. A look at a dead drive may still hang: what it uses
    // is then left as it is.
    [[noreturn]] static void Finir(int code);

private:
    QTranslator francais_;
    GardienEcran gardien_;
};
