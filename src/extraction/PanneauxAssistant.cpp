#include "extraction/PanneauxAssistant.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "extraction/Animation.h"
#include "extraction/FiltreFichiers.h"
#include "extraction/RangeeOnglets.h"
#include "fenetres/Etiquette.h"

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
    auto* mise = new QVBoxLayout(&fenetre);
    mise->addWidget(CreerMedias());
    mise->addLayout(corps);
    mise->addWidget(CreerAvancement());
    mise->addWidget(CreerDetails(), 1);
    mise->addStretch();
    mise->addWidget(CreerBarre());
}

QWidget* PanneauxAssistant::CreerMedias()
{
    medias = new QGroupBox("Médias");
    menu = new RangeeOnglets("Aucun support amovible");
    menu->setObjectName("Menu");
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
    grille->addWidget(catalogue, 0, 2);
    const char* textes[] = {"N° de série", "Standard", "Type", "Capacité total ", "Espace occupé ", "Espace libre "};
    for (int rang = 0; rang < 6; ++rang) {
        valeurs[rang] = new QLabel;
        valeurs[rang]->setObjectName(QString("Information%1").arg(rang));
        valeurs[rang]->setTextFormat(Qt::PlainText);
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
    repertoires = new QLabel;
    repertoires->setObjectName("Repertoires");
    fichiers = new QLabel;
    fichiers->setObjectName("Fichiers");
    descriptions = new QLabel;
    descriptions->setObjectName("Descriptions");
    int colonne = 1;
    for (QLabel* compteur : {repertoires, fichiers, descriptions}) {
        // Room for large numbers from the start, so that the window does not grow while they do.
        const QString etalon =
            compteur == descriptions ? " 9999999 description(s) extraite(s)" : " 9999999 Répertoire(s) ...";
        compteur->setMinimumWidth(compteur->fontMetrics().horizontalAdvance(etalon));
        grille->addWidget(compteur, 0, colonne);
        grille->setColumnStretch(colonne++, 1);
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
    for (const FiltreFichiers& filtre : FiltresFichiers())
        listeExtensions->addItem(QString::fromStdString(filtre.nom));
    liste = new QListWidget;
    liste->setObjectName("Liste");
    liste->setAccessibleName("Contenu du média");
    liste->setUniformItemSizes(true);
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

void PanneauxAssistant::Activer(bool actif) const
{
    for (QWidget* controle :
         {static_cast<QWidget*>(medias), static_cast<QWidget*>(disques), static_cast<QWidget*>(compressions),
          static_cast<QWidget*>(listeExtensions), static_cast<QWidget*>(liste), static_cast<QWidget*>(identifiant),
          static_cast<QWidget*>(nom), barre})
        controle->setEnabled(actif);
}
