#include "shell/FrmExit.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

FrmExit::FrmExit(QWidget* parent) : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setWindowTitle("Velourne");
    setWindowModality(Qt::ApplicationModal);

    auto* patience = new QLabel("Veuillez patienter !");
    QFont gras = patience->font();
    gras.setBold(true);
    patience->setFont(gras);
    texte_ = new QLabel;
    texte_->setObjectName("Texte");
    barre_ = new QProgressBar;
    barre_->setRange(0, 0);
    barre_->setTextVisible(false);
    barre_->setAccessibleName("Veuillez patienter !");

    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(24, 20, 24, 20);
    mise->setSpacing(12);
    for (QLabel* etiquette : {patience, texte_}) {
        etiquette->setAlignment(Qt::AlignCenter);
        mise->addWidget(etiquette);
    }
    mise->addWidget(barre_);
}

void FrmExit::Montrer(const QString& texte, const QWidget* devant)
{
    texte_->setText(texte);
    barre_->setRange(0, 0);
    setMinimumWidth(fontMetrics().averageCharWidth() * 55);
    adjustSize();
    const QRect cadre = devant ? devant->frameGeometry() : QGuiApplication::primaryScreen()->geometry();
    move(cadre.center() - rect().center());
    show();
}

void FrmExit::Avancer(const QString& texte, double part)
{
    texte_->setText(texte);
    barre_->setRange(0, 1000);
    barre_->setValue(static_cast<int>(part * 1000));
}

void FrmExit::closeEvent(QCloseEvent* evenement)
{
    if (evenement->spontaneous())
        evenement->ignore();
}
