#include "outils/LignesTest.h"

#include "store/Base.h"
#include "store/CycleBase.h"
#include "store/Reglages.h"

EnvironnementBase::EnvironnementBase()
{
    const std::string chemin = (travail_ / "essai.vlr").string();
    CreerBaseVide(chemin);
    SaveSetting(SectionSettings, CleBaseCourante, chemin);
    InitialiserBase();
}

int64_t AjouterMediaTest(const MediaTest& media)
{
    Base base = OpenDatabase(BaseCourante());
    Recordset lignes = base.OpenRecordset("Catalogue");
    lignes.AddNew();
    const int64_t numero = lignes.Numero();
    lignes.Poser("Identifiant", "ID" + std::to_string(numero));
    lignes.Poser("Flag", static_cast<int64_t>(media.drapeau));
    const std::pair<const char*, const std::string&> champs[] = {
        {"Label", media.label},         {"typed", media.type},  {"Tree", media.arbre},
        {"Categorie", media.categorie}, {"Unite", media.unite}, {"Disque", media.disque},
        {"NSerie", media.serie},        {"Total", media.total}, {"Libre", media.libre}};
    for (const auto& [champ, valeur] : champs)
        if (!valeur.empty())
            lignes.Poser(champ, valeur);
    if (!media.icone.empty())
        lignes.PoserOctets("Icone", media.icone);
    EXPECT_TRUE(lignes.Update());
    return numero;
}

std::vector<int64_t> AjouterLignes(int64_t media, const std::vector<LigneTest>& rangees)
{
    std::vector<int64_t> numeros;
    Base base = OpenDatabase(BaseCourante());
    Recordset lignes = base.OpenRecordset("Liste");
    for (const LigneTest& ligne : rangees) {
        lignes.AddNew();
        numeros.push_back(lignes.Numero());
        lignes.Poser("NCatalogue", media);
        lignes.Poser("Répertoire", ligne.repertoire);
        lignes.Poser("RepertoirePere", ligne.pere);
        lignes.Poser("Nom", ligne.nom);
        lignes.Poser("attribut", ligne.attribut);
        lignes.Poser("Taille", ligne.taille);
        lignes.Poser("TypeF", ligne.type);
        lignes.Poser("DateF", ligne.date);
        lignes.Poser("Heure", ligne.heure);
        if (ligne.alias)
            lignes.Poser("Alias", *ligne.alias);
        if (ligne.description)
            lignes.Poser("Description", *ligne.description);
        EXPECT_TRUE(lignes.Update());
    }
    return numeros;
}
