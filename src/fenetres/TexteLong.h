#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class QPlainTextEdit;

// Shows texts of any length in a text box without holding its window up: the beginning at once, the rest bit by bit
// while the window lives on. A line too long to be laid out at once is shown in several, and read back as one.
class TexteLong : public QObject {
public:
    explicit TexteLong(QPlainTextEdit& boite);

    // Lines end in "\n". What is shown already stays as it stands. The box takes no keys before the text is whole.
    void Montrer(const QString& texte);
    // Puts in all that is still to come.
    void Finir();
    // The whole text, as it was given or as the user has left it.
    QString Lire();
    // As it was given.
    const QString& Donne() const { return texte_; }

private:
    void Ajouter();

    QPlainTextEdit& boite_;
    QString texte_;
    qsizetype place_ = 0;  // what lies behind is not in the box yet
    bool lignesCoupees_ = false;
    QTimer suite_;
    const bool lectureSeule_;
};
