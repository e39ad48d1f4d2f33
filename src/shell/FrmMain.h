#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QWidget>

#include "commun/Dialogues.h"

class FrmExit;
class FrmSemiAuto;
class QLabel;
class QToolButton;

// The start window. It leads to the two activities, reading a media and viewing the catalogue, and holds who is in
// front and where the user came from.
class FrmMain : public QWidget {
public:
    // What the start window needs of the browser.
    struct Vue {
        std::unique_ptr<QWidget> fenetre;
        std::function<void(FrmExit&)> charger;  // fills the tree, reporting to the waiting window
    };

    FrmMain(Dialogues& dialogues, std::function<Vue(FrmMain&)> creerVue);
    ~FrmMain() override;

    // Ends the program; the event loop's exit unless given otherwise.
    std::function<void()> terminer;

    const std::string& FormeCourante() const { return courante_; }
    const std::string& FormePrecedente() const { return precedente_; }
    FrmSemiAuto* Assistant() { return assistant_.get(); }

    void OuvrirAssistant();  // first button
    void OuvrirVue();        // second button
    void AjouterMedias();    // from the browser
    // The browser is being closed: back to the start window when it was opened from there, else the exit procedure.
    // False when the user refuses.
    bool FermerVue();
    // The exit procedure, then the end; false when the user refuses.
    bool Quitter(QWidget* devant);

protected:
    void closeEvent(QCloseEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QToolButton* CreerBouton(const QString& nom, const QString& texte, const char* image);
    void Commenter();
    void MontrerAssistant(bool depuisVue);
    void MontrerVue(QWidget* depuis);
    void Revenir();

    Dialogues& dialogues_;
    std::function<Vue(FrmMain&)> creerVue_;
    Vue vue_;
    std::unique_ptr<FrmSemiAuto> assistant_;
    std::string courante_ = "FrmMain";
    std::string precedente_;
    bool quitte_ = false;
    QToolButton* boutons_[2];
    QLabel* commentaire_;
};
