#include "listings/PanneauxImpression.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "fenetres/TextesQt.h"
#include "listings/ImprimerListing.h"

namespace {

constexpr const char* TextesOpt[NombreColonnesListing] = {"&Nom Fichier", "&Taille", "T&ype",
                                                          "&Date",        "&Heure",  "Attri&but"};
constexpr const char* TextesFormat[NombreFormatsListing] = {".t&xt", ".htm&l", ".x&ml"};

// Shows a page and nothing else: what it names is neither read from a disc nor fetched.
class Page : public QTextBrowser {
public:
    Page()
    {
        setOpenLinks(false);
        setUndoRedoEnabled(false);
    }
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

QPushButton* CreerBouton(const char* nom, const char* texte, const char* bulle)
{
    auto* bouton = new QPushButton(texte);
    bouton->setObjectName(nom);
    bouton->setToolTip(bulle);
    bouton->setAutoDefault(true);
    return bouton;
}

}  // namespace

PanneauxImpression::PanneauxImpression(QMainWindow& fenetre)
{
    auto* haut = new QHBoxLayout;
    haut->addWidget(CreerChoix(), 1);
    haut->addWidget(CreerBoutons());
    auto* centre = new QWidget;
    auto* colonne = new QVBoxLayout(centre);
    colonne->addLayout(haut);
    colonne->addWidget(CreerApercu(), 1);
    fenetre.setCentralWidget(centre);
    CreerStatut(fenetre);
}

QWidget* PanneauxImpression::CreerChoix()
{
    lMedias = new QComboBox;
    lMedias->setObjectName("LMedias");
    lMedias->setAccessibleName("Médias");
    lMedias->setMaxVisibleItems(20);
    lMedias->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lMedias->setMinimumContentsLength(24);
    auto* libelle = new QLabel("M&édias :");
    libelle->setBuddy(lMedias);
    auto* medias = new QHBoxLayout;
    medias->addWidget(libelle);
    medias->addWidget(lMedias, 1);

    auto* colonnes = new QGroupBox("Informations");
    auto* rangee = new QHBoxLayout(colonnes);
    for (int i = 0; i < NombreColonnesListing; ++i) {
        opt[i] = new QCheckBox(TextesOpt[i]);
        opt[i]->setObjectName(QString("Opt%1").arg(i));
        rangee->addWidget(opt[i]);
    }
    rangee->addStretch(1);
    auto* formats = new QGroupBox("Format");
    auto* boutons = new QHBoxLayout(formats);
    for (int i : {0, 2, 1}) {
        optFormat[i] = new QRadioButton(TextesFormat[i]);
        optFormat[i]->setObjectName(QString("OptFormat%1").arg(i));
        boutons->addWidget(optFormat[i]);
    }
    boutons->addStretch(1);

    auto* cadre = new QWidget;
    auto* colonne = new QVBoxLayout(cadre);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->addLayout(medias);
    colonne->addWidget(colonnes);
    colonne->addWidget(formats);
    return cadre;
}

QWidget* PanneauxImpression::CreerBoutons()
{
    ok = CreerBouton("OK", "", "");
    ok->setCursor(Qt::ArrowCursor);
    ouvrir = CreerBouton("Ouvrir", "Ou&vrir", " Ouvrir le listing avec le programme du bureau ");
    imprimer = CreerBouton("Imprimer", "&Imprimer ...", " Imprimer le listing ");
    pdf = CreerBouton("PDF", "PD&F ...", " Enregistrer le listing dans un fichier PDF ");
    catalogue = CreerBouton("Catalogue", "C&atalogue", " Revenir au catalogue ");
    auto* cadre = new QWidget;
    auto* colonne = new QVBoxLayout(cadre);
    colonne->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* bouton : {ok, ouvrir, imprimer, pdf, catalogue})
        colonne->addWidget(bouton);
    colonne->addStretch(1);
    return cadre;
}

QWidget* PanneauxImpression::CreerApercu()
{
    avis = new QLabel;
    avis->setObjectName("Avis");
    texte = new QPlainTextEdit;
    texte->setObjectName("Texte");
    texte->setAccessibleName("Aperçu du listing");
    texte->setReadOnly(true);
    texte->setUndoRedoEnabled(false);
    texte->setLineWrapMode(QPlainTextEdit::NoWrap);
    texte->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    page = new Page;
    page->setObjectName("Page");
    page->setAccessibleName("Aperçu du listing");
    // The colours of the page are made for white paper.
    QPalette papier = page->palette();
    papier.setColor(QPalette::Base, Qt::white);
    papier.setColor(QPalette::Text, Qt::black);
    page->setPalette(papier);
    apercu = new QStackedWidget;
    apercu->addWidget(texte);
    apercu->addWidget(page);

    auto* cadre = new QWidget;
    auto* colonne = new QVBoxLayout(cadre);
    colonne->setContentsMargins(0, 0, 0, 0);
    colonne->addWidget(avis);
    colonne->addWidget(apercu, 1);
    return cadre;
}

void PanneauxImpression::CreerStatut(QMainWindow& fenetre)
{
    commentaire = new QLabel;
    commentaire->setObjectName("Commentaire");
    commentaire->setTextFormat(Qt::PlainText);
    barre = new QProgressBar;
    barre->setObjectName("Progression");
    barre->setAccessibleName("Progression");
    barre->setRange(0, 1000);
    barre->setTextVisible(false);
    barre->setMaximumWidth(220);
    fenetre.statusBar()->addWidget(commentaire, 1);
    fenetre.statusBar()->addPermanentWidget(barre);
}

void PanneauxImpression::Montrer(FormatListing format, const ApercuListing& contenu)
{
    Vider();
    if (format == FormatListing::HTML) {
        page->setHtml(PageListing(contenu));
        apercu->setCurrentWidget(page);
    } else {
        texte->setPlainText(EnLignes(contenu.texte));
    }
    avis->setText("Seul le début du listing est montré ici.");
    avis->setVisible(!contenu.entier);
}

void PanneauxImpression::Vider()
{
    texte->clear();
    page->clear();
    apercu->setCurrentWidget(texte);
    avis->hide();
}
