#pragma once

#include <memory>
#include <string>

#include <QObject>

#include "commun/Dialogues.h"
#include "commun/Travail.h"
#include "extraction/FrmGetDrive.h"
#include "shell/FrmExit.h"

class FrmMain;
class FrmSemiAuto;
class frmImpression;
class frmRecherche;
class frmView;
class QWidget;

// Owns the windows and conducts them: who is in front, where the user came from, what leads where, and the end of the
// program. The windows say what is wanted by their signals and know nothing of each other.
class Fenetres : public QObject {
    Q_OBJECT

public:
    explicit Fenetres(Dialogues& dialogues);
    ~Fenetres() override;

    // Finds or makes the current base and shows the start window.
    void Demarrer();

    // Names of the window in front and of the one that the browser was opened from.
    const std::string& FormeCourante() const { return courante_; }
    const std::string& FormePrecedente() const { return precedente_; }

    Travail& Ouvrage() { return travail_; }

signals:
    void terminee();  // the exit procedure is through: the program must end

private:
    void CreerPrincipale();
    void CreerVue();
    void CreerRecherche();
    void CreerImpression();

    void CreerAssistant();
    void OuvrirAssistant(QWidget* depuis, char voulue = 0);
    void OuvrirVue(QWidget* depuis);
    void MontrerVue(QWidget* depuis);
    void OuvrirRecherche();
    void OuvrirImpression();
    void OuvrirPreferences();
    void OuvrirPrets();
    void OuvrirProprietes(const std::string& cle, bool fichier, bool noeud);
    void ChangerCategorie(const std::string& media, const std::string& categorie);
    void Atteindre(const struct ItemListe& resultat);
    void FermerAssistant();
    void FermerVue();
    void Revenir();
    void Quitter(QWidget* devant);

    Dialogues& dialogues_;
    ChoixParFenetre choixLecteur_;
    Travail travail_;
    FrmExit attente_;
    std::unique_ptr<FrmMain> principale_;
    std::unique_ptr<frmView> vue_;
    std::unique_ptr<frmRecherche> recherche_;
    std::unique_ptr<frmImpression> impression_;  // behind the browser, whose tree it lists
    std::unique_ptr<FrmSemiAuto> assistant_;
    QWidget* avantVue_ = nullptr;  // hands its place over to the browser once that is loaded
    std::string courante_ = "FrmMain";
    std::string precedente_;
    bool depuisVue_ = false;        // the wizard was opened from the browser
    bool assistantLaisse_ = false;  // it was left for a look at the catalogue: what was typed waits in it
    bool quitte_ = false;
};
