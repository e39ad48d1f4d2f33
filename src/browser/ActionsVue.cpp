#include "browser/ActionsVue.h"

#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QKeySequence>
#include <QWidget>

namespace {

struct TexteCommande {
    const char* nom;  // the control of the menus, and its index there
    const char* texte;
    const char* image;  // none: null
    const char* touches;
    const char* bulle;
};

// In the order of the commands.
// clang-format off
constexpr TexteCommande Textes[NombreCommandes] = {
    {"Repert 0", "&Créer un nouveau catalogue", "catalogue-nouveau", "Ctrl+N", " Ajouter un nouveau catalogue "},
    {"Repert 1", "&Ouvrir un catalogue", "catalogue-ouvrir", "Ctrl+O", " Ouvrir un catalogue "},
    {"Repert 2", "&Duppliquer le catalogue en cours", nullptr, nullptr, nullptr},
    {"Repert 3", "&Supprimer le catalogue en cours", "catalogue-supprimer", nullptr, nullptr},
    {"Menu 2", "Supprimer le catalogue en cours", "catalogue-supprimer", nullptr, " Supprimer le catalogue en cours "},
    {"Repert2 0", "&Ajouter un nouveau média", "media-ajouter", "Ctrl+M", " Ajouter de nouveaux médias dans le catalogue "},
    {"Repert2 1", "Modifier le &label du média", nullptr, nullptr, nullptr},
    {"Repert2 2", "Modifier l'&icone du média ", nullptr, nullptr, nullptr},
    {"Repert2 3", "Supprimer le &média", nullptr, nullptr, nullptr},
    {"Repert3 0", "Modifier le &nom du répertoire dans le catalogue", nullptr, nullptr, nullptr},
    {"Repert3 1", "Supprimer le nom du répertoire dans le catalo&gue", nullptr, nullptr, nullptr},
    {"Repert3 2", "Modifier le nom du &fichier compressé dans le catalogue", nullptr, nullptr, nullptr},
    {"Repert3 3", "Su&pprimer le nom du fichier compressé dans le catalogue", nullptr, nullptr, nullptr},
    {"Repert3 4", "Modifier les descrip&tions", "description", nullptr, nullptr},
    {"recherche2", "&Rechercher dans ce média", "rechercher", nullptr, nullptr},
    {"Fichier2 0", "&Renommer dans le catalogue", nullptr, nullptr, nullptr},
    {"Fichier2 1", "Re&tirer du catalogue", nullptr, nullptr, nullptr},
    {"Fichier2 2", "&Editer les descriptions", "description", nullptr, nullptr},
    {"Fichier1 0", "&Lancer le fichier", nullptr, nullptr, nullptr},
    {"Fichier1 1", "&Ouvrir l'explorateur windows", nullptr, nullptr, nullptr},
    {"Menu 3", "&Rechercher", "rechercher", "Ctrl+F", " Rechercher des informations "},
    {"Prets", "&Gestion des prêts", nullptr, "Ctrl+G", nullptr},
    {"PropRepert", "P&ropriétés", nullptr, "Alt+Return", nullptr},
    {"PropFile", "&Propriétés", nullptr, nullptr, nullptr},
    {"Imprimer", "&Imprimer un listing", "imprimer", "Ctrl+P", " Imprimer un listing "},
    {"Menu 4", "&Préférences", "preferences", "Ctrl+,", " Préférences "},
    {"Menu 5", "&Aide", "aide", "F1", " Aide "},
    {"Quitter", "&Quitter", nullptr, "Ctrl+Q", nullptr},
};
// clang-format on

}  // namespace

ActionsVue::ActionsVue(QWidget* fenetre) : QObject(fenetre), affichages_(new QActionGroup(this))
{
    for (size_t rang = 0; rang < NombreCommandes; ++rang) {
        const TexteCommande& texte = Textes[rang];
        auto* action = new QAction(texte.texte, fenetre);
        action->setObjectName(texte.nom);
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
