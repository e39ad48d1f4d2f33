#include "browser/ActionsVue.h"

#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QKeySequence>
#include <QWidget>

namespace {

struct TexteCommande {
    const char* texte;
    const char* image;  // none: null
    const char* touches;
    const char* bulle;
};

// In the order of the commands.
constexpr TexteCommande Textes[NombreCommandes] = {
    {"&Créer un nouveau catalogue", "catalogue-nouveau", "Ctrl+N", " Ajouter un nouveau catalogue "},
    {"&Ouvrir un catalogue", "catalogue-ouvrir", "Ctrl+O", " Ouvrir un catalogue "},
    {"&Duppliquer le catalogue en cours", nullptr, nullptr, nullptr},
    {"&Supprimer le catalogue en cours", "catalogue-supprimer", nullptr, nullptr},
    {"Supprimer le catalogue en cours", "catalogue-supprimer", nullptr, " Supprimer le catalogue en cours "},
    {"&Ajouter un nouveau média", "media-ajouter", "Ctrl+M", " Ajouter de nouveaux médias dans le catalogue "},
    {"&Lancer le fichier", nullptr, nullptr, nullptr},
    {"&Ouvrir l'explorateur windows", nullptr, nullptr, nullptr},
    {"&Rechercher", "rechercher", "Ctrl+F", " Rechercher des informations "},
    {"&Gestion des prêts", nullptr, "Ctrl+G", nullptr},
    {"P&ropriétés", nullptr, "Alt+Return", nullptr},
    {"&Propriétés", nullptr, nullptr, nullptr},
    {"&Imprimer un listing", "imprimer", "Ctrl+P", " Imprimer un listing "},
    {"&Préférences", "preferences", "Ctrl+,", " Préférences "},
    {"&Quitter", nullptr, "Ctrl+Q", nullptr},
};

}  // namespace

ActionsVue::ActionsVue(QWidget* fenetre) : QObject(fenetre), affichages_(new QActionGroup(this))
{
    for (size_t rang = 0; rang < NombreCommandes; ++rang) {
        const TexteCommande& texte = Textes[rang];
        auto* action = new QAction(texte.texte, fenetre);
        if (texte.image)
            action->setIcon(QIcon(QString(":/images/%1.svg").arg(texte.image)));
        if (texte.touches)
            action->setShortcut(QKeySequence(texte.touches));
        if (texte.bulle)
            action->setToolTip(texte.bulle);
        const auto commande = static_cast<Commande>(rang);
        connect(action, &QAction::triggered, this, [this, commande] { emit demandee(commande); });
        fenetre->addAction(action);
        actions_[rang] = action;
    }
    for (const char* texte : {"&Mosaique", "&Icônes", "&Liste", "&Détails"}) {
        QAction* action = affichages_->addAction(texte);
        action->setCheckable(true);
        const int mode = static_cast<int>(affichages_->actions().size()) - 1;
        action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + mode)));
        connect(action, &QAction::triggered, this, [this, mode] { emit affichageDemande(mode); });
    }
}

void ActionsVue::Ajouter(QWidget& cible, std::initializer_list<Commande> commandes) const
{
    for (const Commande commande : commandes)
        cible.addAction((*this)[commande]);
}

void ActionsVue::Activer(const ContexteCommandes& contexte)
{
    for (size_t rang = 0; rang < NombreCommandes; ++rang)
        actions_[rang]->setEnabled(CommandePermise(static_cast<Commande>(rang), contexte));
}
