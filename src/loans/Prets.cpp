#include "loans/Prets.h"

#include "catalogue/Emprunteurs.h"
#include "catalogue/Medias.h"
#include "catalogue/OuvrirBase.h"
#include "commun/Formes.h"
#include "commun/Texte.h"

namespace {

std::string Cle(Recordset& ligne)
{
    return "A" + std::to_string(ligne.Entier("Num"));
}

std::string TextePersonne(Recordset& ligne)
{
    return std::string(ligne.Texte("PreNom")).append(", ").append(ligne.Texte("Nom"));
}

}  // namespace

std::string TexteDeChamp(std::string_view texte, size_t longueur)
{
    size_t fin = 0;
    for (size_t nombre = 0; nombre < longueur && fin < texte.size(); ++nombre)
        CaractereSuivant(texte, fin);
    return texte.empty() ? " " : std::string(texte.substr(0, fin));
}

std::vector<LignePret> RechercherPersonnes()
{
    std::vector<LignePret> personnes;
    Base base = OuvrirBase();
    for (Recordset lignes = Emprunteurs(base); !lignes.Eof(); lignes.MoveNext())
        personnes.push_back({Cle(lignes), TextePersonne(lignes)});
    return personnes;
}

std::optional<Personne> RechercherUnePersonne(std::string_view numero)
{
    Base base = OuvrirBase();
    Recordset ligne = LireEmprunteur(base, numero);
    if (ligne.Eof())
        return std::nullopt;
    Personne personne;
    for (size_t i = 0; i < personne.size(); ++i)
        personne[i] = Trim(ligne.Texte(ChampsPersonne[i]));
    return personne;
}

std::vector<LignePret> RechercherPrets(std::string_view numero)
{
    std::vector<LignePret> prets;
    Base base = OuvrirBase();
    for (Recordset medias = MediasPretes(base, numero); !medias.Eof(); medias.MoveNext())
        prets.push_back({Cle(medias), std::string(medias.Texte("Label"))});
    return prets;
}

std::optional<std::string> MajPersonne(std::string_view numero, const Personne& personne)
{
    Base base = OuvrirBase();
    Recordset ligne = LireEmprunteur(base, numero);
    ligne.Edit();
    for (size_t i = 0; i < personne.size(); ++i)
        ligne.Poser(ChampsPersonne[i], TexteDeChamp(std::string(Trim(personne[i])) + ' '));
    if (!ligne.Update())
        return std::nullopt;
    ligne.Bookmark(ligne.LastModified());
    return TextePersonne(ligne);
}

bool DeletePersonne(std::string_view numero)
{
    Base base = OuvrirBase();
    return LireEmprunteur(base, numero).Delete();
}

bool DeletePret(std::string_view media)
{
    Base base = OuvrirBase();
    Recordset ligne = LireMedia(base, media);
    ligne.Edit();
    ligne.Poser("Npret", 0);
    return ligne.Update();
}
