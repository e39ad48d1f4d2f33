#pragma once

#include <optional>
#include <string>

#include <QMainWindow>
#include <QTimer>

#include "browser/ImagesCatalogue.h"
#include "browser/ModeleListe.h"
#include "catalogue/ListeFichiers.h"
#include "commun/Dialogues.h"
#include "search/ChoixRecherche.h"
#include "search/Requete.h"

class Infobulle;
class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QStringListModel;
class QToolButton;
class QTreeView;
class frmView;

// The search over the current base: a word, where to look for it, and the results, each of which leads back into the
// browser. It stands in the browser's place while it is open.
class frmRecherche : public QMainWindow {
public:
    frmRecherche(Dialogues& dialogues, frmView& vue, QWidget* parent = nullptr);
    ~frmRecherche() override;

    // Takes the browser's place, with what the base offers to choose from by now.
    void Ouvrir();

    // Shows the selected result in the browser, which comes back.
    void lvListView_DblClick();
    void lvListView_Click();
    void CacherCalendrier();

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    static constexpr int NombreOnglets = 3;

    QWidget* CreerOnglets();
    QWidget* CreerPages();
    QWidget* CreerPage(int onglet);
    QLineEdit* CreerSaisie(int onglet);
    QComboBox* CreerChoix(const char* nom, const char* cle, const QString& libelle);
    QWidget* CreerOptions();
    QCheckBox* CreerOption(int option, const char* texte);
    void CreerDates(QLayout& mise);
    void CreerCalendrier();
    void CreerListe();
    QWidget* CreerCentre();
    void CreerStatut();
    void Colorer();

    void LireReglages();
    void EcrireReglages();
    void ChargerChoix();
    void ChargerHistorique();

    void ChoisirOnglet(int onglet);
    void Saisir(const QString& texte);
    void ChangerOption(int option, bool active);
    void MontrerDates(bool actives);
    void FixerDate(int rang, const QDate& date);
    void BasculerCalendrier(int rang);
    void ChoisirJour(const QDate& date);

    void PresserOK();
    void Annuler();
    void Rechercher();
    void Occuper(bool occupe);
    void ViderResultats();
    DemandeRecherche Demande() const;
    FiltreRecherche Filtre() const;
    void TrierColonne(int colonne);
    bool Touche(QObject* objet, int touche);
    void Echapper();
    void MontrerDescription(const ItemListe& item, const QModelIndex& index);
    void MenuAtteindre(const QPoint& place);

    Dialogues& dialogues_;
    frmView& vue_;
    ListeFichiers liste_;
    IconesExtensions icones_;
    ImagesCatalogue images_;
    ModeleListe* modeleListe_;
    std::string baseLue_;  // whose rows the results are

    int onglet_ = RechercheAvancee;
    QString mot_;
    ChoixMedias identifiants_, labels_;
    struct Tri {
        int colonne;
        bool decroissant;
    };
    std::optional<Tri> tri_;  // none: the order of the select
    bool enRecherche_ = false;
    bool annulee_ = false;
    bool fermerEnsuite_ = false;
    bool enOuverture_ = false;

    QToolButton* btn_[NombreOnglets];
    QStackedWidget* pages_ = nullptr;
    QLineEdit* saisie_[NombreOnglets];
    QStringListModel* historique_;
    QLabel* aide_ = nullptr;
    QCheckBox* rec_[NombreOptions];
    QComboBox* lExt_ = nullptr;
    QComboBox* lIdent_ = nullptr;
    QComboBox* lLables_ = nullptr;
    QPushButton* infoDate_[2];  // "tag": the date as "yyyymmdd"
    QFrame* cadreCalendrier_ = nullptr;
    QCalendarWidget* calendrier_ = nullptr;
    int dateChoisie_ = 0;  // the one that the calendar is open for
    QPushButton* ok_ = nullptr;
    QLabel* titre_ = nullptr;
    QTreeView* lvListView_ = nullptr;
    QLabel* commentaire_ = nullptr;
    QProgressBar* barre_ = nullptr;
    Infobulle* infobulle_ = nullptr;
    QTimer itemAMontrer_;
};
