#include "fenetres/BoitesDialogue.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace {

bool OuiOuNon(const std::string& question, const std::string& titre, bool ouiParDefaut)
{
    QMessageBox boite(QMessageBox::Question, QString::fromStdString(titre), QString::fromStdString(question),
                      QMessageBox::NoButton, QApplication::activeWindow());
    boite.setTextFormat(Qt::PlainText);
    QPushButton* oui = boite.addButton("&Oui", QMessageBox::YesRole);
    QPushButton* non = boite.addButton("&Non", QMessageBox::NoRole);
    boite.setDefaultButton(ouiParDefaut ? oui : non);
    boite.setEscapeButton(non);
    boite.exec();
    return boite.clickedButton() == oui;
}

}  // namespace

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
    return OuiOuNon(question, titre, true);
}

bool BoitesDialogue::DemanderAvantPerte(const std::string& question, const std::string& titre)
{
    return OuiOuNon(question, titre, false);
}

std::string BoitesDialogue::ChoisirFichier(const DemandeFichier& demande)
{
    QFileDialog dialogue(QApplication::activeWindow(), QString::fromStdString(demande.titre));
    dialogue.setNameFilter(QString::fromStdString(demande.filtre));
    dialogue.setAcceptMode(demande.ecrire ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialogue.setFileMode(demande.ecrire ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialogue.setOption(QFileDialog::DontConfirmOverwrite, !demande.confirmer);
    dialogue.setDefaultSuffix(QString::fromStdString(demande.suffixe));
    const QFileInfo depart(QString::fromStdString(demande.depart));
    dialogue.setDirectory(depart.isDir() ? depart.absoluteFilePath() : depart.absolutePath());
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty())
        return {};
    return dialogue.selectedFiles().first().toStdString();
}

std::string BoitesDialogue::ChoisirDossier(const std::string& titre)
{
    return QFileDialog::getExistingDirectory(QApplication::activeWindow(), QString::fromStdString(titre)).toStdString();
}
