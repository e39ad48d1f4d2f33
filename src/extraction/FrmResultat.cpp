#include "extraction/FrmResultat.h"

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString Nombre(int64_t nombre)
{
    return QLocale().toString(static_cast<qlonglong>(nombre));
}

// Archives count whether or not their switch let them be opened.
QString Archives(const CompteursExtraction& compteurs)
{
    const QString trouvees = Nombre(compteurs.archives);
    return compteurs.listees == compteurs.archives ? trouvees
                                                   : trouvees + ", dont " + Nombre(compteurs.listees) + " lus";
}

}  // namespace

FrmResultat::FrmResultat(const CompteursExtraction& compteurs, QWidget* parent) : QDialog(parent)
{
    setWindowTitle("Résultat de la recherche");
    const struct {
        const char* texte;
        QString nombre;
    } lignes[] = {
        {"Nombre de répertoires traités ", Nombre(compteurs.repertoires)},
        {"Nombre de fichiers traités      ", Nombre(compteurs.fichiers)},
        {"Nombre de fichiers compressés ", Archives(compteurs)},
        {"Nombre de descriptions extraites ", Nombre(compteurs.descriptions)},
    };

    auto* grille = new QGridLayout;
    grille->setHorizontalSpacing(24);
    grille->setColumnStretch(0, 1);
    int rang = 0;
    for (const auto& ligne : lignes) {
        auto* texte = new QLabel(ligne.texte);
        auto* nombre = new QLabel(ligne.nombre);
        nombre->setObjectName(QString("Resultat%1").arg(rang));
        nombre->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        QFont gras = nombre->font();
        gras.setBold(true);
        nombre->setFont(gras);
        grille->addWidget(texte, rang, 0);
        grille->addWidget(nombre, rang, 1);
        ++rang;
    }

    auto* ok = new QPushButton("&OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(20, 20, 20, 16);
    mise->setSpacing(20);
    mise->addLayout(grille);
    mise->addWidget(ok, 0, Qt::AlignRight);
    mise->setSizeConstraint(QLayout::SetFixedSize);
}
