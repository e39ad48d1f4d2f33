#include "loans/ChoixEmprunteur.h"

#include <charconv>

#include "catalogue/Emprunteurs.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "commun/Texte.h"
#include "store/Transaction.h"

namespace {

// "first name, name", or a name alone. Gives the new number.
int64_t AjouterEmprunteur(Base& base, std::string_view texte)
{
    const size_t virgule = texte.find(',');
    const bool deux = virgule != std::string_view::npos;
    const int64_t numero = NouveauNumeroEmprunteur(base);
    Recordset lignes = Emprunteurs(base);
    lignes.AddNew();
    lignes.Poser("Num", numero);
    lignes.Poser("Nom", TexteDeChamp(Trim(deux ? texte.substr(virgule + 1) : texte)));
    lignes.Poser("PreNom", TexteDeChamp(deux ? Trim(texte.substr(0, virgule)) : ""));
    lignes.Poser("adresse", " ");
    lignes.Poser("email", " ");
    return lignes.Update() ? numero : 0;
}

int64_t Nombre(std::string_view tag)
{
    int64_t nombre = 0;
    std::from_chars(tag.data(), tag.data() + tag.size(), nombre);
    return nombre;
}

}  // namespace

void ChoixEmprunteur::Charger(std::string_view media)
{
    personnes_ = RechercherPersonnes();
    Base base = OuvrirBase();
    tag_ = std::to_string(LireMedia(base, media).Entier("NPret"));
    choisi_ = false;
    const int rang = Rang();
    if (rang < 0)
        tag_.clear();
    texte_ = rang < 0 ? std::string() : personnes_[static_cast<size_t>(rang)].texte;
}

int ChoixEmprunteur::Rang() const
{
    for (size_t rang = 0; !tag_.empty() && rang < personnes_.size(); ++rang)
        if (personnes_[rang].Numero() == tag_)
            return static_cast<int>(rang);
    return -1;
}

void ChoixEmprunteur::Choisir(int rang)
{
    if (rang < 0 || static_cast<size_t>(rang) >= personnes_.size())
        return;
    texte_ = personnes_[static_cast<size_t>(rang)].texte;
    tag_ = personnes_[static_cast<size_t>(rang)].Numero();
    choisi_ = true;
}

void ChoixEmprunteur::Taper(std::string_view texte)
{
    texte_ = texte;
    if (choisi_ && !Trim(texte).empty())
        return;
    tag_.clear();
    choisi_ = false;
}

// The first borrower whose row reads like the text. A row keeps the blanks of its fields, which the text lacks: kept,
// particularité 53.
std::string ChoixEmprunteur::Chercher() const
{
    const std::string cherche = Minuscules(Trim(texte_));
    for (const LignePret& personne : personnes_)
        if (Minuscules(Trim(personne.texte)) == cherche)
            return personne.Numero();
    return {};
}

bool ChoixEmprunteur::ValiderPret(std::string_view media)
{
    {
        Base base = OuvrirBase();
        Transaction transaction(base);
        Recordset ligne = LireMedia(base, media);
        if (ligne.Eof())
            return false;
        ligne.Edit();
        int64_t numero = Nombre(tag_.empty() ? Chercher() : tag_);
        if (numero == 0 && !Trim(texte_).empty()) {
            numero = AjouterEmprunteur(base, Trim(texte_));
            if (numero == 0)
                return false;
        }
        ligne.Poser("Npret", numero);
        if (!ligne.Update() || !transaction.Valider())
            return false;
    }
    Charger(media);
    return true;
}
