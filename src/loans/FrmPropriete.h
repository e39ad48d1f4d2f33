#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "commun/Dialogues.h"
#include "loans/ChoixEmprunteur.h"
#include "loans/DialogueBase.h"
#include "loans/PanneauxPropriete.h"
#include "loans/Proprietes.h"

class QListWidgetItem;

// What is known of a media, directory or file. The media's tab lends it and gives it a category and a colour.
class FrmPropriete : public DialogueBase {
    Q_OBJECT

public:
    FrmPropriete(Dialogues& dialogues, Travail& travail, SujetPropriete sujet, QWidget* parent = nullptr);
    ~FrmPropriete() override;

    // Offers the button that changes the description of a directory or file; what it shows is read again afterwards.
    void OffrirDescriptions(std::function<void()> modifier);

    void reject() override;

signals:
    // The tree must show these media in another colour, where they are not in one of their own.
    void couleursChangees(const std::vector<int64_t>& medias, uint32_t avant, uint32_t apres);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void Relier();
    void Lire();
    void MontrerMedia(const ProprietesMedia& proprietes);
    void MontrerEntree();
    void RechercherPersonnes();
    void ValiderPret();

    void VerifierCategorie();
    void ColorerCategorie();
    void MontrerCouleur(QListWidgetItem& ligne, uint32_t couleur);
    bool EnChoix() const;
    void OuvrirTypes(bool ouvrir);
    void ActiverCouleur();
    void BasculerTypes();
    void ValiderCategorie(const std::string& categorie);
    void ChangerCouleur();

    Dialogues& dialogues_;
    const SujetPropriete sujet_;
    PanneauxPropriete panneaux_;
    ChoixEmprunteur emprunteur_;
    std::string categorie_;  // as stored
    bool iconeEcrite_ = false;
};
