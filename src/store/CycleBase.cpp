#include "store/CycleBase.h"

#include <atomic>
#include <map>
#include <set>

#include "platform/Chemins.h"
#include "platform/OperationsFichiers.h"
#include "store/Base.h"
#include "store/Reglages.h"

namespace {

std::string baseCourante;

std::atomic<bool> abandon{false};
std::atomic<bool> arbreARecharger{false};
std::atomic<bool> iconesARecharger{false};

// The extension list, with what makes "does it stand anywhere in the list" cheap for a million questions.
class Extensions {
public:
    const std::string& Texte() const { return texte_; }

    void Charger(std::string_view texte)
    {
        texte_ = texte;
        connues_.clear();
        parLongueur_.clear();
        for (std::string_view reste = texte; !reste.empty();) {
            const std::string_view extension = reste.substr(0, reste.find('|'));
            Retenir(extension);
            reste.remove_prefix(std::min(extension.size() + 1, reste.size()));
        }
    }

    bool Contient(std::string_view extension)
    {
        if (extension.empty() || connues_.contains(extension))
            return true;
        if (!Cherchee(extension))
            return false;
        connues_.emplace(extension);
        return true;
    }

    void Ajouter(std::string_view extension)
    {
        texte_.append("|").append(extension);
        Retenir(extension);
    }

private:
    void Retenir(std::string_view extension)
    {
        if (connues_.emplace(extension).second)
            parLongueur_[extension.size()].append("|").append(extension);
    }

    // A part of a longer one, or across the separators.
    bool Cherchee(std::string_view extension) const
    {
        if (extension.find('|') != std::string_view::npos)
            return texte_.find(extension) != std::string::npos;
        for (auto place = parLongueur_.upper_bound(extension.size()); place != parLongueur_.end(); ++place) {
            if (place->second.find(extension) != std::string::npos)
                return true;
        }
        return false;
    }

    std::string texte_;
    std::set<std::string, std::less<>> connues_;
    std::map<size_t, std::string> parLongueur_;
};

Extensions extensions;

std::string CheminHabituel()
{
    return DossierProgramme() + "/velour.vlr";
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

const std::string& BaseCourante()
{
    return baseCourante;
}

void FixerBaseCourante(const std::string& chemin)
{
    baseCourante = chemin;
}

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
    Base base = OpenDatabase(baseCourante);
    AjouterPieces(base);

    Recordset liste = base.OpenRecordset("select * from LE");
    extensions.Charger(liste.RecordCount() > 0 ? liste.Texte("Data") : std::string_view());
}

bool GarantirBase(bool memoriser)
{
    if (FichierExiste(baseCourante))
        return false;
    CopierModele(CheminBaseParDefaut());
    baseCourante = CheminBaseParDefaut();
    if (memoriser)
        SaveSetting(SectionSettings, CleBaseCourante, baseCourante);
    return true;
}

bool CopierModele(const std::string& cible)
{
    // What a crash left beside the old file must not be played into the new one.
    SupprimerFichier(cible + "-journal");
    SupprimerFichier(cible + "-wal");
    if (FichierExiste(CheminModele()))
        return CopierFichier(CheminModele(), cible);
    return CreerBaseVide(cible);
}

void RelireBaseCourante()
{
    baseCourante = GetSetting(SectionSettings, CleBaseCourante, CheminHabituel());
}

void CompacterBase()
{
    RelireBaseCourante();
    const std::string copie = DossierProgramme() + "/temp.db";
    if (BaseARendre(baseCourante) && CompactDatabase(baseCourante, copie))
        CopierFichier(copie, baseCourante);
    SupprimerFichier(copie);
}

void SupprimerMedia(std::string_view numero)
{
    if (numero.empty())
        return;
    Base base = OpenDatabase(baseCourante);
    const bool transaction = base.CommencerTransaction();
    const bool fait = base.Execute("delete * from Liste where NCatalogue = " + std::string(numero)) &&
                      base.Execute("delete * from Catalogue where Num = " + std::string(numero));
    if (transaction && fait)
        base.Valider();
    else if (transaction)
        base.Annuler();
    FixerAbandon(true);
}

bool ModifierCatalogue(int64_t numero, bool drapeau, std::string_view arbre)
{
    Base base = OpenDatabase(baseCourante);
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

const std::string& ListeExtensions()
{
    return extensions.Texte();
}

bool AjouterExtension(std::string_view extension)
{
    if (extensions.Contient(extension))
        return false;
    extensions.Ajouter(extension);
    return true;
}

bool EnregistrerExtensions()
{
    Base base = OpenDatabase(baseCourante);
    Recordset liste = base.OpenRecordset("LE");
    if (liste.Eof())
        liste.AddNew();
    else
        liste.Edit();
    liste.Poser("Data", ListeExtensions().empty() ? std::string_view(" ") : std::string_view(ListeExtensions()));
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

bool ArbreARecharger()
{
    return arbreARecharger;
}

void FixerArbreARecharger(bool recharger)
{
    arbreARecharger = recharger;
}

bool IconesARecharger()
{
    return iconesARecharger;
}

void FixerIconesARecharger(bool recharger)
{
    iconesARecharger = recharger;
}
