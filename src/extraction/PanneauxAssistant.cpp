#include "extraction/PanneauxAssistant.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include "commun/Formes.h"
#include "extraction/Animation.h"
#include "extraction/CourseMedia.h"
#include "extraction/FiltreFichiers.h"
#include "extraction/RangeeOnglets.h"
#include "fenetres/Etiquette.h"
#include "fenetres/TextesQt.h"

namespace {

struct TexteCompression {
    const char* libelle;
    const char* bulle;
};
constexpr TexteCompression Compressions[] = {
    {"Lecture des fichiers .&ZIP", " Inclure l'extraction des informations contenues dans les fichiers .ZIP "},
    {"Lecture des fichiers .AR&J", " Inclure l'extraction des informations contenues dans les fichiers .ARJ "},
    {"Lecture des fichiers .&LHA,.LZH",
     " Inclure l'extraction des informations contenues dans les fichiers .LHA et .LZH "},
    {"Lecture des &fichiers .RAR", " Inclure l'extraction des informations contenues dans les fichiers .RAR "},
};

void Garder(QWidget* controle)
{
    // Keeps its place while it is hidden, so that nothing jumps when a run starts or ends.
    QSizePolicy politique = controle->sizePolicy();
    politique.setRetainSizeWhenHidden(true);
    controle->setSizePolicy(politique);
    controle->hide();
}

}  // namespace

PanneauxAssistant::PanneauxAssistant(QWidget& fenetre)
{
    auto* corps = new QHBoxLayout;
    corps->setSpacing(16);
    corps->addWidget(CreerInformations(), 3);
    corps->addWidget(CreerSaisies(), 2);
    contenu_ = new QWidget;
    auto* mise = new QVBoxLayout(contenu_);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(CreerMedias());
    mise->addLayout(corps);
    mise->addWidget(CreerAvancement());
    mise->addWidget(CreerDetails(), 1);
    mise->addStretch();

    // Scrolls where the screen is too small for it, or the letters are too large.
    auto* zone = new QScrollArea;
    zone->setFrameShape(QFrame::NoFrame);
    zone->setWidgetResizable(true);
    zone->setFocusPolicy(Qt::NoFocus);
    zone->setMinimumSize(400, 200);
    zone->setWidget(contenu_);
    contenu_->setAutoFillBackground(false);
    zone->viewport()->setAutoFillBackground(false);
    auto* tout = new QVBoxLayout(&fenetre);
    tout->addWidget(zone, 1);
    tout->addWidget(CreerBarre());
    // Enter presses the button that has the focus, as in a dialog.
    for (auto* presse : fenetre.findChildren<QPushButton*>())
        presse->setAutoDefault(true);
}

QWidget* PanneauxAssistant::CreerMedias()
{
    medias = new QGroupBox("Médias");
    menu = new RangeeOnglets("Aucun lecteur");
    menu->setObjectName("Menu");
    menu->setAccessibleName("Médias");
    actualiser = new QPushButton("Act&ualiser");
    actualiser->setObjectName("Actualiser");
    dossier = new QPushButton("Dos&sier…");
    dossier->setObjectName("Dossier");
    dossier->setToolTip(" Cliquer ICI pour choisir un dossier comme lecteur ");

    auto* mise = new QHBoxLayout(medias);
    mise->addWidget(menu, 1);
    mise->addWidget(actualiser);
    mise->addWidget(dossier);
    return medias;
}

QWidget* PanneauxAssistant::CreerInformations()
{
    auto* cadre = new QWidget;
    auto* grille = new QGridLayout(cadre);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->setHorizontalSpacing(12);
    grille->setColumnStretch(2, 1);
    image = new QLabel;
    image->setFixedSize(56, 56);
    grille->addWidget(image, 0, 0, 3, 1, Qt::AlignTop);

    grille->addWidget(new QLabel("Catalogue :"), 0, 1);
    catalogue = new Etiquette;
    catalogue->setObjectName("Catalogue");
    grille->addWidget(catalogue, 0, 2);
    const char* textes[] = {"N° de série", "Standard", "Type", "Capacité total ", "Espace occupé ", "Espace libre "};
    for (int rang = 0; rang < 6; ++rang) {
        valeurs[rang] = new QLabel;
        valeurs[rang]->setObjectName(QString("Information%1").arg(rang));
        valeurs[rang]->setTextFormat(Qt::PlainText);
        valeurs[rang]->setAccessibleDescription(textes[rang]);
        grille->addWidget(new QLabel(textes[rang]), rang + 1, 1);
        grille->addWidget(valeurs[rang], rang + 1, 2);
    }
    return cadre;
}

