#include "shell/FrmOptions.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QVBoxLayout>

#include "audiocd/OngletFreedb.h"
#include "fenetres/FenetreLecteurs.h"
#include "fenetres/TextesQt.h"
#include "shell/Options.h"

namespace {

QCheckBox* CreerCase(const Option& option, const char* nom, size_t rang, QLayout& mise)
{
    auto* boite = new QCheckBox(EnQString(option.texte));
    boite->setObjectName(QString("%1%2").arg(nom).arg(rang));
    mise.addWidget(boite);
    return boite;
}

// Rows of check boxes that do not touch.
class RangeesAerees : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 4);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        // On a dark list an empty box, dark with a dark outline, would not be seen.
        if (option->palette.color(QPalette::Base).lightness() < 128)
            option->palette.setColor(QPalette::Base, option->palette.color(QPalette::Window).lighter(160));
    }
};

}  // namespace

FrmOptions::FrmOptions(Dialogues& dialogues, QWidget* parent) : QDialog(parent), onglets_(new QTabWidget)
{
    setWindowTitle("Préférences");
    onglets_->setObjectName("Onglets");
    // Their places are kept by number: a new tab goes behind the others.
    onglets_->addTab(CreerDescriptions(), "&Descriptions");
    onglets_->addTab(CreerFreedb(dialogues), "&Freedb");
    onglets_->addTab(CreerDivers(), "Di&vers");
    onglets_->addTab(new FenetreLecteurs(dialogues), "&Lecteurs");
    onglets_->setCurrentIndex(LireOnglet(onglets_->count()));
    connect(onglets_, &QTabWidget::currentChanged, this, [this](int onglet) {
        EcrireOnglet(onglet);
        MontrerDivers();
    });

    auto* ok = new QPushButton("&OK");
    ok->setObjectName("OK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* mise = new QVBoxLayout(this);
    mise->addWidget(onglets_, 1);
    mise->addWidget(ok, 0, Qt::AlignRight);
    onglets_->currentWidget()->setFocus();
}

QWidget* FrmOptions::CreerDescriptions()
{
    descriptions_ = new QListWidget;
    descriptions_->setObjectName("ListeDescriptions");
    descriptions_->setAccessibleName("Descriptions");
    descriptions_->setUniformItemSizes(true);
    descriptions_->setItemDelegate(new RangeesAerees(descriptions_));
    descriptions_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    for (const Option& option : OptionsDescriptions) {
        auto* ligne = new QListWidgetItem(EnQString(option.texte), descriptions_);
        ligne->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        ligne->setCheckState(option.Lire() ? Qt::Checked : Qt::Unchecked);
    }
    descriptions_->setCurrentRow(static_cast<int>(LireRangDescription()));
    connect(descriptions_, &QListWidget::currentRowChanged, this,
            [](int rang) { EcrireRangDescription(static_cast<size_t>(rang)); });
    connect(descriptions_, &QListWidget::itemChanged, this, [this](QListWidgetItem* ligne) {
        OptionsDescriptions[static_cast<size_t>(descriptions_->row(ligne))].Ecrire(ligne->checkState() == Qt::Checked);
        descriptions_->setCurrentItem(ligne);  // a click on the box alone does not go to the row
    });

    auto* page = new QWidget;
    auto* mise = new QVBoxLayout(page);
    mise->addWidget(descriptions_);
    page->setFocusProxy(descriptions_);
    return page;
}

// Each of its switches carries one of the tab behind it along.
QWidget* FrmOptions::CreerFreedb(Dialogues& dialogues)
{
    std::array<InterrupteurFreedb, OptionsFreedb.size()> interrupteurs;
    for (size_t rang = 0; rang < interrupteurs.size(); ++rang)
        interrupteurs[rang] = {std::string(OptionsFreedb[rang].texte), [rang] { return OptionsFreedb[rang].Lire(); },
                               [rang](bool active) { EcrireOptionFreedb(rang, active); }};
    return new OngletFreedb(interrupteurs, MachineReelle(), dialogues);
}

QWidget* FrmOptions::CreerDivers()
{
    auto* page = new QWidget;
    auto* mise = new QVBoxLayout(page);
    for (size_t rang = 0; rang < OptionsDivers.size(); ++rang) {
        divers_[rang] = CreerCase(OptionsDivers[rang], "Divers", rang, *mise);
        connect(divers_[rang], &QCheckBox::clicked, this, [rang](bool active) { OptionsDivers[rang].Ecrire(active); });
    }
    mise->addStretch(1);
    page->setFocusProxy(divers_[0]);
    MontrerDivers();
    return page;
}

// The switches of the tab before this one change some of these.
void FrmOptions::MontrerDivers()
{
    for (size_t rang = 0; rang < OptionsDivers.size(); ++rang)
        divers_[rang]->setChecked(OptionsDivers[rang].Lire());
}
