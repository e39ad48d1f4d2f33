#include "store/Base.h"

#include <cassert>
#include <filesystem>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/OperationsFichiers.h"
#include "store/Connexion.h"
#include "store/PoserBase.h"
#include "store/TraduireSql.h"

namespace {

std::mutex verrouRegistre;

std::map<std::string, std::weak_ptr<Connexion>>& Registre()
{
    static std::map<std::string, std::weak_ptr<Connexion>> registre;
    return registre;
}

std::string Canonique(const std::string& chemin)
{
    std::error_code erreur;
    const auto resultat = std::filesystem::canonical(chemin, erreur);
    return erreur ? std::string() : resultat.string();
}

std::string TypeDeclare(const DefinitionChamp& champ)
{
    switch (champ.type) {
        case ChampEntier16: return "smallint";
        case ChampEntier32: return "integer";
        case ChampTexte: return "text(" + std::to_string(champ.taille) + ")";
        case ChampMemo: break;
    }
    return "text";
}

std::string Colonne(const DefinitionChamp& champ)
{
    return EntreGuillemets(champ.nom) + " " + TypeDeclare(champ);
}

// Pages of 8 KB: half the reads of the default when a million rows are searched.
constexpr const char* Schema = R"(
pragma page_size = 8192;
begin;
create table "Catalogue" (
    "Num" integer primary key autoincrement,
    "Identifiant" text(255), "Label" text(255), "Standard" text(255), "typed" text(255), "NSerie" text(255),
    "Total" text(255), "Libre" text(255), "Occupe" text(255), "Icone" blob, "Unite" text(1), "Flag" boolean,
    "Tree" text, "Disque" text(1), "NPret" smallint, "Categorie" text(50));
create table "Liste" (
    "Num" integer primary key autoincrement,
    "NCatalogue" integer, "Répertoire" text(255), "RepertoirePere" text(255), "Nom" text(255), "Alias" text(255),
    "Taille" text(255), "TypeF" text(255), "DateF" text(255), "Heure" text(255), "attribut" text(10),
    "Description" text);
create table "Pret" (
    "Num" integer, "Nom" text(255), "PreNom" text(255), "Adresse" text(255), "Email" text(255), "Telephone" text(255));
create table "LE" ("Data" text);
)";

// What the statements in use look for: the contents of a directory, a directory's own row, the media of a borrower.
constexpr const char* Index[] = {
    R"(create index if not exists "ListeContenu" on "Liste" ("NCatalogue", "Répertoire"))",
    R"(create index if not exists "ListeDossier" on "Liste" ("RepertoirePere", "NCatalogue") where "RepertoirePere" <> '0')",
    R"(create index if not exists "CataloguePret" on "Catalogue" ("NPret"))",
};

// The bytes of an empty base, made in memory.
std::string BaseVide()
{
    sqlite3* db = nullptr;
    const int modes = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    bool fait = sqlite3_open_v2(":memory:", &db, modes, nullptr) == SQLITE_OK;
    fait = fait && sqlite3_exec(db, Schema, nullptr, nullptr, nullptr) == SQLITE_OK;
    for (const char* index : Index)
        fait = fait && sqlite3_exec(db, index, nullptr, nullptr, nullptr) == SQLITE_OK;
    fait = fait && sqlite3_exec(db, "commit", nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_int64 taille = 0;
    unsigned char* octets = fait ? sqlite3_serialize(db, "main", &taille, 0) : nullptr;
    std::string base(reinterpret_cast<const char*>(octets), octets ? static_cast<size_t>(taille) : 0);
    sqlite3_free(octets);
    sqlite3_close(db);
    return base;
}

bool EstSaine(const std::string& chemin)
{
    Connexion copie;
    if (copie.Ouvrir(chemin) != RefusBase::Aucun)
        return false;
    const Enonce enonce = copie.Preparer("pragma quick_check(1)");
    if (!enonce || sqlite3_step(enonce.get()) != SQLITE_ROW)
        return false;
    const auto* verdict = reinterpret_cast<const char*>(sqlite3_column_text(enonce.get(), 0));
    return verdict && std::string_view(verdict) == "ok";
}

bool Compacter(const std::string& source, const std::string& cible)
{
    Connexion connexion;
    if (connexion.Ouvrir(source) != RefusBase::Aucun)
        return false;
    const Enonce enonce = connexion.Preparer("vacuum into ?1");
    sqlite3_bind_text(enonce.get(), 1, cible.c_str(), -1, SQLITE_STATIC);
    return connexion.Terminer(enonce.get()) && EstSaine(cible);
}

}  // namespace

bool BaseOuverteIci(const std::string& chemin)
{
    const std::lock_guard garde(verrouRegistre);
    const auto place = Registre().find(Canonique(chemin));
    return place != Registre().end() && !place->second.expired();
}

Base OpenDatabase(const std::string& chemin, const std::stop_token& arret, RefusBase* refus)
{
    const std::lock_guard garde(verrouRegistre);
    const std::string canonique = Canonique(chemin);
    Base base;
    RefusBase ignore;
    RefusBase& motif = refus ? *refus : ignore;
    motif = canonique.empty() ? RefusBase::Absente : RefusBase::Aucun;
    if (canonique.empty())
        return base;
    std::weak_ptr<Connexion>& place = Registre()[canonique];
    base.connexion_ = place.lock();
    if (!base.connexion_) {
        auto connexion = std::make_shared<Connexion>();
        motif = connexion->Ouvrir(canonique);
        if (motif != RefusBase::Aucun) {
            Registre().erase(canonique);
            return base;
        }
        connexion->cheminAvis = canonique;
        place = connexion;
        base.connexion_ = std::move(connexion);
    }
    assert(base.connexion_->fil == std::this_thread::get_id() && "the store is for one thread at a time");
    base.arretable_ = arret.stop_possible() && !base.connexion_->arret.stop_possible();
    if (base.arretable_)
        base.connexion_->arret = arret;
    return base;
}

