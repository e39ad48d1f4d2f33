#include "loans/FrmPret.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>

#include "fenetres/TextesQt.h"
#include "fenetres/Touches.h"

namespace {

QListWidget* CreerListe(const char* nom, const char* accessible)
{
    auto* liste = new QListWidget;
    liste->setObjectName(nom);
    liste->setAccessibleName(accessible);
    liste->setUniformItemSizes(true);
    liste->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    liste->setMinimumHeight(liste->fontMetrics().height() * 4);
    // A list that takes the keyboard has a current row; it shows which.
    QObject::connect(liste, &QListWidget::currentItemChanged, liste, [](QListWidgetItem* ligne) {
        if (ligne)
            ligne->setSelected(true);
    });
    return liste;
}

QGroupBox* CreerCadre(const char* titre, QWidget* contenu, QWidget* bouton)
{
    auto* cadre = new QGroupBox(titre);
    auto* mise = new QVBoxLayout(cadre);
    mise->addWidget(contenu, 1);
    mise->addWidget(bouton, 0, Qt::AlignRight);
    return cadre;
}

std::string NumeroDe(const QListWidgetItem* ligne)
{
    return ligne->data(Qt::UserRole).toString().mid(1).toStdString();
}

// A list shows one line of each text, whole in its tip.
void Montrer(QListWidgetItem& ligne, const std::string& texte)
{
    const QString montre = EnQString(texte).simplified();
    ligne.setText(EnQString(texte));
    ligne.setToolTip(montre.size() > 60 ? "<p>" + montre.left(1000).toHtmlEscaped() + "</p>" : QString());
}

void Remplir(QListWidget& liste, const std::vector<LignePret>& lignes)
{
    liste.clear();
    for (const LignePret& ligne : lignes) {
        auto* item = new QListWidgetItem(&liste);
        item->setData(Qt::UserRole, EnQString(ligne.cle));
        Montrer(*item, ligne.texte);
    }
}

}  // namespace

FrmPret::FrmPret(Dialogues& dialogues, Travail& travail, QWidget* parent)
    : DialogueBase(travail, parent),
      dialogues_(dialogues),
      personnes_(CreerListe("Personne", "Liste des emprunteurs")),
      prets_(CreerListe("Pret", "Liste des prêts")),
      supprimerPersonne_(new QPushButton("      Per&sonne")),
      supprimerPret_(new QPushButton("    Prê&t"))
{
    setWindowTitle("Gestion des prêts");
    Disposer();
    connect(personnes_, &QListWidget::currentItemChanged, this, &FrmPret::MontrerPersonne);
    connect(prets_, &QListWidget::currentItemChanged, this, &FrmPret::Activer);
    connect(supprimerPersonne_, &QPushButton::clicked, this, &FrmPret::SupprimerPersonne);
    connect(supprimerPret_, &QPushButton::clicked, this, &FrmPret::SupprimerPret);
    Activer();
    Agir([this] { RechercherPersonnes(); });
}

