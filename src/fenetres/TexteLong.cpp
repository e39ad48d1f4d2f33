#include "fenetres/TexteLong.h"

#include <algorithm>

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr qsizetype Bouchee = 100'000, LigneMaximale = 4'000;
constexpr int LignesParBouchee = 500;  // each costs the document more than its letters do
constexpr int SuiteDeLigne = 1;        // state of a block that goes on with the line of the one before

}  // namespace

TexteLong::TexteLong(QPlainTextEdit& boite) : QObject(&boite), boite_(boite), lectureSeule_(boite.isReadOnly())
{
    suite_.setInterval(0);
    suite_.callOnTimeout(this, &TexteLong::Ajouter);
}

void TexteLong::Montrer(const QString& texte)
{
    if (texte == texte_ && (place_ < texte_.size() || !boite_.document()->isModified()))
        return;
    texte_ = texte;
    place_ = 0;
    lignesCoupees_ = false;
    boite_.document()->setUndoRedoEnabled(false);
    boite_.setReadOnly(true);
    boite_.setPlainText({});
    Ajouter();
    boite_.moveCursor(QTextCursor::Start);
    if (place_ < texte_.size())
        suite_.start();
}

void TexteLong::Finir()
{
    while (place_ < texte_.size())
        Ajouter();
}

// Up to the end of a line, where that is near; lines too long for one block go on in the next.
void TexteLong::Ajouter()
{
    QTextCursor curseur(boite_.document());
    curseur.movePosition(QTextCursor::End);
    curseur.beginEditBlock();
    const qsizetype fin = std::min(texte_.size(), place_ + Bouchee);
    for (int lignes = 0; place_ < fin && lignes < LignesParBouchee; ++lignes) {
        const qsizetype saut = texte_.indexOf('\n', place_);
        const qsizetype ligne = saut < 0 ? texte_.size() : saut;
        qsizetype morceau = std::min(ligne, place_ + LigneMaximale);
        if (morceau < ligne && texte_[morceau].isLowSurrogate())
            --morceau;
        curseur.insertText(texte_.mid(place_, morceau - place_));
        place_ = morceau;
        if (morceau < ligne) {
            lignesCoupees_ = true;
            curseur.insertBlock();
            curseur.block().setUserState(SuiteDeLigne);
        } else if (saut >= 0) {
            curseur.insertBlock();
            curseur.block().setUserState(-1);
            ++place_;
        }
    }
    curseur.endEditBlock();
    if (place_ < texte_.size())
        return;
    suite_.stop();
    boite_.setReadOnly(lectureSeule_);
    boite_.document()->setUndoRedoEnabled(true);
    boite_.document()->setModified(false);
}

// Not by toPlainText: it makes blanks of the blanks that must not be broken.
QString TexteLong::Lire()
{
    Finir();
    if (!boite_.document()->isModified())
        return texte_;
    QString texte = boite_.document()->toRawText();
    if (lignesCoupees_) {
        QChar* const debut = texte.data();
        QChar* ecrite = debut;
        for (QTextBlock bloc = boite_.document()->begin(); bloc.isValid(); bloc = bloc.next()) {
            if (bloc.position() > 0 && bloc.userState() != SuiteDeLigne)
                *ecrite++ = '\n';
            const QChar* const lue = debut + bloc.position();
            ecrite = std::copy(lue, lue + bloc.length() - 1, ecrite);
        }
        texte.truncate(ecrite - debut);
    }
    return texte.replace(QChar::ParagraphSeparator, '\n');
}
