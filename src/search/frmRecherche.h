#pragma once

#include <atomic>
#include <memory>
#include <string>

#include <QMainWindow>
#include <QTimer>

#include "browser/ImagesCatalogue.h"
#include "catalogue/ListeFichiers.h"
#include "commun/Dialogues.h"
#include "commun/Travail.h"
#include "search/EtatRecherche.h"
#include "search/ModeleResultats.h"
#include "search/PanneauxRecherche.h"

// The search over the current base: a word, where to look for it, and the results, each of which leads back into the
// browser. It stands in the browser's place while it is open. Searching and sorting are pieces of `travail`.
class frmRecherche : public QMainWindow {
    Q_OBJECT

public:
    frmRecherche(Dialogues& dialogues, Travail& travail, QWidget* parent = nullptr);
    ~frmRecherche() override;

    // Makes it ready to be shown, with what the base offers to choose from by now.
    void Ouvrir();
    // Shows the selected result in the browser.
    void lvListView_DblClick();
    void lvListView_Click();
    void CacherCalendrier();

    // What came of `resultatVoulu`: false when the browser has no way to the result.
    void ResultatAtteint(bool trouve);
    // Keeps what closing keeps: place, state, columns.
    void Memoriser();

signals:
    void resultatVoulu(const ItemListe& resultat);  // the browser must show it; its texts are gone afterwards
    void fermetureVoulue();                         // the browser must come back; the window stays until it is hidden
    void sortieVoulue();

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void Relier();
    void RelierCriteres();
    void RelierListe();
    void MontrerEtat();
    void ChargerChoix();
    void ChargerHistorique();

    void ChoisirOnglet(int onglet);
    void Saisir(const QString& texte);
    void ChangerOption(int option, bool active);
    void MontrerDates();
    void BasculerCalendrier(int rang);
    void ChoisirJour(const QDate& date);

    bool EnRecherche() const { return travail_.EnCours(Place::Recherche); }
    void PresserOK();
    void Annuler();
    void Rechercher();
    void Recevoir(ListeFichiers trouves, LieuxResultats lieux);
    void Occuper(bool occupe);
    void ViderResultats();
    void TrierColonne(int colonne);
    void Ordonner();
    void MontrerColonnes();
    void MenuColonnes(const QPoint& place);
    void AjusterLargeurs();
    bool Touche(QObject* objet, int touche);
    bool MontrerLieu(const QPoint& place);
    void Echapper();
    void MontrerDescription(const ItemListe& item, const QModelIndex& index);
    void MenuAtteindre(const QPoint& place);

    Dialogues& dialogues_;
    Travail& travail_;
    ListeFichiers liste_;
    IconesExtensions icones_;
    ImagesCatalogue images_;
    ModeleResultats* modeleListe_;
    PanneauxRecherche panneaux_;
    EtatRecherche etat_;
    std::string baseLue_;  // whose rows the results are

    std::shared_ptr<std::atomic<int32_t>> nombre_;  // of results so far
    int dateChoisie_ = 0;                           // the one that the calendar is open for
    bool largeursChoisies_ = false;                 // the user has set widths of columns
    bool enAjustement_ = false;
    QTimer itemAMontrer_, suivi_;
};
