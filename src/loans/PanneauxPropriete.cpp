#include "loans/PanneauxPropriete.h"

#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>

#include "catalogue/Categories.h"
#include "fenetres/TextesQt.h"

namespace {

// In the order of the fields of ProprietesMedia.
constexpr const char* LibellesMedia[NombreTextesMedia] = {
    "Nom", "N° de série", "Standard", "Capacité totale", "Espace occupé ", "Espace libre ", "Identifiant"};
constexpr const char* LibellesEntree[] = {"Heure de modification", "Date de modification", "Taille du fichier",
                                          "Attribut"};

// A text of any length on one line, to be read and copied.
QLineEdit* CreerValeur(const QString& nom, const char* libelle)
{
    auto* valeur = new QLineEdit;
    valeur->setObjectName(nom);
    valeur->setAccessibleName(QString(libelle).trimmed());
    valeur->setReadOnly(true);
    valeur->setFrame(false);
    QPalette couleurs;
    couleurs.setColor(QPalette::Base, Qt::transparent);
    valeur->setPalette(couleurs);
    return valeur;
}

QPushButton* CreerBouton(const char* nom, const char* texte)
{
    auto* bouton = new QPushButton(texte);
    bouton->setObjectName(nom);
    bouton->setAccessibleName(QString(texte).remove('&').trimmed());
    bouton->setAutoDefault(true);
    return bouton;
}

// A page that is higher than the window scrolls; it is never wider.
QScrollArea* Derouler(QWidget* page)
{
    auto* zone = new QScrollArea;
    zone->setWidgetResizable(true);
    zone->setFrameShape(QFrame::NoFrame);
    zone->setFocusPolicy(Qt::NoFocus);
    zone->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zone->setMinimumWidth(page->minimumSizeHint().width() + zone->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    zone->setWidget(page);
    page->setAutoFillBackground(false);
    zone->viewport()->setAutoFillBackground(false);
    return zone;
}

}  // namespace

PanneauxPropriete::PanneauxPropriete(QDialog& fenetre) : onglet(new QTabWidget), ok(CreerBouton("OK", "  &OK"))
{
    onglet->setObjectName("Onglet");
    zoneMedia = Derouler(CreerMedia());
    onglet->addTab(zoneMedia, "&Média");
    onglet->addTab(Derouler(CreerPage(repertoire, "Rep")), "&Répertoire");
    onglet->addTab(Derouler(CreerPage(fichier, "Fic")), "&Fichier");
    ok->setDefault(true);
    auto* mise = new QVBoxLayout(&fenetre);
    mise->addWidget(onglet, 1);
    mise->addWidget(ok, 0, Qt::AlignRight);
}

QWidget* PanneauxPropriete::CreerMedia()
{
    auto* page = new QWidget;
    image = new QLabel;
    image->setObjectName("Image");
    auto* formulaire = new QFormLayout;
    for (size_t i = 0; i < medias.size(); ++i) {
        medias[i] = CreerValeur(QString("Media%1").arg(i), LibellesMedia[i]);
        formulaire->addRow(LibellesMedia[i], medias[i]);
    }
    auto* haut = new QHBoxLayout;
    haut->addWidget(image, 0, Qt::AlignTop);
    haut->addSpacing(8);
    haut->addLayout(formulaire, 1);
    auto* mise = new QVBoxLayout(page);
    mise->addLayout(haut);
    mise->addWidget(CreerPret());
    mise->addWidget(CreerCategorie());
    mise->addStretch(1);
    return page;
}

QWidget* PanneauxPropriete::CreerPret()
{
    auto* cadre = new QGroupBox("Prêt");
    pret = new QComboBox;
    pret->setObjectName("Pret");
    pret->setAccessibleName("Prêté à");
    pret->setEditable(true);
    pret->setInsertPolicy(QComboBox::NoInsert);
    pret->setDuplicatesEnabled(true);  // Enter never goes over to the first of the same name
    pret->setCompleter(nullptr);       // what is typed stays as it is typed
    pret->setMaxVisibleItems(20);
    pret->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    pret->setMinimumContentsLength(12);
    btnPret = CreerBouton("Btn_pret", "Valider &le prêt");
    auto* libelle = new QLabel("&Prêté à");
    libelle->setBuddy(pret);
    auto* mise = new QHBoxLayout(cadre);
    mise->addWidget(libelle);
    mise->addWidget(pret, 1);
    mise->addWidget(btnPret);
    return cadre;
}

QWidget* PanneauxPropriete::CreerCategorie()
{
    auto* cadre = new QGroupBox("Catégorie");
    categorie = new QLineEdit;
    categorie->setObjectName("Categorie");
    categorie->setAccessibleName("Catégorie");
    auto* libelle = new QLabel("Caté&gorie");
    libelle->setBuddy(categorie);
    ajoutCat = CreerBouton("AjoutCat", "      &Valider");
    deleteCat = CreerBouton("DeleteCat", "      &Supprimer");
    couleur = CreerBouton("Couleur", "      &Couleur");
    ajoutCat->setIcon(ajoutCat->style()->standardIcon(QStyle::SP_DialogApplyButton));
    deleteCat->setIcon(deleteCat->style()->standardIcon(QStyle::SP_TrashIcon));

    treeStyle = new QListWidget;
    treeStyle->setObjectName("TreeStyle");
    treeStyle->setAccessibleName("Liste des types");
    treeStyle->setUniformItemSizes(true);
    for (const std::string_view montre : CategoriesFixes)
        treeStyle->addItem(EnQString(montre));
    cadreTypes = new QWidget;
    auto* types = new QVBoxLayout(cadreTypes);
    types->setContentsMargins(0, 0, 0, 0);
    auto* titre = new QLabel("Liste des &types");
    titre->setBuddy(treeStyle);
    types->addWidget(titre);
    types->addWidget(treeStyle);
    cadreTypes->hide();

    auto* rangee = new QHBoxLayout;
    rangee->addWidget(libelle);
    rangee->addWidget(categorie, 1);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    for (QPushButton* bouton : {ajoutCat, couleur, deleteCat})
        boutons->addWidget(bouton);
    auto* mise = new QVBoxLayout(cadre);
    mise->addLayout(rangee);
    mise->addWidget(cadreTypes);
    mise->addLayout(boutons);
    return cadre;
}

QWidget* PanneauxPropriete::CreerPage(Page& page, const char* nom)
{
    auto* contenu = new QWidget;
    auto* formulaire = new QFormLayout;
    page.nom = CreerValeur(QString("%1Nom").arg(nom), "Nom");
    formulaire->addRow("Nom", page.nom);
    for (size_t i = 0; i < page.textes.size(); ++i) {
        page.textes[i] = CreerValeur(QString("%1%2").arg(nom).arg(i), LibellesEntree[i]);
        formulaire->addRow(LibellesEntree[i], page.textes[i]);
    }
    page.description = new QPlainTextEdit;
    page.description->setObjectName(QString("%1Description").arg(nom));
    page.description->setAccessibleName("Description");
    page.description->setReadOnly(true);
    page.description->setTabChangesFocus(true);
    page.description->setMinimumHeight(page.description->fontMetrics().height() * 4);
    page.modifDesc = CreerBouton("ModifDesc", "Modifier les &descriptions");
    page.modifDesc->hide();
    auto* mise = new QVBoxLayout(contenu);
    mise->addLayout(formulaire);
    mise->addWidget(page.description, 1);
    mise->addWidget(page.modifDesc, 0, Qt::AlignLeft);
    return contenu;
}
