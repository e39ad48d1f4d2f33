#include "listings/ImprimerListing.h"

#include <algorithm>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPrinter>
#include <QRegularExpression>
#include <QTextDocument>
#include <QVariant>

#include "fenetres/TextesQt.h"

namespace {

constexpr double TaillePolice = 10, TailleMinimale = 5;  // points
constexpr int LargeurTexte = 120;                        // characters of a text listing's row

// Reads nothing that the page names.
class Document : public QTextDocument {
protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

// The fixed font at which a row of the text listing fits the page.
QFont PoliceFixe(const QPrinter& imprimante)
{
    QFont police = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    police.setPointSizeF(TaillePolice);
    const double largeur = QFontMetricsF(police).horizontalAdvance('0') * LargeurTexte;
    const double page = imprimante.pageRect(QPrinter::Inch).width() * 96;
    police.setPointSizeF(std::clamp(TaillePolice * page / std::max(largeur, 1.0), TailleMinimale, TaillePolice));
    return police;
}

}  // namespace

QString PageListing(const ApercuListing& contenu)
{
    static const QRegularExpression largeurs("<td width='(5|10|12|15|25|35|100)%'");
    return EnLignes(contenu.texte)
        .replace(largeurs, "<td")
        .replace("<table border='0' cellspacing='0' cellpadding='0'>",
                 "<table width='100%' border='0' cellspacing='0' cellpadding='2'>");
}

bool ImprimerListing(QPrinter& imprimante, FormatListing format, const ApercuListing& contenu)
{
    Document document;
    document.setUndoRedoEnabled(false);
    if (format == FormatListing::HTML) {
        document.setHtml(PageListing(contenu));
    } else {
        document.setDefaultFont(PoliceFixe(imprimante));
        document.setPlainText(EnLignes(contenu.texte));
    }
    document.print(&imprimante);
    return imprimante.printerState() != QPrinter::Error;
}