QWidget* PanneauxAssistant::CreerSaisies()
{
    auto* cadre = new QWidget;
    auto* mise = new QVBoxLayout(cadre);
    mise->setContentsMargins(0, 0, 0, 0);
    const auto ajouter = [&](const char* texte, const char* objet) {
        auto* etiquette = new QLabel(texte);
        auto* boite = new QLineEdit;
        boite->setObjectName(objet);
        boite->setAccessibleName(QString(texte).remove('&'));
        etiquette->setBuddy(boite);
        mise->addWidget(etiquette);
        mise->addWidget(boite);
        return boite;
    };
    identifiant = ajouter("&Identifiant", "Identifiant");
    identifiant->setMaxLength(255);
    nom = ajouter("&Nom", "Label");
    nom->setMaxLength(254);  // a number as a name is stored with "_" in front

    ok = new QPushButton;
    ok->setObjectName("OK");
    ok->setCheckable(true);
    ok->setMinimumHeight(40);
    mise->addStretch(1);
    mise->addWidget(ok);
    return cadre;
}

QWidget* PanneauxAssistant::CreerAvancement()
{
    auto* cadre = new QWidget;
    auto* grille = new QGridLayout(cadre);
    grille->setContentsMargins(0, 0, 0, 0);
    animation = new Animation;
    grille->addWidget(animation, 0, 0, 2, 1);
    // They ask for no width, so that large numbers do not make the window grow.
    repertoires = new Etiquette;
    repertoires->setObjectName("Repertoires");
    fichiers = new Etiquette;
    fichiers->setObjectName("Fichiers");
    descriptions = new Etiquette;
    descriptions->setObjectName("Descriptions");
    int colonne = 1;
    for (Etiquette* compteur : {repertoires, fichiers, descriptions}) {
        grille->addWidget(compteur, 0, colonne);
        grille->setColumnStretch(colonne++, compteur == descriptions ? 4 : 3);
        Garder(compteur);
    }

    progression = new QProgressBar;
    progression->setRange(0, PleineBarre);
    progression->setTextVisible(false);
    progression->setAccessibleName("Progression");
    grille->addWidget(progression, 1, 1, 1, 3);
    pourcentage = new QLabel("100,00 %");
    pourcentage->setObjectName("Pourcentage");
    pourcentage->setMinimumWidth(pourcentage->sizeHint().width());
    pourcentage->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grille->addWidget(pourcentage, 1, 4);
    Garder(progression);
    Garder(pourcentage);
    ligne = new Etiquette;
    ligne->setObjectName("Ligne");
    grille->addWidget(ligne, 2, 0, 1, 5);
    return cadre;
}

QWidget* PanneauxAssistant::CreerDetails()
{
    details = new QWidget;
    details->setObjectName("Details");
    disques = new QGroupBox("Disques ...");
    menuA = new RangeeOnglets("Aucun disque");
    menuA->setObjectName("MenuA");
    menuA->setAccessibleName("Disques");
    disques->hide();  // until there is one
    auto* rangee = new QHBoxLayout(disques);
    rangee->addWidget(menuA);

    compressions = new QGroupBox("Les options de compression");
    auto* colonne = new QVBoxLayout(compressions);
    for (int indice = 0; indice < 4; ++indice) {
        auto* choix = new QCheckBox(Compressions[indice].libelle);
        choix->setObjectName(QString("Compression%1").arg(indice));
        choix->setToolTip(Compressions[indice].bulle);
        colonne->addWidget(choix);
        compression[indice] = choix;
    }
    colonne->addStretch(1);

    listeExtensions = new QComboBox;
    listeExtensions->setObjectName("ListeExtensions");
    listeExtensions->setAccessibleName("Filtre des fichiers");
    listeExtensions->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    listeExtensions->setMinimumContentsLength(20);
    for (const FiltreFichiers& filtre : FiltresFichiers())
        listeExtensions->addItem(QString::fromStdString(filtre.nom));
    liste = new QListWidget;
    liste->setObjectName("Liste");
    liste->setAccessibleName("Contenu du média");
    liste->setUniformItemSizes(true);
    // During a run it can't be used, but it is to be read.
    QPalette couleurs = liste->palette();
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::Base})
        couleurs.setColor(QPalette::Disabled, role, couleurs.color(QPalette::Active, role));
    liste->setPalette(couleurs);
    liste->setMinimumHeight(3 * liste->fontMetrics().lineSpacing());

    auto* grille = new QGridLayout(details);
    grille->setContentsMargins(0, 0, 0, 0);
    grille->addWidget(disques, 0, 0, 1, 2);
    grille->addWidget(compressions, 1, 0, 2, 1);
    grille->addWidget(listeExtensions, 1, 1);
    grille->addWidget(liste, 2, 1);
    grille->setColumnStretch(1, 1);
    grille->setRowStretch(2, 1);
    return details;
}

