#include "menus/StyleMenus.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>
#include <QTest>
#include <QtWidgets>

#include "menus/Mnemoniques.h"

namespace {

QPalette Couleurs(bool sombres)
{
    return sombres ? QPalette(QColor(45, 45, 48), QColor(30, 30, 32)) : QPalette(QColor(240, 240, 240));
}

double Clarte(const QColor& couleur)
{
    const auto part = [](float x) { return std::pow(static_cast<double>(x), 2.2); };
    return 0.2126 * part(couleur.redF()) + 0.7152 * part(couleur.greenF()) + 0.0722 * part(couleur.blueF());
}

double Contraste(const QColor& a, const QColor& b)
{
    const double x = Clarte(a), y = Clarte(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

// A menu of all kinds of entries in a style of its own.
class Popup : public ::testing::TestWithParam<std::tuple<std::string, bool, Qt::LayoutDirection>> {
protected:
    Popup() : style_(new StyleMenus(QStyleFactory::create(QString::fromStdString(std::get<0>(GetParam())))))
    {
        const auto [base, sombre, sens] = GetParam();
        menu_.setStyle(style_.get());
        menu_.setPalette(Couleurs(sombre));
        menu_.setLayoutDirection(sens);
        QPixmap rouge(16, 16);
        rouge.fill(Qt::red);
        menu_.addAction(rouge, "&Ouvrir un catalogue")->setShortcut(QKeySequence("Ctrl+O"));
        QAction* coche = menu_.addAction("Co&che");
        coche->setCheckable(true);
        coche->setChecked(true);
        menu_.addSeparator();
        menu_.addAction("&Interdite")->setEnabled(false);
        menu_.addMenu("&Sous-menu")->addAction("x");
        for (int i = 0; i < 8; ++i)
            menu_.addAction(QString("Une entrée de plus, numéro &%1").arg(i));
    }
    QImage Image()
    {
        menu_.ensurePolished();
        menu_.resize(menu_.sizeHint());
        QImage image(menu_.size(), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        menu_.render(&image);
        return image;
    }
    QRect Place(int rang) const { return menu_.actionGeometry(menu_.actions().at(rang)); }
    // The strip on the side where entries begin.
    QRect Barre(const QImage& image) const
    {
        const int largeur = QFontMetrics(menu_.font()).height();
        return menu_.isRightToLeft() ? QRect(image.width() - largeur, 4, largeur - 4, image.height() - 8)
                                     : QRect(4, 4, largeur - 4, image.height() - 8);
    }

    std::unique_ptr<StyleMenus> style_;
    QMenu menu_{"&Média"};
};

}  // namespace

TEST_P(Popup, SeLitEtResteDansSaPlace)
{
    const QImage simple = Image();
    const int largeur = menu_.sizeHint().width();
    style_->Degrader(true);
    const QImage degrade = Image();
    const int barre = menu_.sizeHint().width() - largeur;
    EXPECT_GT(barre, QFontMetrics(menu_.font()).height()) << "room for the bar beside what the entries need";
    for (int y = 0; y < degrade.height(); ++y)
        for (int x = 0; x < degrade.width(); ++x)
            ASSERT_NE(degrade.pixelColor(x, y), QColor(Qt::magenta)) << x << ' ' << y;

    // The bar is darker below and bears a name that can be read.
    const QRect cote = Barre(degrade);
    const int milieu = cote.center().x();
    EXPECT_GT(Contraste(degrade.pixelColor(milieu, cote.top()), degrade.pixelColor(milieu, cote.bottom())), 1.3);
    QColor clair = degrade.pixelColor(cote.topLeft()), sombre = clair;
    for (int y = cote.top(); y <= cote.bottom(); ++y)
        for (int x = cote.left(); x <= cote.right(); ++x) {
            const QColor point = degrade.pixelColor(x, y);
            clair = Clarte(point) > Clarte(clair) ? point : clair;
            sombre = Clarte(point) < Clarte(sombre) ? point : sombre;
        }
    EXPECT_GT(Contraste(clair, degrade.pixelColor(milieu, cote.top())), 4.5);
    EXPECT_GT(Contraste(clair, sombre), 4.5);

    // Entries lie beside it, with the same marks on them, and can be read at both ends of the ground's gradient.
    for (int rang = 0; rang < menu_.actions().size(); ++rang) {
        QAction* action = menu_.actions().at(rang);
        const QRect place = Place(rang);
        ASSERT_TRUE(menu_.rect().contains(place));
        if (action->isSeparator())
            continue;
        const QRect texte = menu_.isRightToLeft() ? place.adjusted(0, 0, -barre, 0) : place.adjusted(barre, 0, 0, 0);
        EXPECT_FALSE(texte.intersects(Barre(degrade)));
        const QString nom = SansMnemonique(action->text());
        EXPECT_GT(texte.width(), QFontMetrics(menu_.font()).horizontalAdvance(nom + "Ctrl+O")) << nom.toStdString();
        const QColor fond = degrade.pixelColor(texte.center().x(), texte.top());
        double contraste = 1;
        for (int y = texte.top(); y <= texte.bottom(); ++y)
            for (int x = texte.left(); x <= texte.right(); ++x)
                contraste = std::max(contraste, Contraste(degrade.pixelColor(x, y), fond));
        EXPECT_GT(contraste, action->isEnabled() ? 4.5 : 1.3) << nom.toStdString();
    }

    // The entry that the user is on stands out.
    menu_.setActiveAction(menu_.actions().last());
    const QImage choisie = Image();
    const QRect place = Place(12);
    const QPoint dedans(menu_.isRightToLeft() ? place.left() + 4 : place.right() - 4, place.center().y());
    EXPECT_GT(Contraste(choisie.pixelColor(dedans), degrade.pixelColor(dedans)), 1.5);
    menu_.setActiveAction(nullptr);

    style_->Degrader(false);
    EXPECT_EQ(Image(), simple);
}

INSTANTIATE_TEST_SUITE_P(Styles, Popup,
                         ::testing::Values(std::tuple(std::string("Fusion"), false, Qt::LeftToRight),
                                           std::tuple(std::string("Fusion"), true, Qt::LeftToRight),
                                           std::tuple(std::string("Fusion"), true, Qt::RightToLeft),
                                           std::tuple(std::string("Windows"), false, Qt::LeftToRight),
                                           std::tuple(std::string("Windows"), true, Qt::LeftToRight)));

// Menus alone are drawn so: the list of a combo box is none, though some styles draw its rows as entries.
TEST(StyleDeLApplication, SeBasculeSurPlace)
{
    QApplication::setStyle(new StyleMenus);
    QMenu menu;
    menu.addAction("Entrée");
    QComboBox boite;
    boite.addItem("Entrée");
    const QSize simple = menu.sizeHint(), liste = boite.sizeHint();
    const int rangee = boite.view()->sizeHintForColumn(0);
    DegraderMenus(true);
    EXPECT_GT(menu.sizeHint().width(), simple.width());
    EXPECT_EQ(boite.sizeHint(), liste);
    EXPECT_EQ(boite.view()->sizeHintForColumn(0), rangee);
    // Keys and marks are the menu's own business and go on working.
    int choisies = 0;
    QObject::connect(menu.addAction("&Autre"), &QAction::triggered, [&] { ++choisies; });
    menu.popup(QPoint());
    QTest::keyClick(&menu, Qt::Key_A);
    EXPECT_EQ(choisies, 1);
    DegraderMenus(false);
    menu.clear();
    menu.addAction("Entrée");
    EXPECT_EQ(menu.sizeHint(), simple);
}

TEST(Mnemoniques, SontDonneesUneFois)
{
    const std::pair<const char*, const char*> textes[] = {
        {"&Ouvrir && fermer", "Ouvrir & fermer"}, {"R && D", "R & D"}, {"a&", "a&"}, {"&&&x", "&x"}};
    for (const auto& [texte, nu] : textes)
        EXPECT_EQ(SansMnemonique(texte), nu);
    EXPECT_EQ(Mnemonique("&&&X"), 'x');
    EXPECT_TRUE(Mnemonique("R && D").isNull());
    EXPECT_EQ(SansMnemonique(TexteEntree("a&b&&")), "a&b&&");

    QMenu menu;
    for (const char* texte : {"Cd Audio", "R && D", "&Divers", "", "Cd Data", "été", "dc"})
        menu.addAction(texte);
    menu.insertSeparator(menu.actions().at(3));
    DonnerMnemoniques(menu);
    QStringList donnes;
    for (const QAction* action : menu.actions())
        donnes << action->text();
    EXPECT_EQ(donnes, QStringList({"&Cd Audio", "&R && D", "&Divers", "", "", "Cd D&ata", "é&té", "dc"}));
}
