#pragma once

#include <vector>

#include <QWidget>

#include "extraction/EtatAssistant.h"

class QHBoxLayout;
class QScrollArea;
class QToolButton;

// A row of drive tabs with its two buttons that scroll it. At most one tab is chosen; it stays so when pressed again.
class RangeeOnglets : public QWidget {
    Q_OBJECT

public:
    static constexpr int Aucun = OngletLecteur::Aucun;

    explicit RangeeOnglets(const QString& nomVide, QWidget* parent = nullptr);

    void Remplir(const std::vector<LecteurVu>& lecteurs);
    int Nombre() const { return static_cast<int>(lettres_.size()); }
    char Lettre(int numero) const { return lettres_[static_cast<size_t>(numero)]; }
    int Position(char lettre) const;  // Aucun when the row does not hold it
    int Choisi() const { return choisi_; }
    QToolButton* Onglet(int numero) const { return onglets_[static_cast<size_t>(numero)]; }

    // Changes how the tabs look and nothing else.
    void Choisir(int numero);
    void Renommer(int numero, const QString& texte);

signals:
    void Presse(int numero);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;

private:
    void Marquer(int numero, bool choisi);
    void Defiler(int sens);
    void AjusterBoutons();

    std::vector<char> lettres_;
    std::vector<QToolButton*> onglets_;
    int choisi_ = Aucun;
    QString nomVide_;
    QScrollArea* zone_;
    QToolButton* gauche_;
    QToolButton* droit_;
};
