#include "browser/FrmDescription.h"

#include <utility>

#include <QDialogButtonBox>
#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "commun/Formes.h"
#include "fenetres/Etiquette.h"
#include "fenetres/PoliceEgale.h"
#include "fenetres/TexteLong.h"
#include "fenetres/TextesQt.h"
#include "platform/Bureau.h"

FrmDescription::FrmDescription(Dialogues& dialogues, std::string_view nom, const Description& description,
                               std::function<bool(const Description&)> enregistrer, QWidget* parent)
    : QDialog(parent),
      dialogues_(dialogues),
      description_(description),
      enregistrer_(std::move(enregistrer)),
      saisie_(new QPlainTextEdit),
      texte_(new TexteLong(*saisie_)),
      cadre_(new CadrePhoto)
{
    setWindowTitle("Modifier les descriptions");
    auto* titre = new Etiquette;
    titre->setObjectName("nom");
    titre->setText(EnQString(nom));
    QFont gras = titre->font();
    gras.setBold(true);
    titre->setFont(gras);

    saisie_->setObjectName("Saisie");
    saisie_->setAccessibleName("Description");
    saisie_->setToolTip(" Modifier les descriptions ");
    saisie_->setFont(PoliceEgale(saisie_->font()));
    saisie_->setTabChangesFocus(true);
    const QFontMetrics lettres(saisie_->font());
    saisie_->setMinimumSize(lettres.averageCharWidth() * 30, lettres.lineSpacing() * 5);
    resize(lettres.averageCharWidth() * 80 + cadre_->sizeHint().width(), lettres.lineSpacing() * 24);

    cadre_->setObjectName("FPhoto");
    cadre_->setToolTip(" Image ");
    cadre_->setAccessibleName("Image");
    cadre_->setCursor(Qt::PointingHandCursor);
    connect(cadre_, &CadrePhoto::clique, this, &FrmDescription::OuvrirPhoto);

    auto* boutons = new QDialogButtonBox;
    auto* photo = boutons->addButton("    &Photo", QDialogButtonBox::ActionRole);
    photo->setObjectName("OK 2");
    photo->setAutoDefault(false);
    auto* ok = boutons->addButton("  &OK", QDialogButtonBox::AcceptRole);
    ok->setObjectName("OK 0");
    ok->setDefault(true);
    boutons->addButton("      &Annuler", QDialogButtonBox::RejectRole)->setObjectName("OK 1");
    connect(photo, &QPushButton::clicked, this, &FrmDescription::ChoisirPhoto);
    connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* milieu = new QHBoxLayout;
    milieu->addWidget(cadre_, 0, Qt::AlignTop);
    milieu->addWidget(saisie_, 1);
    erreur_ = new QLabel("La description n'a pas pu être enregistrée : la base ne peut pas être écrite.");
    erreur_->setObjectName("erreur");
    erreur_->setWordWrap(true);
    erreur_->hide();
    auto* mise = new QVBoxLayout(this);
    mise->addWidget(titre);
    mise->addLayout(milieu, 1);
    mise->addWidget(erreur_);
    mise->addWidget(boutons);
    saisie_->setFocus();
    texte_->Montrer(EnLignesEditables(description_.texte));
    MontrerPhoto();
}

// Hidden at first where there is none, so that the text has the room.
void FrmDescription::MontrerPhoto()
{
    cadre_->setVisible(!Trim(description_.photo).empty());
    cadre_->Montrer(std::string(Trim(description_.photo)));
}

void FrmDescription::ChoisirPhoto()
{
    DemandeFichier demande;
    demande.titre = "Choisir une image";
    demande.filtre = "Les fichiers images (*.jpg *.jpeg *.gif *.bmp)";
    demande.depart = description_.photo;
    const std::string choisie = dialogues_.ChoisirFichier(demande);
    if (choisie.empty())
        return;
    description_.photo = choisie;
    MontrerPhoto();
}

void FrmDescription::OuvrirPhoto()
{
    if (const std::string chemin(Trim(description_.photo)); !chemin.empty())
        OuvrirAvecBureau(chemin);
}

void FrmDescription::accept()
{
    Description voulue = description_;
    voulue.photo = Trim(voulue.photo);
    const QString texte = texte_->Lire();
    if (texte != texte_->Donne())
        voulue.texte = RelireLignes(texte, description_.texte);
    if (enregistrer_(voulue))
        QDialog::accept();
    else
        erreur_->show();
}
