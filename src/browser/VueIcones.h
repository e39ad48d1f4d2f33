#pragma once

#include <QListView>

class DelegueIcones;

// The ways to show the list, as the settings number them.
enum Affichage { GrandesIcones, PetitesIcones, EnListe, Rapport };

// The file list as large icons, as small ones, or in columns. Its cells are as wide as the names need, within bounds.
class VueIcones : public QListView {
public:
    explicit VueIcones(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* modele) override;
    // Any of the ways but the report.
    void Afficher(Affichage mode);

protected:
    void showEvent(QShowEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    void Mesurer();
    void MesurerSiVue();

    DelegueIcones* delegue_;
    Affichage mode_ = GrandesIcones;
    bool mesuree_ = false;  // for the rows and letters there are
};
