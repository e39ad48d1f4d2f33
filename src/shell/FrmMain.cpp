#include "shell/FrmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "extraction/FrmSemiAuto.h"
#include "fenetres/Place.h"
#include "shell/FrmExit.h"
#include "shell/ProcedureSortie.h"
#include "store/ClesReglages.h"
#include "store/CycleBase.h"

namespace {

constexpr const char* Repos = "Cliquer sur un des deux boutons ci dessus pour accéder au logiciel";

QString Image(const QToolButton* bouton, bool survol)
{
    return QString(":/images/%1%2.svg").arg(bouton->property("image").toString(), survol ? "-actif" : "");
}

// A window that comes to the front gives the focus to a button by itself: only a key makes it count.
bool ParLeClavier(const QEvent& evenement)
{
    if (evenement.type() != QEvent::FocusIn)
        return evenement.type() == QEvent::KeyPress;
    const Qt::FocusReason raison = static_cast<const QFocusEvent&>(evenement).reason();
    return raison == Qt::TabFocusReason || raison == Qt::BacktabFocusReason || raison == Qt::ShortcutFocusReason;
}

}  // namespace

FrmMain::FrmMain(Dialogues& dialogues, std::function<Vue(FrmMain&)> creerVue)
    : terminer([] { QCoreApplication::exit(0); }), dialogues_(dialogues), creerVue_(std::move(creerVue))
{
    setWindowTitle("Velourne");
    InitialiserBase();
    NettoyerRestes();

    auto* entete = new QLabel("Velourne");
    QFont grande = entete->font();
    grande.setPointSizeF(grande.pointSizeF() * 2);
    grande.setBold(true);
    entete->setFont(grande);
    entete->setAlignment(Qt::AlignCenter);

    boutons_[0] = CreerBouton("Extraire", "&Ajout des Médias", "extraire");
    boutons_[0]->setAccessibleDescription("Extraire les informations du CD-ROM");
    boutons_[1] = CreerBouton("Visualiser", "&Catalogue", "visualiser");
    boutons_[1]->setAccessibleDescription("Visualiser et rechercher les informations contenues dans un CD-ROM");
    commentaire_ = new QLabel;
    commentaire_->setObjectName("Commentaire");
    commentaire_->setAlignment(Qt::AlignCenter);
    // The longest comment, so that none changes the window.
    commentaire_->setMinimumWidth(commentaire_->fontMetrics().horizontalAdvance(boutons_[1]->accessibleDescription()));

    auto* rangee = new QHBoxLayout;
    rangee->setSpacing(16);
    for (QToolButton* bouton : boutons_)
        rangee->addWidget(bouton);
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(24, 20, 24, 20);
    mise->setSpacing(16);
    mise->addWidget(entete);
    mise->addLayout(rangee, 1);
    mise->addWidget(commentaire_);

    connect(boutons_[0], &QToolButton::clicked, this, &FrmMain::OuvrirAssistant);
    connect(boutons_[1], &QToolButton::clicked, this, &FrmMain::OuvrirVue);
    Commenter();
    adjustSize();
    PlacerFenetre(*this, CleTopMain, CleLeftMain);
}

FrmMain::~FrmMain() = default;

QToolButton* FrmMain::CreerBouton(const QString& nom, const QString& texte, const char* image)
{
    auto* bouton = new QToolButton;
    bouton->setObjectName(nom);
    bouton->setText(texte);
    bouton->setAccessibleName(QString(texte).remove('&'));
    bouton->setProperty("image", image);
    bouton->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bouton->setIconSize({96, 96});
    bouton->setFocusPolicy(Qt::StrongFocus);
    bouton->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    bouton->setMinimumSize(190, 150);
    bouton->installEventFilter(this);
    return bouton;
}

bool FrmMain::eventFilter(QObject* objet, QEvent* evenement)
{
    switch (evenement->type()) {
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::KeyPress: {
            auto* bouton = static_cast<QToolButton*>(objet);
            bouton->setProperty("survol", evenement->type() == QEvent::Enter || (bouton->property("survol").toBool() &&
                                                                                 evenement->type() != QEvent::Leave));
            bouton->setProperty("clavier", ParLeClavier(*evenement) || (bouton->property("clavier").toBool() &&
                                                                        evenement->type() != QEvent::FocusOut));
            Commenter();
            break;
        }
        default: break;
    }
    return QWidget::eventFilter(objet, evenement);
}

// The comment of the button under the pointer, else of the one that the keyboard has reached.
void FrmMain::Commenter()
{
    QString texte;
    for (const char* raison : {"clavier", "survol"})
        for (const QToolButton* bouton : boutons_)
            if (bouton->property(raison).toBool())
                texte = bouton->accessibleDescription();
    commentaire_->setText(texte.isEmpty() ? Repos : texte);
    for (QToolButton* bouton : boutons_)
        bouton->setIcon(QIcon(Image(bouton, bouton->accessibleDescription() == texte)));
}

void FrmMain::OuvrirAssistant()
{
    hide();
    MontrerAssistant(false);
}

void FrmMain::AjouterMedias()
{
    MontrerAssistant(true);
    vue_.fenetre->hide();
}

void FrmMain::MontrerAssistant(bool depuisVue)
{
    courante_ = "FrmSemiAuto";
    assistant_ = std::make_unique<FrmSemiAuto>(dialogues_);
    assistant_->voirCatalogue = [this] {
        precedente_ = "FrmSemi";
        MontrerVue(assistant_.get());
    };
    assistant_->quitter = [this] { Quitter(assistant_.get()); };
    assistant_->fermee = [this, depuisVue] {
        if (depuisVue)
            MontrerVue(nullptr);
        else
            Revenir();
    };
    assistant_->show();
}

void FrmMain::OuvrirVue()
{
    precedente_ = "FrmMain";
    MontrerVue(this);
}

void FrmMain::MontrerVue(QWidget* depuis)
{
    FrmExit attente;
    const QRect geometrie = depuis ? depuis->geometry() : QRect();
    if (depuis)
        depuis->hide();
    attente.Montrer("Chargement en cours ...", nullptr);
    if (!vue_.fenetre)
        vue_ = creerVue_(*this);
    vue_.charger(attente);
    // The wizard hands its place over; the start window is too small to do so.
    if (depuis && depuis != this)
        vue_.fenetre->setGeometry(geometrie);
    vue_.fenetre->show();
    vue_.fenetre->raise();
    vue_.fenetre->activateWindow();
    courante_ = "FrmView";
}

void FrmMain::Revenir()
{
    courante_ = "FrmMain";
    show();
    raise();
    activateWindow();
}

bool FrmMain::FermerVue()
{
    if (quitte_)
        return true;
    if (precedente_ != "FrmMain")
        return Quitter(vue_.fenetre.get());
    Revenir();
    return true;
}

bool FrmMain::Quitter(QWidget* devant)
{
    if (!ProcedureSortie(devant, dialogues_))
        return false;
    quitte_ = true;
    terminer();
    return true;
}

void FrmMain::closeEvent(QCloseEvent* evenement)
{
    EnregistrerPlace(*this, CleTopMain, CleLeftMain);
    if (quitte_ || courante_ == "FrmView" || courante_ == "FrmSemiAuto")
        return;
    if (!Quitter(this))
        evenement->ignore();
}
