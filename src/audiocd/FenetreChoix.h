#pragma once

#include <string>
#include <vector>

#include <QDialog>

class QTreeView;
class QVBoxLayout;

// A list to choose one row from, over an OK button. The pieces of a row between tabs stand in columns.
class FenetreChoix : public QDialog {
public:
    // The row chosen, counted from 1; 0 while there is none or when the window was closed without one.
    int Choisi() const;

    // Shows it modally.
    int GetSelection();

    // Where its corner shall be on the screen, unless it would lie outside.
    void Placer(long haut, long gauche);

protected:
    FenetreChoix(const QString& titre, const QString& entete, const std::vector<std::string>& rangees, QWidget* parent);

    // Above the list.
    void AjouterLigne(const QString& texte);
    virtual void Valider();

private:
    QVBoxLayout* tete_;
    QTreeView* liste_;
};
