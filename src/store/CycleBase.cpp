#include "store/CycleBase.h"

#include <atomic>

#include <fmt/format.h>

#include "platform/Chemins.h"
#include "platform/Locale.h"
#include "platform/OperationsFichiers.h"
#include "store/Base.h"
#include "store/IndexNoms.h"
#include "store/PoserBase.h"
#include "store/Reglages.h"
#include "store/Transaction.h"

namespace {

std::atomic<bool> abandon{false};

// As the settings have it.
std::string BaseReglee()
{
    return GetSetting(SectionSettings, CleBaseCourante, DossierProgramme() + "/velour.vlr");
}

bool PeutTenirDesMedias(const std::string& chemin)
{
    EtatFichier etat;
    if (!FichierExiste(chemin) || !LireEtatFichier(chemin, etat))
        return false;
    Base base = OpenDatabase(chemin);
    return base.Ouverte() ? base.OpenRecordset("Catalogue").RecordCount() > 0 : etat.taille > 0;
}

// Renames a base of the program directory after the present moment and leaves word of it.
bool MettreDeCote(const std::string& chemin)
{
    const DateHeure date = EnDateLocale(Maintenant());
    const std::string nom = fmt::format("{} {:04}-{:02}-{:02} {:02}{:02}{:02}", chemin.substr(0, chemin.rfind('.')),
                                        date.annee, date.mois, date.jour, date.heure, date.minute, date.seconde);
    constexpr int essais = 100;
    for (int rang = 1; rang <= essais; ++rang) {
        const std::string cible = nom + (rang > 1 ? fmt::format(" ({})", rang) : "") + ".vlr";
        if (!RenommerSansEcraser(chemin, cible))
            continue;
        RenommerSansEcraser(chemin + "-journal", cible + "-journal");  // of a base that could not be opened
        LaisserAvis("L'ancienne base par défaut a été conservée : " + cible);
        return true;
    }
    return false;
}

void AjouterPieces(Base& base)
{
    base.CreateTableDef("Pret", {{"Num", ChampEntier32},
                                 {"Nom", ChampTexte, 255},
                                 {"PreNom", ChampTexte, 255},
                                 {"Adresse", ChampTexte, 255},
                                 {"Email", ChampTexte, 255},
                                 {"Telephone", ChampTexte, 255}});
    base.CreateField("Catalogue", {"Tree", ChampMemo});
    base.CreateField("Catalogue", {"Disque", ChampTexte, 1});
    base.CreateField("Catalogue", {"NPret", ChampEntier16});
    base.CreateField("Catalogue", {"Categorie", ChampTexte, 50});
    base.CreateTableDef("LE", {{"Data", ChampMemo, 3000}});
    base.CreerIndex();
}

}  // namespace

std::string CheminModele()
{
    return DossierProgramme() + "/Data.z";
}

std::string CheminBaseParDefaut()
{
    return DossierProgramme() + "/defaut.vlr";
}

std::string CheminIconeTemporaire()
{
    return DossierProgramme() + "/icon.tmp";
}

void InitialiserBase()
{
    RelireBaseCourante();
    GarantirBase(true);
    Base base = OpenDatabase(BaseCourante());
    AjouterPieces(base);

    Recordset liste = base.OpenRecordset("select * from LE");
    ChargerListeExtensions(liste.RecordCount() > 0 ? liste.Texte("Data") : std::string_view());
}

void NettoyerRestes()
{
    const std::string base = BaseCourante();
    const size_t barre = base.rfind('/');
    for (const std::string& dossier : {barre == base.npos ? DossierProgramme() : base.substr(0, barre + 1),
                                       DossierProgramme(), DossierCache(), DossierConfiguration()})
        NettoyerBrouillons(dossier);
    NettoyerIndexNoms();
}

bool GarantirBase(bool memoriser)
{
    if (FichierExiste(BaseCourante()))
        return false;
    PoserBaseParDefaut();
    if (memoriser) {
        FixerBaseCourante(CheminBaseParDefaut());
        SaveSetting(SectionSettings, CleBaseCourante, CheminBaseParDefaut());
    } else {
        // Kept, particularité Xrien1.
        FixerRemplacante(CheminBaseParDefaut(), BaseReglee());
    }
    return true;
}

bool PoserBaseParDefaut()
{
    const std::string chemin = CheminBaseParDefaut();
    return (!PeutTenirDesMedias(chemin) || MettreDeCote(chemin)) && CopierModele(chemin);
}

bool CopierModele(const std::string& cible)
{
    if (FichierExiste(CheminModele()))
        return PoserCopie(CheminModele(), cible);
    return CreerBaseVide(cible);
}

void RelireBaseCourante()
{
    const std::string reglee = BaseReglee();
    if (reglee != BaseRemplacee() || FichierExiste(reglee))
        FixerBaseCourante(reglee);
}

void CompacterBase()
{
    RelireBaseCourante();
    const std::string copie = DossierProgramme() + "/temp.db";
    const std::string base = BaseCourante();
    if (BaseARendre(base) && CompactDatabase(base, copie))
        PoserCopie(copie, base);
    SupprimerFichier(copie);
}

bool SupprimerMedia(std::string_view numero, const std::string& chemin)
{
    if (numero.empty())
        return false;
    Base base = OpenDatabase(chemin);
    Transaction transaction(base);  // does nothing inside another
    bool fait = base.Execute("delete * from Liste where NCatalogue = " + std::string(numero)) &&
                base.Execute("delete * from Catalogue where Num = " + std::string(numero));
    if (fait && transaction.Ouverte())
        fait = transaction.Valider();
    FixerAbandon(true);
    return fait;
}

bool ModifierCatalogue(int64_t numero, bool drapeau, std::string_view arbre, const std::string& chemin)
{
    Base base = OpenDatabase(chemin);
    Recordset media =
        base.OpenRecordset("select * from Catalogue where Num = " + std::to_string(numero) + " order by Identifiant");
    if (media.RecordCount() == 0)
        return false;
    media.Edit();
    media.Poser("Flag", int64_t{drapeau});
    media.Poser("Tree", arbre);
    if (!media.Update())
        return false;
    media.Bookmark(media.LastModified());
    return true;
}

bool EnregistrerExtensions(const std::string& chemin)
{
    Base base = OpenDatabase(chemin);
    Recordset liste = base.OpenRecordset("LE");
    if (liste.Eof())
        liste.AddNew();
    else
        liste.Edit();
    const std::string extensions = ListeExtensions();
    liste.Poser("Data", extensions.empty() ? std::string_view(" ") : std::string_view(extensions));
    if (!liste.Update())
        return false;
    liste.Bookmark(liste.LastModified());
    return true;
}

bool ExtractionAbandonnee()
{
    return abandon;
}

void FixerAbandon(bool abandonner)
{
    abandon = abandonner;
}
