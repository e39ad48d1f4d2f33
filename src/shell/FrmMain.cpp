#include "shell/FrmMain.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include "fenetres/Place.h"
#include "fenetres/Touches.h"
#include "store/ClesReglages.h"

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

FrmMain::FrmMain(QWidget* parent) : QWidget(parent, Qt::Window)
{
    setWindowTitle("Velourne");

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

    connect(boutons_[0], &QToolButton::clicked, this, &FrmMain::assistantVoulu);
    connect(boutons_[1], &QToolButton::clicked, this, &FrmMain::vueVoulue);
    boutons_[0]->setFocus();
    connect(new QShortcut(QKeySequence("Ctrl+Q"), this), &QShortcut::activated, this, &QWidget::close);
    Commenter();
    adjustSize();
    PlacerFenetre(*this, CleTopMain, CleLeftMain);
}

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

// What the buttons leave: Enter presses the one that the keyboard is on, Escape leaves.
void FrmMain::keyPressEvent(QKeyEvent* evenement)
{
    auto* bouton = qobject_cast<QToolButton*>(focusWidget());
    if (evenement->key() == Qt::Key_Escape)
        close();
    else if (bouton && EstEntree(evenement->key()))
        bouton->click();
    else
        QWidget::keyPressEvent(evenement);
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

void FrmMain::Memoriser()
{
    EnregistrerPlace(*this, CleTopMain, CleLeftMain);
}

void FrmMain::closeEvent(QCloseEvent* evenement)
{
    Memoriser();
    evenement->ignore();
    emit fermetureVoulue();
}
