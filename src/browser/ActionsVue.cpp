#include "browser/ActionsVue.h"

#include <utility>

#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QKeyEvent>
#include <QKeySequence>
#include <QWidget>

namespace {

// A picture is the icon theme's, where one is named and the theme has it, else the program's own.
struct TexteCommande {
    const char* nom;  // the control of the menus, and its index there
    const char* texte;
    const char* theme;
    const char* image;
    const char* touches;
    const char* bulle;
    bool desVues = false;  // the keys are those of tree and list, which know what is meant; here they only show
};

// In the order of the commands.
// clang-format off
constexpr TexteCommande Textes[NombreCommandes] = {
    {"Repert 0", "&Créer un nouveau catalogue", nullptr, "catalogue-nouveau", "Ctrl+N", " Ajouter un nouveau catalogue "},
    {"Repert 1", "&Ouvrir un catalogue", nullptr, "catalogue-ouvrir", "Ctrl+O", " Ouvrir un catalogue "},
    {"Repert 2", "&Duppliquer le catalogue en cours", nullptr, "catalogue-dupliquer", nullptr, nullptr},
    {"Repert 3", "&Supprimer le catalogue en cours", nullptr, "catalogue-supprimer", nullptr, nullptr},
    {"Menu 2", "Supprimer le catalogue en cours", nullptr, "catalogue-supprimer", nullptr, " Supprimer le catalogue en cours "},
    {"Repert2 0", "&Ajouter un nouveau média", nullptr, "media-ajouter", "Ctrl+M", " Ajouter de nouveaux médias dans le catalogue "},
    {"Repert2 1", "Modifier le &label du média", "edit-rename", "renommer", "F2", nullptr, true},
    {"Repert2 2", "Modifier l'&icone du média ", nullptr, "media-icone", nullptr, nullptr},
    {"Repert2 3", "Supprimer le &média", nullptr, "media-supprimer", "Del", nullptr, true},
    {"Repert3 0", "Modifier le &nom du répertoire dans le catalogue", "edit-rename", "renommer", "F2", nullptr, true},
    {"Repert3 1", "Supprimer le nom du répertoire dans le catalo&gue", "edit-delete", "supprimer", "Del", nullptr, true},
    {"Repert3 2", "Modifier le nom du &fichier compressé dans le catalogue", "edit-rename", "renommer", "F2", nullptr, true},
    {"Repert3 3", "Su&pprimer le nom du fichier compressé dans le catalogue", "edit-delete", "supprimer", "Del", nullptr, true},
    {"Repert3 4", "Modifier les descrip&tions", nullptr, "description", nullptr, nullptr},
    {"recherche2", "Rec&hercher dans ce média", nullptr, "rechercher", nullptr, nullptr},
    {"Fichier2 0", "&Renommer dans le catalogue", "edit-rename", "renommer", "F2", nullptr, true},
    {"Fichier2 1", "Re&tirer du catalogue", "edit-delete", "supprimer", "Del", nullptr, true},
    {"Fichier2 2", "&Editer les descriptions", nullptr, "description", nullptr, nullptr},
    {"Fichier1 0", "&Lancer le fichier", "system-run", "lancer", nullptr, nullptr},
    {"Fichier1 1", "&Ouvrir l'explorateur windows", "folder-open", "repertoire-ouvert", nullptr, nullptr},
    {"Menu 3", "&Rechercher", nullptr, "rechercher", "Ctrl+F", " Rechercher des informations "},
    {"Prets", "&Gestion des prêts", nullptr, "prets", "Ctrl+G", nullptr},
    {"PropRepert", "P&ropriétés", "document-properties", "proprietes", "Alt+Return", nullptr, true},
    {"PropFile", "&Propriétés", "document-properties", "proprietes", "Alt+Return", nullptr, true},
    {"Imprimer", "&Imprimer un listing", nullptr, "imprimer", "Ctrl+P", " Imprimer un listing "},
    {"Menu 4", "&Préférences", nullptr, "preferences", "Ctrl+,", " Préférences "},
    {"Menu 5", "&Aide", nullptr, "aide", "F1", " Aide "},
    {"Quitter", "&Quitter", "application-exit", "quitter", "Ctrl+Q", nullptr},
    {"CopierNoeud", "Copi&er le chemin", "edit-copy", "copier", "Ctrl+C", nullptr, true},
    {"CopierItem", "&Copier le chemin", "edit-copy", "copier", "Ctrl+C", nullptr, true},
    {"Monter", "Niveau &supérieur", "go-up", "monter", "Alt+Up", nullptr},
    {"Reculer", "P&récédent", "go-previous", "retour", "Alt+Left", nullptr},
    {"Actualiser", "&Actualiser", "view-refresh", "actualiser", "F5", nullptr},
    {"BasesRecentes", "Catalogues récen&ts", "document-open-recent", "catalogues-recents", nullptr, nullptr},
    {"AjouterDepuis", "A&jouter depuis un lecteur", "drive-optical", "cddef", nullptr, nullptr},
    {"CategorieMedia", "Catégorie d&u média", nullptr, "categorie", nullptr, nullptr},
    {"PoliceDescription", "&Police de la description", "preferences-desktop-font", "police", nullptr, nullptr},
};
constexpr std::pair<const char*, const char*> ModesListe[] = {
    {"&Mosaique", "mosaique"}, {"&Icônes", "icones"}, {"&Liste", "liste"}, {"&Détails", "details"}};
// clang-format on

// What the keys of tree and list do: the first that may be given.
struct ToucheVue {
    Qt::Key touche;
    bool liste;
    Commande commande;
    bool alt = false;
};
constexpr ToucheVue Touches[] = {
    {Qt::Key_F2, true, Commande::RenommerItem},          {Qt::Key_F2, false, Commande::RenommerRepertoire},
    {Qt::Key_F2, false, Commande::RenommerArchive},      {Qt::Key_F2, false, Commande::ModifierLabel},
    {Qt::Key_Delete, true, Commande::RetirerItem},       {Qt::Key_Delete, false, Commande::SupprimerRepertoire},
    {Qt::Key_Delete, false, Commande::SupprimerArchive}, {Qt::Key_Delete, false, Commande::SupprimerMedia},
    {Qt::Key_Copy, true, Commande::CopierItem},          {Qt::Key_Copy, false, Commande::CopierNoeud},
    {Qt::Key_Backspace, true, Commande::Monter},         {Qt::Key_Backspace, false, Commande::Monter},
    {Qt::Key_Return, true, Commande::ProprietesItem, true},
    {Qt::Key_Return, false, Commande::ProprietesNoeud, true},
};

QIcon Image(const char* theme, const QString& image)
{
    const QIcon propre(":/images/" + image + ".svg");
    return theme ? QIcon::fromTheme(theme, propre) : propre;
}

}  // namespace

