#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <QMainWindow>
#include <QTimer>

#include "commun/Dialogues.h"
#include "commun/Travail.h"
#include "listings/EtatImpression.h"
#include "listings/PanneauxImpression.h"

class QPrinter;

// Listings of the catalogue: which media, which columns, which format, and what came of it. It stands in the browser's
// place while it is open and lists the browser's tree. Writing and printing are pieces of `travail`.
class frmImpression : public QMainWindow {
    Q_OBJECT

public:
    // `arbre` changes between the pieces of `travail` only.
    frmImpression(Dialogues& dialogues, Travail& travail, const ArbreCatalogue& arbre, QWidget* parent = nullptr);
    ~frmImpression() override;

    // Makes it ready to be shown, with the media that the base has by now.
    void Ouvrir();
    // Keeps what closing keeps: place and state.
    void Memoriser();

signals:
    void fermetureVoulue();  // the browser must come back; the window stays until it is hidden
    void sortieVoulue();

protected:
    void closeEvent(QCloseEvent* evenement) override;

private:
    struct Listing;

    void Relier();
    void MontrerEtat();

    bool EnCours() const { return part_ != nullptr; }
    void PresserOK();
    void Annuler();
    void Ecrire();
    void Recevoir(const Listing& listing);
    void OuvrirListing();
    void ImprimerPapier();
    void ImprimerPdf();
    void Imprimer(std::shared_ptr<QPrinter> imprimante, const std::string& chemin);
    void Occuper(const char* texte);
    void Liberer(const QString& texte);
    void Echapper();

    Dialogues& dialogues_;
    Travail& travail_;
    const ArbreCatalogue& arbre_;
    EtatImpression etat_;
    PanneauxImpression panneaux_;
    std::optional<DemandeListing> ecrite_;       // the listing that is shown
    std::shared_ptr<std::atomic<double>> part_;  // of the work that runs for this window; none: nothing runs
    QTimer suivi_;
};
