#include "fenetres/BoitesDialogue.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

void BoitesDialogue::Informer(const std::string& texte)
{
    QMessageBox boite(QMessageBox::Information, "Velourne", QString::fromStdString(texte), QMessageBox::NoButton,
                      QApplication::activeWindow());
    boite.setTextFormat(Qt::PlainText);
    boite.addButton("OK", QMessageBox::AcceptRole);
    boite.exec();
}

bool BoitesDialogue::Demander(const std::string& question, const std::string& titre)
{
    QMessageBox boite(QMessageBox::Question, QString::fromStdString(titre), QString::fromStdString(question),
                      QMessageBox::NoButton, QApplication::activeWindow());
    boite.setTextFormat(Qt::PlainText);
    QPushButton* oui = boite.addButton("&Oui", QMessageBox::YesRole);
    QPushButton* non = boite.addButton("&Non", QMessageBox::NoRole);
    boite.setDefaultButton(oui);
    boite.setEscapeButton(non);
    boite.exec();
    return boite.clickedButton() == oui;
}