Base::~Base()
{
    Close();
}

Base::Base(Base&&) noexcept = default;

Base& Base::operator=(Base&& autre) noexcept
{
    if (this == &autre)
        return *this;
    Close();
    connexion_ = std::move(autre.connexion_);
    arretable_ = autre.arretable_;
    return *this;
}

void Base::Close()
{
    if (!connexion_)
        return;
    // The registry stays locked until the file is let go, so that another thread opens it before or after.
    const std::lock_guard garde(verrouRegistre);
    if (arretable_)
        connexion_->arret = {};
    connexion_.reset();
}

bool Base::Execute(std::string_view texte)
{
    if (!connexion_)
        return false;
    const std::string mot = PremierMot(texte);
    if (mot != "delete" && mot != "insert" && mot != "update")
        return false;
    const Enonce enonce = connexion_->Preparer(TraduireSql(texte));
    const bool fait = connexion_->Terminer(enonce.get());
    if (mot != "delete")
        connexion_->OublierCompteurs();
    return fait;
}

bool Base::TableDefs(std::string_view table)
{
    return connexion_ && connexion_->Table(table);
}

bool Base::ChampExiste(std::string_view table, std::string_view champ)
{
    const auto trouvee = connexion_ ? connexion_->Table(table) : nullptr;
    if (!trouvee)
        return false;
    for (const std::string& colonne : trouvee->colonnes) {
        if (MemeNom(colonne, champ))
            return true;
    }
    return false;
}

bool Base::CreateTableDef(std::string_view table, std::initializer_list<DefinitionChamp> champs)
{
    if (!connexion_ || TableDefs(table))
        return false;
    std::string sql;
    for (const DefinitionChamp& champ : champs)
        sql += (sql.empty() ? "" : ", ") + Colonne(champ);
    return connexion_->Executer("create table " + EntreGuillemets(table) + " (" + sql + ")");
}

bool Base::CreateField(std::string_view table, const DefinitionChamp& champ)
{
    if (!TableDefs(table) || ChampExiste(table, champ.nom))
        return false;
    const std::string sql = "alter table " + EntreGuillemets(table) + " add column " + Colonne(champ);
    const bool fait = connexion_->Executer(sql);
    connexion_->OublierTables();
    return fait;
}

bool Base::LireCompteur(std::array<uint8_t, 4>& compteur)
{
    return connexion_ && connexion_->LireCompteur(compteur);
}

bool Base::VerserFichier(const Versement& verser)
{
    return connexion_ && !connexion_->enTransaction && connexion_->Vider() && VerserDuMoteur(connexion_->db, verser);
}

bool Base::ParcourirNoms(const std::function<bool(int64_t, std::string_view, std::string_view)>& recevoir)
{
    if (!connexion_ || connexion_->enTransaction)  // rows that may yet be undone
        return false;
    const Enonce lignes = connexion_->Preparer("select rowid, Nom, Alias from Liste order by rowid");
    const auto texte = [&lignes](int colonne) {
        const auto* debut = reinterpret_cast<const char*>(sqlite3_column_text(lignes.get(), colonne));
        const auto taille = static_cast<size_t>(sqlite3_column_bytes(lignes.get(), colonne));
        return debut ? std::string_view(debut, taille) : std::string_view();
    };
    int etat = SQLITE_ERROR;
    while (lignes && (etat = sqlite3_step(lignes.get())) == SQLITE_ROW)
        if (!recevoir(sqlite3_column_int64(lignes.get(), 0), texte(1), texte(2)))
            return false;
    return etat == SQLITE_DONE;
}

void Base::CreerIndex()
{
    if (!connexion_)
        return;
    for (const char* index : Index)
        connexion_->Executer(index);
}

bool Base::CommencerTransaction()
{
    if (!connexion_ || connexion_->enTransaction)
        return false;
    connexion_->enTransaction = connexion_->Executer("begin immediate");
    return connexion_->enTransaction;
}

bool Base::Valider()
{
    if (!connexion_ || !connexion_->enTransaction)
        return false;
    const bool fait = connexion_->Executer("commit");
    if (!fait)
        connexion_->Executer("rollback");
    connexion_->enTransaction = false;
    return fait;
}

bool Base::Annuler()
{
    if (!connexion_ || !connexion_->enTransaction)
        return false;
    const bool fait = connexion_->Executer("rollback");
    connexion_->enTransaction = false;
    return fait;
}

bool CompactDatabase(const std::string& source, const std::string& cible)
{
    if (BaseOuverteIci(source) || BaseOuverteIci(cible))
        return false;
    SupprimerFichier(cible);
    if (FichierExiste(cible))
        return false;
    if (Compacter(source, cible))
        return true;
    SupprimerFichier(cible);
    return false;
}

bool BaseARendre(const std::string& chemin)
{
    if (BaseOuverteIci(chemin))
        return false;
    Connexion connexion;
    return connexion.Ouvrir(chemin) == RefusBase::Aucun && connexion.Nombre("pragma freelist_count", 0) > 0;
}

bool CreerBaseVide(const std::string& chemin)
{
    const std::string octets = BaseVide();
    return !octets.empty() && PoserBase(chemin, [&octets](const Versement& verser) { return verser(octets); });
}