void FrmPret::Disposer()
{
    const std::pair<QPushButton*, const char*> boutons[] = {
        {supprimerPersonne_, " Supprimer cette personne de la liste "},
        {supprimerPret_, " Retirer ce prêt de la liste "}};
    for (size_t i = 0; i < std::size(boutons); ++i) {
        const auto& [bouton, bulle] = boutons[i];
        bouton->setObjectName(QString("Bouton%1").arg(i));
        bouton->setIcon(style()->standardIcon(QStyle::SP_TrashIcon));
        bouton->setToolTip(bulle);
        bouton->setAccessibleName(QString(bulle).trimmed());
        bouton->setAutoDefault(true);
    }

    auto* informations = new QGroupBox(" Informations ");
    auto* formulaire = new QFormLayout(informations);
    const char* libelles[] = {"&Nom", "&Prénom", "&Adresse", "E-&mail"};
    for (size_t i = 0; i < saisies_.size(); ++i) {
        saisies_[i] = new QLineEdit;
        saisies_[i]->setObjectName(QString("Saisie%1").arg(i));
        saisies_[i]->installEventFilter(this);
        formulaire->addRow(libelles[i], saisies_[i]);
    }
    auto* aide = new QLabel("La touche Entrée enregistre ces informations.");
    aide->setWordWrap(true);
    aide->setForegroundRole(QPalette::PlaceholderText);
    formulaire->addRow(aide);
    for (QListWidget* liste : {personnes_, prets_})
        liste->installEventFilter(this);

    auto* fermer = new QPushButton("&Fermer");
    fermer->setObjectName("Fermer");
    fermer->setDefault(true);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);

    auto* grille = new QGridLayout(this);
    grille->addWidget(CreerCadre(" Liste des &emprunteurs ", personnes_, supprimerPersonne_), 0, 0);
    grille->addWidget(CreerCadre(" &Liste des prêts ", prets_, supprimerPret_), 0, 1);
    grille->addWidget(informations, 1, 0, 1, 2);
    grille->addWidget(fermer, 2, 0, 1, 2, Qt::AlignRight);
    grille->setRowStretch(0, 1);
    grille->setColumnStretch(0, 1);
    grille->setColumnStretch(1, 1);
    resize(QSize(600, 480).expandedTo(minimumSizeHint()));
    personnes_->setFocus();
}

void FrmPret::RechercherPersonnes()
{
    Remplir(*personnes_, ::RechercherPersonnes());
    personnes_->setCurrentRow(0);
}

void FrmPret::MontrerPersonne()
{
    const QListWidgetItem* ligne = personnes_->currentItem();
    if (!ligne) {
        for (QLineEdit* saisie : saisies_)
            saisie->clear();
        prets_->clear();
        Activer();
        return;
    }
    Agir([this, numero = NumeroDe(ligne)] {
        const Personne personne = RechercherUnePersonne(numero).value_or(Personne());
        for (size_t i = 0; i < saisies_.size(); ++i)
            saisies_[i]->setText(EnQString(personne[i]));
        Remplir(*prets_, RechercherPrets(numero));
        Activer();
    });
}

void FrmPret::Activer()
{
    const bool personne = personnes_->currentItem() != nullptr;
    for (QLineEdit* saisie : saisies_)
        saisie->setEnabled(personne);
    supprimerPersonne_->setEnabled(personne);
    supprimerPret_->setEnabled(prets_->currentItem() != nullptr);
}

void FrmPret::MajPersonne()
{
    QListWidgetItem* ligne = personnes_->currentItem();
    if (!ligne)
        return;
    Personne personne;
    for (size_t i = 0; i < saisies_.size(); ++i)
        personne[i] = saisies_[i]->text().toStdString();
    Agir([this, ligne, personne] {
        if (const auto texte = ::MajPersonne(NumeroDe(ligne), personne))
            Montrer(*ligne, *texte);
    });
}

void FrmPret::SupprimerPersonne()
{
    QListWidgetItem* ligne = personnes_->currentItem();
    if (!ligne || !dialogues_.DemanderAvantPerte("Voulez-vous réellement supprimer cette personne de la liste ?"))
        return;
    Agir([ligne] {
        if (DeletePersonne(NumeroDe(ligne)))
            delete ligne;
    });
}

void FrmPret::SupprimerPret()
{
    QListWidgetItem* ligne = prets_->currentItem();
    if (!ligne || !dialogues_.DemanderAvantPerte("Voulez-vous réellement retirer ce prêt de la liste ?"))
        return;
    Agir([ligne] {
        if (DeletePret(NumeroDe(ligne)))
            delete ligne;
    });
}

// Enter writes from any field; in a list it closes nothing.
bool FrmPret::eventFilter(QObject* objet, QEvent* evenement)
{
    if (evenement->type() != QEvent::KeyPress)
        return DialogueBase::eventFilter(objet, evenement);
    const int touche = static_cast<QKeyEvent*>(evenement)->key();
    if (!EstEntree(touche))
        return DialogueBase::eventFilter(objet, evenement);
    if (objet != personnes_ && objet != prets_)
        MajPersonne();
    return true;
}
