#include "browser/MenusGeneres.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include <QAction>
#include <QActionGroup>
#include <QFontDatabase>
#include <QMenu>
#include <QStyle>

#include "browser/ActionsVue.h"
#include "browser/BasesRecentes.h"
#include "catalogue/Categories.h"
#include "catalogue/OuvrirBase.h"
#include "extraction/RegardLecteurs.h"
#include "fenetres/Couleurs.h"
#include "fenetres/ImagesLecteur.h"
#include "fenetres/TextesQt.h"
#include "fenetres/TravailFenetre.h"
#include "menus/Mnemoniques.h"
#include "platform/OperationsFichiers.h"
#include "store/BaseCourante.h"
#include "store/Reglages.h"

namespace {

constexpr int LargeurChemin = 70;  // letters
constexpr int PolicesMaximum = 24;

struct Entree {
    QString texte;  // none: a line between entries
    std::function<void()> choisir;
    QIcon icone = {};
    bool aCocher = false, cochee = false;
    bool permise = true;
    QString bulle = {};    // where the text does not say all
    QString famille = {};  // font in which it is written
};

bool Montre(const QAction& action, const Entree& entree)
{
    return SansMnemonique(action.text()) == SansMnemonique(entree.texte) && action.isChecked() == entree.cochee &&
           (entree.texte.isEmpty() || action.isEnabled() == entree.permise) &&
           (entree.bulle.isEmpty() || action.toolTip() == EnBulle(entree.bulle));
}

// An open menu that shows the same already stays as it is, and keeps the entry that the user is on.
void Poser(QMenu& menu, const std::vector<Entree>& entrees)
{
    const QList<QAction*> anciennes = menu.actions();
    if (std::equal(anciennes.begin(), anciennes.end(), entrees.begin(), entrees.end(),
                   [](const QAction* action, const Entree& entree) { return Montre(*action, entree); }))
        return;
    menu.clear();
    delete menu.findChild<QActionGroup*>();
    auto* choix = new QActionGroup(&menu);  // one of those that can be marked
    for (const Entree& entree : entrees) {
        if (entree.texte.isEmpty()) {
            menu.addSeparator();
            continue;
        }
        QAction* action = menu.addAction(entree.icone, entree.texte);
        action->setCheckable(entree.aCocher);
        if (entree.aCocher)
            choix->addAction(action);
        action->setChecked(entree.cochee);
        action->setEnabled(entree.permise);
        if (!entree.bulle.isEmpty())
            action->setToolTip(EnBulle(entree.bulle));
        if (!entree.famille.isEmpty()) {
            QFont police = menu.font();
            police.setFamily(entree.famille);
            action->setFont(police);
        }
        QObject::connect(action, &QAction::triggered, action, [choisir = entree.choisir] { choisir(); });
    }
    DonnerMnemoniques(menu);
}

void Patienter(QMenu& menu)
{
    menu.clear();
    menu.addAction("Lecture en cours ...")->setEnabled(false);
}

// The desktop's letters of one width and, as the only others, those of its windows.
QStringList Familles()
{
    QStringList familles;
    for (const QString& famille : QFontDatabase::families(QFontDatabase::Latin)) {
        const QString nom = famille.section(" [", 0, 0);  // whoever made them
        if (familles.size() < PolicesMaximum && !familles.contains(nom) && QFontDatabase::isFixedPitch(famille) &&
            QFontDatabase::isSmoothlyScalable(famille) && !QFontDatabase::isPrivateFamily(famille))
            familles.append(nom);
    }
    const QString fenetres = QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family();
    if (!familles.contains(fenetres))
        familles.append(fenetres);
    return familles;
}

}  // namespace

MenusGeneres::MenusGeneres(QWidget& fenetre, const ActionsVue& actions, Travail& travail,
                           std::function<std::string()> media)
    : fenetre_(fenetre),
      travail_(travail),
      media_(std::move(media)),
      lecteurs_(ReveilFenetre(this, [this] { lecteurs_.Livrer(); })),
      fichiers_(ReveilFenetre(this, [this] { fichiers_.Livrer(); })),
      menuLecteurs_(Creer(actions, Commande::AjouterDepuis, &MenusGeneres::RemplirLecteurs)),
      menuBases_(Creer(actions, Commande::BasesRecentes, &MenusGeneres::RemplirBases)),
      menuCategories_(Creer(actions, Commande::CategorieMedia, &MenusGeneres::RemplirCategories)),
      menuPolices_(Creer(actions, Commande::PoliceDescription, &MenusGeneres::RemplirPolices))
{
    menuBases_->setToolTipsVisible(true);
}

