#pragma once

#include <chrono>
#include <functional>

#include <QPoint>
#include <QString>
#include <QTimer>
#include <QWidget>

class QAbstractItemView;
class QMainWindow;
class QModelIndex;

// Hands and eyes of the visit: keys and clicks go to the windows the way the desktop sends them, each step waits for what
// it must lead to, and a picture is kept of it.
class Conduite {
public:
    static constexpr std::chrono::seconds Patience{60};  // with any one step

    // Pictures go into the folder.
    explicit Conduite(QString images);

    // One step: acts, waits until what must come is there, and takes the picture of the window in front. The program
    // ends with a message when it does not come.
    void Etape(const char* nom, const std::function<void()>& agir, const std::function<bool()>& attendu);

    // What to do with the next dialogue, which holds up who opened it until it is closed. Its picture is taken first.
    void AuProchainDialogue(const char* nom, std::function<void(QWidget&)> repondre);

    static void Cliquer(QWidget& cible);
    static void Cliquer(QAbstractItemView& vue, const QModelIndex& index, bool deuxFois = false);
    // Clicks on an entry of the menu bar, by the name of its action.
    static void Choisir(const QMainWindow& fenetre, const char* action);
    static void Taper(const QString& texte);  // into what has the focus
    static void Presser(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier);

    // Lets the windows live until the condition holds; false when that takes too long.
    static bool Attendre(const std::function<bool()>& condition);

    // The child of a window; the program ends when there is none.
    template <typename Classe>
    static Classe& Enfant(const QWidget& fenetre, const char* nom)
    {
        auto* enfant = fenetre.findChild<Classe*>(nom);
        if (!enfant)
            Echouer(nom);
        return *enfant;
    }
    [[noreturn]] static void Echouer(const char* etape);

private:
    void Photographier(const char* nom);
    void RegarderDialogues();

    QString images_;
    int numero_ = 0;
    QTimer regard_;
    const char* nomDialogue_ = nullptr;
    std::function<void(QWidget&)> repondre_;
};