QWidget* PanneauxAssistant::CreerBarre()
{
    barre = new QWidget;
    etapes = new QPushButton;
    etapes->setObjectName("Etapes");
    bouton = new QPushButton("&Catalogue");
    bouton->setObjectName("Bouton");
    bouton->setToolTip(" Cliquer ICI pour visualiser les médias mémorisés ");
    auto* mise = new QHBoxLayout(barre);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(etapes);
    mise->addStretch(1);
    mise->addWidget(bouton);
    return barre;
}

void PanneauxAssistant::MontrerAvancement(bool montrer) const
{
    for (QWidget* controle :
         {static_cast<QWidget*>(repertoires), static_cast<QWidget*>(fichiers), static_cast<QWidget*>(descriptions),
          static_cast<QWidget*>(progression), static_cast<QWidget*>(pourcentage)})
        controle->setVisible(montrer);
}

QSize PanneauxAssistant::TailleVoulue() const
{
    contenu_->layout()->activate();
    const QLayout& tout = *barre->parentWidget()->layout();
    const QMargins marges = tout.contentsMargins();
    return contenu_->minimumSizeHint() + QSize(marges.left() + marges.right(), marges.top() + marges.bottom()) +
           QSize(0, tout.spacing() + barre->sizeHint().height());
}

bool PanneauxAssistant::RemplirOnglets(const std::vector<LecteurVu>& premiers,
                                       const std::vector<LecteurVu>& seconds) const
{
    menu->Remplir(premiers);
    menuA->Remplir(seconds);
    OrdonnerTouches();
    const bool change = disques->isHidden() != seconds.empty();
    disques->setHidden(seconds.empty());
    return change;
}

// The Tab key goes as one reads; tabs made anew would come last.
void PanneauxAssistant::OrdonnerTouches() const
{
    std::vector<QWidget*> ordre;
    const auto ajouter = [&](std::initializer_list<QWidget*> controles) { ordre.insert(ordre.end(), controles); };
    for (int numero = 0; numero < menu->Nombre(); ++numero)
        ajouter({menu->Onglet(numero)});
    ajouter({actualiser, dossier, identifiant, nom, ok});
    for (int numero = 0; numero < menuA->Nombre(); ++numero)
        ajouter({menuA->Onglet(numero)});
    ordre.insert(ordre.end(), std::begin(compression), std::end(compression));
    ajouter({listeExtensions, liste, etapes, bouton});
    for (size_t rang = 1; rang < ordre.size(); ++rang)
        QWidget::setTabOrder(ordre[rang - 1], ordre[rang]);
}

void PanneauxAssistant::Suivre(const Avancement& avancement) const
{
    const CompteursExtraction& compteurs = avancement.compteurs;
    repertoires->setText(EnQString(Str(compteurs.repertoires) + " Répertoire(s) ..."));
    fichiers->setText(EnQString(Str(compteurs.fichiers) + " Fichier(s) ..."));
    descriptions->setText(EnQString(Str(compteurs.descriptions) + " description(s) extraite(s)"));
    pourcentage->setText(EnQString(avancement.pourcentage));
    progression->setRange(0, avancement.mesurable ? PleineBarre : 0);
    progression->setValue(static_cast<int>(std::clamp(avancement.part, 0.0, 1.0) * PleineBarre));
    ligne->setText(EnQString(avancement.ligne));
    liste->clear();
    for (const std::string& entree : avancement.entrees)
        liste->addItem(EnQString(entree));
    liste->scrollToBottom();
}

void PanneauxAssistant::Activer(bool actif) const
{
    for (QWidget* controle :
         {static_cast<QWidget*>(medias), static_cast<QWidget*>(disques), static_cast<QWidget*>(compressions),
          static_cast<QWidget*>(listeExtensions), static_cast<QWidget*>(liste), static_cast<QWidget*>(identifiant),
          static_cast<QWidget*>(nom), barre})
        controle->setEnabled(actif);
}
