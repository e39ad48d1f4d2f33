#include "audiocd/OngletFreedb.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "audiocd/CataloguerCDAudio.h"
#include "audiocd/ConfigurationCddb.h"
#include "fenetres/Etiquette.h"
#include "fenetres/TextesQt.h"
#include "store/Reglages.h"

namespace {

QCheckBox* CreerCase(const InterrupteurFreedb& interrupteur, int rang)
{
    auto* boite = new QCheckBox(EnQString(interrupteur.texte));
    boite->setObjectName(QString("Freedb%1").arg(rang));
    boite->setChecked(interrupteur.lire());
    QObject::connect(boite, &QCheckBox::clicked, boite,
                     [ecrire = interrupteur.ecrire](bool active) { ecrire(active); });
    return boite;
}

// A line of text kept under a key of "Settings" at each change.
QLineEdit* CreerLigne(std::string_view cle)
{
    auto* ligne = new QLineEdit(EnQString(GetSetting(SectionSettings, cle, "")));
    ligne->setObjectName(EnQString(cle));
    QObject::connect(ligne, &QLineEdit::textEdited, ligne,
                     [cle](const QString& texte) { SaveSetting(SectionSettings, cle, texte.toStdString()); });
    return ligne;
}

}  // namespace

OngletFreedb::OngletFreedb(const std::array<InterrupteurFreedb, 2>& interrupteurs, MachineCD& machine,
                           Dialogues& dialogues, QWidget* parent)
    : QWidget(parent), dialogues_(dialogues), choix_(this), freedb_(machine, choix_)
{
    auto* mise = new QVBoxLayout(this);
    mise->addWidget(CreerServeur());
    mise->addWidget(CreerBaseLocale(interrupteurs[0]));
    mise->addWidget(CreerProxy(interrupteurs[1]));
    mise->addStretch(1);
    setFocusProxy(boutonServeur_);
    // Room for the names of servers and folders, which ask for none themselves.
    for (QWidget* ligne : {serveur_, dossier_})
        ligne->setMinimumWidth(fontMetrics().averageCharWidth() * 45);
    Montrer();
}

OngletFreedb::~OngletFreedb()
{
    fil_ = {};  // asks for the stop and waits
}

QWidget* OngletFreedb::CreerServeur()
{
    auto* groupe = new QGroupBox("Serveur");
    serveur_ = new Etiquette;
    serveur_->setObjectName("Serveur");
    boutonServeur_ = new QPushButton;
    boutonServeur_->setObjectName("FreeServeur");
    boutonServeur_->setAutoDefault(false);
    connect(boutonServeur_, &QPushButton::clicked, this, &OngletFreedb::DemanderServeurs);
    auto* mise = new QHBoxLayout(groupe);
    mise->addWidget(serveur_, 1);
    mise->addWidget(boutonServeur_);
    return groupe;
}

QWidget* OngletFreedb::CreerBaseLocale(const InterrupteurFreedb& interrupteur)
{
    auto* groupe = new QGroupBox("Base locale");
    dossier_ = new Etiquette;
    dossier_->setObjectName("BaseLocale");
    dossier_->setAccessibleName("Dossier de la base locale");
    auto* bouton = new QPushButton("&Parcourir…");
    bouton->setObjectName("DossierBaseLocale");
    bouton->setAutoDefault(false);
    connect(bouton, &QPushButton::clicked, this, &OngletFreedb::ChoisirDossier);
    auto* ligne = new QHBoxLayout;
    ligne->addWidget(dossier_, 1);
    ligne->addWidget(bouton);
    auto* mise = new QVBoxLayout(groupe);
    mise->addWidget(CreerCase(interrupteur, 0));
    mise->addLayout(ligne);
    return groupe;
}

QWidget* OngletFreedb::CreerProxy(const InterrupteurFreedb& interrupteur)
{
    auto* groupe = new QGroupBox("Proxy");
    auto* motDePasse = CreerLigne(ClePassProxy);
    motDePasse->setEchoMode(QLineEdit::Password);
    auto* mise = new QFormLayout(groupe);
    mise->addRow(CreerCase(interrupteur, 1));
    mise->addRow("&Utilisateur :", CreerLigne(CleUserNameProxy));
    mise->addRow("&Mot de passe :", motDePasse);
    return groupe;
}

void OngletFreedb::Montrer()
{
    serveur_->setText(EnQString("Serveur actuel : " + GetSetting(SectionFreedb, CleServeur, ServeurCddbParDefaut)));
    const std::string dossier = GetSetting(SectionFreedb, CleBaseLocale, "");
    dossier_->setText(dossier.empty() ? "Aucun dossier" : EnQString(dossier));
    boutonServeur_->setText(enCours_ ? "&Abandonner" : "Choisir un &serveur…");
}

void OngletFreedb::ChoisirDossier()
{
    const std::string dossier = dialogues_.ChoisirDossier("Dossier de la base locale");
    if (dossier.empty())
        return;
    SaveSetting(SectionFreedb, CleBaseLocale, dossier);
    Montrer();
}

// Pressed again, it gives up.
void OngletFreedb::DemanderServeurs()
{
    if (enCours_) {
        fil_.request_stop();
        return;
    }
    enCours_ = true;
    Montrer();
    const QPoint coin = boutonServeur_->mapToGlobal(QPoint());
    InitUFreedb(freedb_, coin.y(), coin.x());
    fil_ = std::jthread([this](const std::stop_token& arret) {
        const int nombre = freedb_.GetServerSites(arret);
        QMetaObject::invokeMethod(
            this, [this, nombre, arrete = arret.stop_requested()] { RecevoirServeurs(nombre, arrete); },
            Qt::QueuedConnection);
    });
}

void OngletFreedb::RecevoirServeurs(int nombre, bool arrete)
{
    fil_.join();
    enCours_ = false;
    Montrer();
    if (arrete)
        return;
    if (nombre < 1)
        dialogues_.Informer("Aucun serveur n'est disponible.");
    else
        freedb_.GetServer(0);
    Montrer();
}
