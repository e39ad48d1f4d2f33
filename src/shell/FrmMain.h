#pragma once

#include <QWidget>

class QLabel;
class QToolButton;

// The start window, which leads to the two activities: reading a media and viewing the catalogue.
class FrmMain : public QWidget {
    Q_OBJECT

public:
    explicit FrmMain(QWidget* parent = nullptr);

    // Keeps the window's place.
    void Memoriser();

signals:
    void assistantVoulu();   // first button
    void vueVoulue();        // second button
    void fermetureVoulue();  // the window is to be closed; it stays until somebody ends the program

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QToolButton* CreerBouton(const QString& nom, const QString& texte, const char* image);
    void Commenter();

    QToolButton* boutons_[2];
    QLabel* commentaire_;
};
