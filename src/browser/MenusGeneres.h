#pragma once

#include <functional>
#include <set>
#include <string>

#include <QObject>

#include "browser/Commandes.h"
#include "commun/Consultation.h"
#include "commun/Travail.h"

class ActionsVue;
class QMenu;
class QWidget;

// The menus behind four of the commands, whose entries are made when they open: the drives of the machine, the recent
// bases, the categories of media, the fonts of descriptions. Machine and base are asked beside the window; what they
// answer comes into the open menu.
class MenusGeneres : public QObject {
    Q_OBJECT

public:
    // `media`: number of the selected media, decimal; empty when there is none.
    MenusGeneres(QWidget& fenetre, const ActionsVue& actions, Travail& travail, std::function<std::string()> media);
    ~MenusGeneres() override;

signals:
    void lecteurChoisi(char lettre);  // small
    void baseChoisie(const std::string& chemin);
    void categorieChoisie(const std::string& media, const std::string& categorie);
    void policeChoisie(const std::string& famille);  // empty: the desktop's own

private:
    QMenu* Creer(const ActionsVue& actions, Commande commande, void (MenusGeneres::*remplir)());
    void RemplirLecteurs();
    void RemplirBases();
    void MontrerBases();
    void RemplirCategories();
    void RemplirPolices();

    QWidget& fenetre_;
    Travail& travail_;
    const std::function<std::string()> media_;
    Consultation lecteurs_, fichiers_;
    std::set<std::string> absentes_;  // recent bases without a file, as far as that is known
    QMenu *menuLecteurs_, *menuBases_, *menuCategories_, *menuPolices_;
};
