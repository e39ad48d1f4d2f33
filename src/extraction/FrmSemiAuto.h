#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QTimer>
#include <QWidget>

#include "commun/Consultation.h"
#include "commun/Dialogues.h"
#include "commun/Travail.h"
#include "extraction/CourseMedia.h"
#include "extraction/EtatAssistant.h"
#include "extraction/PanneauxAssistant.h"
#include "extraction/VerifierCatalogue.h"

// The extraction wizard: the user picks a drive, names the media and starts or abandons the run, which is a piece of
// `travail` and is looked at 20 times a second. Drives are asked beside the window.
class FrmSemiAuto : public QWidget {
    Q_OBJECT

public:
    // `courseCD` may be empty: of an audio disc the root alone is then written.
    FrmSemiAuto(Dialogues& dialogues, Travail& travail, FabriqueCourseCD courseCD,
                std::function<std::vector<LecteurVu>()> machine = RegarderLecteurs);
    ~FrmSemiAuto() override;

    bool EnCours() const { return phase_ != Phase::Repos; }
    // A drive is being asked; nothing can be read before it has answered.
    bool EnConsultation() const { return lecteurs_.EnCours(); }
    // Reads the drives again and presses the tab of one of them, for 0 the remembered one.
    void ConsulterLecteurs(char voulue);
    // Keeps the window's place.
    void Memoriser();
    // To be shown again after a look at the catalogue: what was typed stays, base and drives may be others.
    void Reprendre();

signals:
    void catalogueVoulu();   // the button bar
    void fermetureVoulue();  // the window is to be closed; it stays until somebody hides it
    void sortieVoulue();     // the user wants to end the program

protected:
    void closeEvent(QCloseEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    // Finissant: the user has abandoned, the worker is still winding up.
    enum class Phase { Repos, Verification, Course, Finissant };

    void Relier();
    void MontrerCatalogue();
    void PresserOnglet(const OngletLecteur& onglet);
    void AfficherLecteur();
    void ChoisirDossier();
    void MontrerDetails();
    void RemplirListe();

    void PresserOK();
    void Echapper();
    void Lancer();
    void DemarrerCourse(const ReponseMedia& media);
    void Abandonner();
    void Suivre();
    void Terminer();
    void RetirerMediaAbandonne();
    void Conclure();
    void LibelleOK(bool enCours);
    void ActiverOK();
    void ExitRecherche();
    void Dire(const QString& texte);

    Dialogues& dialogues_;
    Travail& travail_;
    const FabriqueCourseCD courseCD_;
    const std::function<std::vector<LecteurVu>()> machine_;
    Consultation lecteurs_;
    EtatAssistant etat_;
    LecteurRegarde regarde_;  // the chosen drive
    PanneauxAssistant panneaux_;

    Phase phase_ = Phase::Repos;
    QString avis_;  // what became of the bases, shown until the next press
    bool questionPosee_ = false;
    bool fermerEnsuite_ = false;
    std::unique_ptr<CourseMedia> course_;
    bool finie_ = false;
    FinExtraction fin_ = FinExtraction::Complete;  // the worker's until finie_ is set
    QTimer suivi_;
};
