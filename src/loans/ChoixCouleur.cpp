#include "loans/ChoixCouleur.h"

#include <cmath>

#include <QAbstractButton>
#include <QColorDialog>
#include <QLabel>

namespace {

constexpr std::pair<const char*, const char*> Textes[] = {
    {"&Basic colors", "Couleurs de &base"},
    {"&Custom colors", "Couleurs &personnalisées"},
    {"&Add to Custom Colors", "A&jouter aux couleurs personnalisées"},
    {"Hu&e:", "T&einte :"},
    {"&Sat:", "&Saturation :"},
    {"&Val:", "&Luminosité :"},
    {"&Red:", "&Rouge :"},
    {"&Green:", "&Vert :"},
    {"Bl&ue:", "Ble&u :"},
    {"&HTML:", "&HTML :"},
    {"OK", "&OK"},
    {"&OK", "&OK"},
    {"Cancel", "&Annuler"},
    {"&Cancel", "&Annuler"},
};

template <typename Classe>
void Traduire(const QWidget& fenetre)
{
    for (Classe* enfant : fenetre.findChildren<Classe*>())
        for (const auto& [anglais, francais] : Textes)
            if (enfant->text() == anglais) {
                enfant->setText(francais);
                break;
            }
}

// How much light a colour gives, from 0 to 1.
double Clarte(const QColor& couleur)
{
    const auto part = [](float valeur) { return std::pow(static_cast<double>(valeur), 2.2); };
    return 0.2126 * part(couleur.redF()) + 0.7152 * part(couleur.greenF()) + 0.0722 * part(couleur.blueF());
}

double Contraste(const QColor& a, const QColor& b)
{
    const double x = Clarte(a), y = Clarte(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

}  // namespace

QColor CouleurDeTexte(uint32_t couleur, const QColor& fond)
{
    if (couleur == 0)
        return {};
    constexpr double Lisible = 3.5;
    QColor texte = CouleurDeLong(couleur);
    const int pas = fond.lightness() < 128 ? 8 : -8;
    while (Contraste(texte, fond) < Lisible && texte.lightness() + pas >= 0 && texte.lightness() + pas <= 255)
        texte.setHsl(texte.hslHue(), texte.hslSaturation(), texte.lightness() + pas);
    return texte;
}

std::optional<uint32_t> ChoisirCouleur(uint32_t depart, QWidget* parent)
{
    QColorDialog dialogue(CouleurDeLong(depart), parent);
    dialogue.setWindowTitle("Couleur");
    // The desktop's own dialog speaks the desktop's language.
    dialogue.setOption(QColorDialog::DontUseNativeDialog);
    // Not every desktop lets a program read colours off the screen.
    for (QAbstractButton* bouton : dialogue.findChildren<QAbstractButton*>())
        if (bouton->text() == QColorDialog::tr("&Pick Screen Color"))
            bouton->hide();
    Traduire<QLabel>(dialogue);
    Traduire<QAbstractButton>(dialogue);
    if (dialogue.exec() != QDialog::Accepted)
        return std::nullopt;
    return LongDeCouleur(dialogue.selectedColor());
}
