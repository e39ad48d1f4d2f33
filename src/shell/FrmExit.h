#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

// The waiting window: passive, without commands, keeps the other windows from being used while it shows.
class FrmExit : public QWidget {
public:
    explicit FrmExit(QWidget* parent = nullptr);

    // Shows it over the middle of a window, or of the screen, painted when this returns.
    void Montrer(const QString& texte, const QWidget* devant);
    // Progress text, with a share from 0 to 1; the bar runs idle before the first call.
    void Avancer(const QString& texte, double part);

protected:
    void closeEvent(QCloseEvent* evenement) override;

private:
    QLabel* texte_;
    QProgressBar* barre_;
};