ActionsVue::ActionsVue(QWidget* fenetre) : QObject(fenetre), affichages_(new QActionGroup(this))
{
    for (size_t rang = 0; rang < NombreCommandes; ++rang) {
        const TexteCommande& texte = Textes[rang];
        auto* action = new QAction(texte.texte, fenetre);
        action->setObjectName(texte.nom);
        action->setIcon(Image(texte.theme, texte.image));
        if (texte.touches)
            action->setShortcut(QKeySequence(texte.touches));
        if (texte.desVues)
            action->setShortcutContext(Qt::WidgetShortcut);
        if (texte.bulle)
            action->setToolTip(texte.bulle);
        const auto commande = static_cast<Commande>(rang);
        connect(action, &QAction::triggered, this, [this, commande] { emit demandee(commande); });
        fenetre->addAction(action);
        actions_[rang] = action;
    }
    for (const auto& [texte, image] : ModesListe) {
        QAction* action = affichages_->addAction(texte);
        action->setIcon(Image(nullptr, QString("affichage-") + image));
        action->setCheckable(true);
        const int mode = static_cast<int>(affichages_->actions().size()) - 1;
        action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + mode)));
        connect(action, &QAction::triggered, this, [this, mode] { emit affichageDemande(mode); });
    }
}

void ActionsVue::Ajouter(QWidget& cible, std::span<const Commande> commandes) const
{
    for (const Commande commande : commandes)
        cible.addAction((*this)[commande]);
}

void ActionsVue::Activer(const ContexteCommandes& contexte)
{
    for (size_t rang = 0; rang < NombreCommandes; ++rang)
        actions_[rang]->setEnabled(CommandePermise(static_cast<Commande>(rang), contexte));
}

bool ActionsVue::Toucher(const QKeyEvent& evenement, bool liste) const
{
    const int touche = evenement.matches(QKeySequence::Copy) ? int{Qt::Key_Copy} : evenement.key();
    const bool alt = evenement.modifiers().testFlag(Qt::AltModifier);
    bool connue = false;
    for (const ToucheVue& prevue : Touches) {
        if (prevue.touche != touche || prevue.liste != liste || prevue.alt != alt)
            continue;
        connue = true;
        if (QAction* action = (*this)[prevue.commande]; action->isEnabled()) {
            action->trigger();
            break;
        }
    }
    return connue;
}
