#include "browser/ReglagesVue.h"

#include <algorithm>
#include <string>

#include <QActionGroup>
#include <QHeaderView>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeView>

#include "browser/ActionsVue.h"
#include "browser/LectureListeFichiers.h"
#include "browser/PanneauxVue.h"
#include "fenetres/DelegueGrille.h"
#include "fenetres/Place.h"
#include "fenetres/PoliceEgale.h"
#include "fenetres/TextesQt.h"
#include "menus/StyleMenus.h"
#include "store/ClesReglages.h"
#include "store/Reglages.h"

namespace {

std::string CleColonne(int colonne)
{
    return std::string(DebutCleLargeur) + std::to_string(colonne + 1);
}

}  // namespace

void LireReglagesVue(const QMainWindow& fenetre, PanneauxVue& panneaux, const ActionsVue& actions, TriListe& tri)
{
    const int gauche = LirePixels(SectionSettings, ClePicSplitterLeft, 333);
    panneaux.vertical->setSizes({gauche, std::max(fenetre.width() - gauche, 100)});
    const int haut = LirePixels(SectionSettings, ClePicSplitterTop, fenetre.height() * 2 / 3);
    panneaux.horizontal->setSizes({haut, std::max(fenetre.height() - haut, 60)});

    QHeaderView* entete = panneaux.rapport->header();
    for (int i = 0; i < NombreColonnes; ++i)
        entete->resizeSection(i, LirePixels(SectionLvListView, CleColonne(i), entete->sectionSize(i)));
    if (!GetSetting(SectionLvListView, CleColonne(ColType), "").empty())
        panneaux.GarderLargeurTypes();
    tri.colonne = GetSettingEntier(SectionLvListView, CleSortKey, ColTaille, NombreColonnes - 1);
    tri.decroissant = GetSettingEntier(SectionLvListView, CleSortOrder, 0, 1) == 1;
    entete->setSortIndicator(tri.colonne, tri.decroissant ? Qt::DescendingOrder : Qt::AscendingOrder);

    const int mode = GetSettingEntier(SectionSettings, CleView, Rapport, Rapport);
    actions.Affichages()->actions().at(mode)->setChecked(true);
    panneaux.Afficher(mode);
    RelireOptionsVue(panneaux);
}

void EnregistrerReglagesVue(const QMainWindow& fenetre, const PanneauxVue& panneaux, const ActionsVue& actions)
{
    EnregistrerPlacePrincipale(fenetre);
    for (int i = 0; i < NombreColonnes; ++i)
        EcrirePixels(SectionLvListView, CleColonne(i), panneaux.rapport->header()->sectionSize(i));
    const auto mode = actions.Affichages()->actions().indexOf(actions.Affichages()->checkedAction());
    SaveSetting(SectionSettings, CleViewMode, std::to_string(mode));
}

// The order kept for the next start is the one before the click turns it round: kept, particularité 3.
void ChangerTri(TriListe& tri, int colonne)
{
    SaveSetting(SectionLvListView, CleSortKey, std::to_string(colonne));
    SaveSetting(SectionLvListView, CleSortOrder, tri.decroissant ? "1" : "0");
    tri = {colonne, !tri.decroissant};
}

// Neither grid nor gradient show before their switches were touched, although the preferences show them as on: kept,
// particularité 2.
void RelireOptionsVue(PanneauxVue& panneaux)
{
    DegraderMenus(GetSettingNombre(SectionSettings, CleOptionsDivers[1], 0) != 0);
    panneaux.description->setFont(
        PoliceEgale(panneaux.rapport->font(), EnQString(GetSetting(SectionSettings, ClePoliceDescription, ""))));
    panneaux.grille->Montrer(GetSettingNombre(SectionSettings, CleOptionsDivers[0], 0) != 0);
    panneaux.rapport->viewport()->update();
}