MenusGeneres::~MenusGeneres()
{
    travail_.Arreter(Place::Menu);
}

QMenu* MenusGeneres::Creer(const ActionsVue& actions, Commande commande, void (MenusGeneres::*remplir)())
{
    QAction* action = actions[commande];
    auto* menu = new QMenu(action->text(), &fenetre_);
    menu->setObjectName(action->objectName() + " menu");
    action->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, remplir);
    return menu;
}

// What was seen last stands there until the drives have answered.
void MenusGeneres::RemplirLecteurs()
{
    if (menuLecteurs_->isEmpty())
        Patienter(*menuLecteurs_);
    const auto vus = std::make_shared<std::vector<LecteurVu>>();
    lecteurs_.Demander(
        [vus](const std::stop_token&) { *vus = RegarderLecteurs(); },
        [this, vus] {
            std::vector<Entree> entrees;
            for (const LecteurVu& vu : *vus)
                entrees.push_back({"&" + TexteEntree(EnQString(vu.libelle)),
                                   [this, lettre = vu.lettre] { emit lecteurChoisi(lettre); }, IconeLecteur(vu.type)});
            Poser(*menuLecteurs_, entrees);
        });
}

// Whether the files are there is asked beside the window: they may lie on a dead mount.
void MenusGeneres::RemplirBases()
{
    MontrerBases();
    const auto absentes = std::make_shared<std::set<std::string>>();
    fichiers_.Demander(
        [absentes, bases = BasesRecentes()](const std::stop_token&) {
            for (const std::string& base : bases)
                if (!FichierExiste(base))
                    absentes->insert(base);
        },
        [this, absentes] {
            absentes_ = std::move(*absentes);
            MontrerBases();
        });
}

void MenusGeneres::MontrerBases()
{
    std::vector<Entree> entrees;
    const QFontMetrics lettres = menuBases_->fontMetrics();
    for (const std::string& base : BasesRecentes()) {
        const QString chemin =
            lettres.elidedText(EnQString(base), Qt::ElideMiddle, lettres.averageCharWidth() * LargeurChemin);
        entrees.push_back({QString("&%1  ").arg(entrees.size() + 1) + TexteEntree(chemin),
                           [this, base] { emit baseChoisie(base); },
                           {},
                           true,
                           base == BaseCourante(),
                           !absentes_.contains(base),
                           EnQString(base)});
    }
    Poser(*menuBases_, entrees);
}

void MenusGeneres::RemplirCategories()
{
    Patienter(*menuCategories_);
    travail_.Executer(Place::Menu, [this] {
        const std::string media = media_();
        Base base = OuvrirBase();
        const std::string actuelle = CategorieMedia(base, media);
        std::vector<Entree> entrees;
        const int cote = fenetre_.style()->pixelMetric(QStyle::PM_SmallIconSize);
        const auto ajouter = [&](const QString& texte, const std::string& nom, const QIcon& icone) {
            entrees.push_back(
                {texte, [this, media, nom] { emit categorieChoisie(media, nom); }, icone, true, nom == actuelle});
        };
        for (const std::string& nom : CategoriesOffertes(base))
            ajouter(TexteEntree(EnQString(nom)), nom, Pastille(CouleurCategorie(nom), cote));
        entrees.push_back({});
        ajouter("&Aucune catégorie", "", {});
        Poser(*menuCategories_, entrees);
    });
}

void MenusGeneres::RemplirPolices()
{
    const QString actuelle = EnQString(GetSetting(SectionSettings, ClePoliceDescription, ""));
    std::vector<Entree> entrees;
    const auto ajouter = [&](const QString& texte, const QString& famille) {
        entrees.push_back({TexteEntree(texte),
                           [this, famille] { emit policeChoisie(famille.toStdString()); },
                           {},
                           true,
                           famille == actuelle,
                           true,
                           {},
                           famille});
    };
    ajouter("Police du bureau", "");
    entrees.push_back({});
    for (const QString& famille : Familles())
        ajouter(famille, famille);
    Poser(*menuPolices_, entrees);
}
