#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

#include <QTimer>
#include <QWidget>

#include "commun/Dialogues.h"
#include "extraction/Extraction.h"
#include "extraction/VerifierCatalogue.h"
#include "extraction/bsDrive.h"

class Animation;
class Etiquette;
class RangeeOnglets;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QToolButton;

// The extraction wizard: the user picks a drive, names the media and starts or abandons the run, which works on a
// thread of its own and is looked at 20 times a second.
class FrmSemiAuto : public QWidget {
public:
    explicit FrmSemiAuto(Dialogues& dialogues, QWidget* parent = nullptr);
    ~FrmSemiAuto() override;

    std::function<void()> voirCatalogue;  // the button bar
    std::function<void()> fermee;         // the window has closed
    std::function<void()> quitter;        // the exit procedure is wanted

    bool EnCours() const { return etat_ != Etat::Repos; }

protected:
    void closeEvent(QCloseEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    // Finissant: the user has abandoned, the worker is still winding up.
    enum class Etat { Repos, Verification, Course, Finissant };

    QWidget* CreerMedias();
    QWidget* CreerInformations();
    QWidget* CreerSaisies();
    QWidget* CreerAvancement();
    QWidget* CreerDetails();
    QWidget* CreerBarre();

    void RemplirOnglets();
    void Actualiser();
    void PresserOnglet(RangeeOnglets* rangee, int numero);
    void AfficherLecteur(uint32_t type);
    void ChoisirDossier();

    bool DetailsMontres() const;
    void BasculerEtapes();
    void MontrerDetails(bool montrer);
    void RemplirListe();
    void PresserCompression(int indice);

    void PresserOK();
    void Lancer();
    void DemarrerFil(const ReponseMedia& media, bool lecteurVide);
    void Abandonner();
    void Suivre();
    void Terminer();
    void Conclure();
    void Activer(bool actif);
    void LibelleOK(bool enCours);
    void ExitRecherche();
    void Dire(const QString& texte);

    Dialogues& dialogues_;
    bsDrive lecteur_;
    InfosLecteur infos_;
    char lettre_ = 0;

    Etat etat_ = Etat::Repos;
    bool questionPosee_ = false;
    bool fermerEnsuite_ = false;
    QString avis_;  // what became of the bases, shown until the next press
    std::unique_ptr<Extraction> extraction_;
    std::thread fil_;
    std::atomic<bool> finie_ = false;
    FinExtraction fin_ = FinExtraction::Complete;  // the worker's until finie_ is set
    QTimer suivi_;

    RangeeOnglets* menu_;
    RangeeOnglets* menuA_;
    QGroupBox* medias_;
    QGroupBox* disques_;
    QGroupBox* compressions_;
    QWidget* details_;
    QWidget* barre_;
    QLabel* image_;
    QLabel* valeurs_[6];
    QLineEdit* identifiant_;
    QLineEdit* nom_;
    QPushButton* ok_;
    QPushButton* etapes_;
    QCheckBox* compression_[4];
    QComboBox* listeExtensions_;
    QListWidget* liste_;
    Animation* animation_;
    QLabel* repertoires_;
    QLabel* fichiers_;
    QLabel* descriptions_;
    QProgressBar* progression_;
    QLabel* pourcentage_;
    Etiquette* ligne_;
};
