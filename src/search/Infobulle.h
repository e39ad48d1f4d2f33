#pragma once

#include <QFrame>
#include <QTimer>

class QPlainTextEdit;

// The tip with a result's description. It lies in the window of its parent, goes after a while, and stays as long as
// the mouse is on it, so that a long text can be read and scrolled.
class Infobulle : public QFrame {
public:
    explicit Infobulle(QWidget* parent);

    // Beside a place of the parent, most often that of the pointer.
    void Montrer(const QString& texte, const QPoint& place);
    void Suivre(const QPoint& place);
    void Cacher();

protected:
    void enterEvent(QEnterEvent* evenement) override;
    void leaveEvent(QEvent* evenement) override;

private:
    void Remplir(const QString& texte);

    QPlainTextEdit* texte_;
    QTimer minuterie_;
};
