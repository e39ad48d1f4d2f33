#include "loans/FrmPropriete.h"

#include <algorithm>
#include <utility>

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

#include "catalogue/Categories.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "extraction/bsDrive.h"
#include "fenetres/IconeMedia.h"
#include "fenetres/ImagesLecteur.h"
#include "fenetres/TextesQt.h"
#include "fenetres/Touches.h"
#include "loans/ChoixCouleur.h"
#include "platform/Lecteurs.h"
#include "platform/OperationsFichiers.h"
#include "store/CycleBase.h"

namespace {

constexpr int CoteImage = 32;

QPixmap ImageDuMedia(const ProprietesMedia& media)
{
    if (const QImage image = LireIcone(media.icone, CoteImage); !image.isNull())
        return QPixmap::fromImage(image.scaled(CoteImage, CoteImage, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    for (uint32_t type = LecteurAmovible; type <= LecteurMemoire; ++type)
        if (media.type == NomTypeLecteur(type))
            return IconeLecteur(type).pixmap(CoteImage, CoteImage);
    return IconeLecteur(LecteurFixe).pixmap(CoteImage, CoteImage);
}

// From its beginning, however long.
void Montrer(QLineEdit& champ, std::string_view texte)
{
    champ.setText(EnQString(texte));
    champ.setCursorPosition(0);
}

std::string NomCategorie(const QListWidgetItem& ligne)
{
    return ligne.text().trimmed().toStdString();
}

}  // namespace

FrmPropriete::FrmPropriete(Dialogues& dialogues, Travail& travail, SujetPropriete sujet, QWidget* parent)
    : DialogueBase(travail, parent), dialogues_(dialogues), sujet_(std::move(sujet)), panneaux_(*this)
{
    setWindowTitle("Propriétés");
    const int propre = static_cast<int>(sujet_.genre);
    for (int i = 1; i < NombreGenres; ++i)
        panneaux_.onglet->setTabEnabled(i, i == propre);
    const int dernier = LireOngletPropriete();
    panneaux_.onglet->setCurrentIndex(panneaux_.onglet->isTabEnabled(dernier) ? dernier : propre);
    for (QListWidgetItem* ligne : panneaux_.treeStyle->findItems("*", Qt::MatchWildcard))
        MontrerCouleur(*ligne, CouleurCategorie(NomCategorie(*ligne)));
    Relier();
    // As high as the media's tab with its list open, where the screen is.
    OuvrirTypes(false);
    const int cadre = panneaux_.ok->sizeHint().height() + panneaux_.onglet->tabBar()->sizeHint().height() + 60;
    const int page = panneaux_.zoneMedia->widget()->sizeHint().height() + panneaux_.cadreTypes->sizeHint().height();
    const int ecran = screen()->availableGeometry().height() - 40;
    resize(QSize(560, std::min(page + cadre, ecran)).expandedTo(minimumSizeHint()));
    panneaux_.onglet->tabBar()->setFocus();
    Agir([this] { Lire(); });
}

FrmPropriete::~FrmPropriete()
{
    if (iconeEcrite_)
        SupprimerFichier(CheminIconeTemporaire());
}

void FrmPropriete::Relier()
{
    connect(panneaux_.onglet, &QTabWidget::currentChanged, this, EcrireOngletPropriete);
    connect(panneaux_.ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(panneaux_.pret, &QComboBox::activated, this, [this](int rang) { emprunteur_.Choisir(rang); });
    connect(panneaux_.pret->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& texte) { emprunteur_.Taper(texte.toStdString()); });
    connect(panneaux_.btnPret, &QPushButton::clicked, this, &FrmPropriete::ValiderPret);
    connect(panneaux_.ajoutCat, &QPushButton::clicked, this, &FrmPropriete::BasculerTypes);
    connect(panneaux_.deleteCat, &QPushButton::clicked, this, [this] {
        OuvrirTypes(false);
        ValiderCategorie(" ");
    });
    connect(panneaux_.couleur, &QPushButton::clicked, this, &FrmPropriete::ChangerCouleur);
    connect(panneaux_.treeStyle, &QListWidget::itemDoubleClicked, this, &FrmPropriete::BasculerTypes);
    connect(panneaux_.treeStyle, &QListWidget::itemSelectionChanged, this, &FrmPropriete::ActiverCouleur);
    for (QWidget* widget : {static_cast<QWidget*>(panneaux_.pret), static_cast<QWidget*>(panneaux_.pret->lineEdit()),
                            static_cast<QWidget*>(panneaux_.categorie), static_cast<QWidget*>(panneaux_.treeStyle)})
        widget->installEventFilter(this);
}

void FrmPropriete::Lire()
{
    MontrerMedia(LireProprietesMedia(sujet_.media));
    MontrerEntree();
    RechercherPersonnes();
    VerifierCategorie();
}

void FrmPropriete::MontrerMedia(const ProprietesMedia& proprietes)
{
    for (size_t i = 0; i < proprietes.textes.size(); ++i)
        Montrer(*panneaux_.medias[i], proprietes.textes[i]);
    panneaux_.image->setPixmap(ImageDuMedia(proprietes));
    if (!proprietes.icone.empty())
        iconeEcrite_ = EcrireFichier(CheminIconeTemporaire(), proprietes.icone);
}

void FrmPropriete::MontrerEntree()
{
    if (sujet_.genre == GenrePropriete::Media)
        return;
    const auto& page = sujet_.genre == GenrePropriete::Fichier ? panneaux_.fichier : panneaux_.repertoire;
    const ProprietesEntree entree = LireProprietesEntree(sujet_);
    Montrer(*page.nom, entree.nom);
    const std::string* textes[] = {&entree.heure, &entree.date, &entree.taille, &entree.attribut};
    for (size_t i = 0; i < page.textes.size(); ++i)
        Montrer(*page.textes[i], *textes[i]);
    page.description->setPlainText(EnLignes(entree.description.texte));
}

void FrmPropriete::OffrirDescriptions(std::function<void()> modifier)
{
    for (QPushButton* bouton : {panneaux_.repertoire.modifDesc, panneaux_.fichier.modifDesc}) {
        bouton->show();
        connect(bouton, &QPushButton::clicked, this, [this, modifier] {
            modifier();
            Agir([this] { MontrerEntree(); });
        });
    }
}

void FrmPropriete::RechercherPersonnes()
{
    emprunteur_.Charger(sujet_.media);
    panneaux_.pret->clear();
    for (const LignePret& personne : emprunteur_.Personnes())
        panneaux_.pret->addItem(EnQString(personne.texte));
    panneaux_.pret->setCurrentIndex(emprunteur_.Rang());
    if (emprunteur_.Rang() < 0)
        panneaux_.pret->clearEditText();
}

void FrmPropriete::ValiderPret()
{
    Agir([this] {
        if (!emprunteur_.ValiderPret(sujet_.media))
            return;
        RechercherPersonnes();
        dialogues_.Informer("Le prêt est validé !");
    });
}

void FrmPropriete::VerifierCategorie()
{
    categorie_ = ::VerifierCategorie(sujet_.media);
    Montrer(*panneaux_.categorie, Trim(categorie_));
    ColorerCategorie();
}

void FrmPropriete::ColorerCategorie()
{
    QPalette couleurs;
    const QColor fond = couleurs.color(QPalette::Base);
    const QColor texte = CouleurDeTexte(CouleurCategorie(categorie_), fond);
    if (texte.isValid())
        couleurs.setColor(QPalette::Text, texte);
    panneaux_.categorie->setPalette(couleurs);
}

// A square of the colour ahead of the name; the row holds the colour.
void FrmPropriete::MontrerCouleur(QListWidgetItem& ligne, uint32_t couleur)
{
    ligne.setIcon(Pastille(couleur, fontMetrics().ascent()));
    ligne.setData(Qt::UserRole, couleur);
}

bool FrmPropriete::EnChoix() const
{
    return !panneaux_.cadreTypes->isHidden();
}

void FrmPropriete::OuvrirTypes(bool ouvrir)
{
    QListWidget* liste = panneaux_.treeStyle;
    liste->setFixedHeight(liste->sizeHintForRow(0) * liste->count() + 2 * liste->frameWidth());
    panneaux_.cadreTypes->setVisible(ouvrir);
    for (QWidget* widget : {static_cast<QWidget*>(panneaux_.pret), static_cast<QWidget*>(panneaux_.btnPret),
                            static_cast<QWidget*>(panneaux_.categorie),
                            static_cast<QWidget*>(panneaux_.onglet->tabBar()), static_cast<QWidget*>(panneaux_.ok)})
        widget->setEnabled(!ouvrir);
    liste->setCurrentItem(nullptr);
    const QString voulue = panneaux_.categorie->text().trimmed();
    for (int rang = 0; ouvrir && rang < liste->count(); ++rang)
        if (liste->item(rang)->text().trimmed() == voulue)
            liste->setCurrentRow(rang);
    ActiverCouleur();
    if (ouvrir)
        QTimer::singleShot(0, this, [this] { panneaux_.zoneMedia->ensureWidgetVisible(panneaux_.ajoutCat); });
    (ouvrir ? static_cast<QWidget*>(liste) : panneaux_.categorie)->setFocus();
}

// The button shows the colour that it would change.
void FrmPropriete::ActiverCouleur()
{
    const QList<QListWidgetItem*> choisies = panneaux_.treeStyle->selectedItems();
    panneaux_.couleur->setEnabled(!choisies.isEmpty());
    panneaux_.couleur->setIcon(choisies.isEmpty() ? QIcon() : choisies.first()->icon());
}

void FrmPropriete::BasculerTypes()
{
    if (!EnChoix()) {
        OuvrirTypes(true);
        return;
    }
    const QList<QListWidgetItem*> choisies = panneaux_.treeStyle->selectedItems();
    const std::string categorie =
        choisies.isEmpty() ? panneaux_.categorie->text().toStdString() : NomCategorie(*choisies.first());
    OuvrirTypes(false);
    ValiderCategorie(categorie);
}

void FrmPropriete::ValiderCategorie(const std::string& categorie)
{
    Agir([this, categorie] {
        const std::optional<CouleursMedia> couleurs = ChangerCategorie(sujet_.media, categorie);
        if (!couleurs)
            return;
        VerifierCategorie();
        emit couleursChangees({EnQString(sujet_.media).toLongLong()}, couleurs->avant, couleurs->apres);
    });
}

void FrmPropriete::ChangerCouleur()
{
    const QList<QListWidgetItem*> choisies = panneaux_.treeStyle->selectedItems();
    if (choisies.isEmpty())
        return;
    QListWidgetItem* ligne = choisies.first();
    const std::optional<uint32_t> couleur = ChoisirCouleur(ligne->data(Qt::UserRole).toUInt(), this);
    if (!couleur)
        return;
    Agir([this, ligne, couleur] {
        const std::string nom = NomCategorie(*ligne);
        const uint32_t avant = CouleurCategorie(nom);
        EcrireCouleurCategorie(nom, *couleur);
        MontrerCouleur(*ligne, *couleur);
        ActiverCouleur();
        ColorerCategorie();
        Base base = OuvrirBase();
        emit couleursChangees(MediasDeCategorie(base, nom), avant, *couleur);
    });
}

// Leaves the choice of a category first, without taking one.
void FrmPropriete::reject()
{
    if (EnChoix())
        OuvrirTypes(false);
    else
        DialogueBase::reject();
}

// Enter in a field does what the field is for and never closes the window. The first arrow in the list of categories
// takes the row that it stands on.
bool FrmPropriete::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() != QEvent::KeyPress)
        return DialogueBase::eventFilter(objet, evenement);
    const int touche = static_cast<QKeyEvent*>(evenement)->key();
    QListWidget* liste = panneaux_.treeStyle;
    if (objet == liste && (touche == Qt::Key_Down || touche == Qt::Key_Up) && liste->selectedItems().isEmpty() &&
        liste->currentItem()) {
        liste->currentItem()->setSelected(true);
        return true;
    }
    if (!EstEntree(touche))
        return DialogueBase::eventFilter(objet, evenement);
    if (objet == panneaux_.pret || objet == panneaux_.pret->lineEdit())
        ValiderPret();
    else
        BasculerTypes();
    return true;
}
