#include "store/Connexion.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "commun/Formes.h"
#include "commun/Motif.h"
#include "commun/Texte.h"
#include "platform/OperationsFichiers.h"
#include "store/BaseCourante.h"

namespace {

constexpr std::string_view Signature("SQLite format 3\0", 16);
constexpr size_t LignesParLot = 32;
constexpr int OperationsParPas = 10000;  // of the engine's machine, some 0.1 ms

// Asked every so many operations of the engine's machine; not 0 ends the statement.
int Pas(void* connexion)
{
    return static_cast<const Connexion*>(connexion)->arret.stop_requested();
}

int Comparer(void* connexion, int longueurGauche, const void* octetsGauche, int longueurDroite,
             const void* octetsDroite)
{
    // The engine sorts in one step of its machine: what is to stop is done soonest when all is equal.
    if (static_cast<const Connexion*>(connexion)->arret.stop_requested())
        return 0;
    return ComparerFrancais({static_cast<const char*>(octetsGauche), static_cast<size_t>(longueurGauche)},
                            {static_cast<const char*>(octetsDroite), static_cast<size_t>(longueurDroite)});
}

std::string_view Argument(sqlite3_value* valeur)
{
    const auto* texte = reinterpret_cast<const char*>(sqlite3_value_text(valeur));
    if (!texte)
        return {};
    return {texte, static_cast<size_t>(sqlite3_value_bytes(valeur))};
}

void DetruireMotif(void* motif)
{
    delete static_cast<Motif*>(motif);
}

// comme(motif, texte): the pattern is constant in a query and compiled once.
void Comme(sqlite3_context* contexte, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return;
    auto* motif = static_cast<Motif*>(sqlite3_get_auxdata(contexte, 0));
    if (motif) {
        sqlite3_result_int(contexte, motif->Correspond(Argument(arguments[1])));
        return;
    }
    motif = new Motif(Argument(arguments[0]));
    sqlite3_result_int(contexte, motif->Correspond(Argument(arguments[1])));
    sqlite3_set_auxdata(contexte, 0, motif, DetruireMotif);
}

// Read through the engine: a descriptor of another hand would cost it its locks.
bool PorteSignature(sqlite3* db)
{
    char debut[Signature.size()];
    sqlite3_file* fichier = FichierDuMoteur(db);
    return fichier && fichier->pMethods->xRead(fichier, debut, sizeof debut, 0) == SQLITE_OK &&
           Signature == std::string_view(debut, sizeof debut);
}

// Etrangere: without the signature of a database. Illisible: with it, but its schema can't be read. Inaccessible: not
// to be opened at all.
enum class Examen { Base, Autre, Illisible, Etrangere, Inaccessible };

RefusBase MotifDe(int etat)
{
    switch (etat) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED: return RefusBase::Occupee;
        case SQLITE_READONLY: return RefusBase::LectureSeule;
        default: return RefusBase::Illisible;
    }
}

constexpr const char* CompterTables =
    "select count(*) from sqlite_master where type = 'table' and rootpage > 0 and lower(name) in ('catalogue', "
    "'liste')";

int64_t PremiereValeur(sqlite3* db, const char* texte)
{
    sqlite3_stmt* enonce = nullptr;
    if (sqlite3_prepare_v2(db, texte, -1, &enonce, nullptr) != SQLITE_OK)
        return -1;
    const Enonce garde(enonce);
    return sqlite3_step(enonce) == SQLITE_ROW ? sqlite3_column_int64(enonce, 0) : -1;
}

// Errors of the disk or the file, after which the rows written before can't be trusted to stay.
bool CouteLaTransaction(int etat)
{
    switch (etat) {
        case SQLITE_FULL:
        case SQLITE_IOERR:
        case SQLITE_CANTOPEN:
        case SQLITE_READONLY:
        case SQLITE_CORRUPT:
        case SQLITE_NOMEM: return true;
        default: return false;
    }
}

// Looks at the schema without locks and without recovery, so that nothing can be written whatever the file is.
Examen Examiner(const std::string& chemin)
{
    std::string uri = "file:";
    for (const char c : chemin) {
        static constexpr char Hexa[] = "0123456789abcdef";
        const auto octet = static_cast<unsigned char>(c);
        if (c == '%' || c == '?' || c == '#')
            uri += {'%', Hexa[octet >> 4], Hexa[octet & 15]};
        else
            uri += c;
    }
    uri += "?immutable=1";
    sqlite3* db = nullptr;
    const int etat = sqlite3_open_v2(uri.c_str(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    const bool signee = etat == SQLITE_OK && PorteSignature(db);
    const int64_t nombre = signee ? PremiereValeur(db, CompterTables) : -1;
    sqlite3_close(db);
    if (etat != SQLITE_OK)
        return Examen::Inaccessible;
    if (!signee)
        return Examen::Etrangere;
    if (nombre < 0)
        return Examen::Illisible;
    return nombre == 2 ? Examen::Base : Examen::Autre;
}

}  // namespace

sqlite3_file* FichierDuMoteur(sqlite3* db)
{
    sqlite3_file* fichier = nullptr;
    const bool donne = sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &fichier) == SQLITE_OK;
    return donne && fichier && fichier->pMethods ? fichier : nullptr;
}

bool VerserDuMoteur(sqlite3* db, const Versement& verser)
{
    sqlite3_file* fichier = FichierDuMoteur(db);
    sqlite3_int64 taille = 0;
    if (!fichier || fichier->pMethods->xFileSize(fichier, &taille) != SQLITE_OK)
        return false;
    constexpr sqlite3_int64 morceau = 1 << 20;
    std::string tampon(morceau, '\0');
    for (sqlite3_int64 place = 0; place < taille; place += morceau) {
        const auto nombre = static_cast<int>(std::min(morceau, taille - place));
        if (fichier->pMethods->xRead(fichier, tampon.data(), nombre, place) != SQLITE_OK ||
            !verser(std::string_view(tampon.data(), static_cast<size_t>(nombre))))
            return false;
    }
    return true;
}

bool MemeNom(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && sqlite3_strnicmp(a.data(), b.data(), static_cast<int>(a.size())) == 0;
}

std::string PremierMot(std::string_view texte)
{
    const size_t debut = texte.find_first_not_of(" \t\r\n");
    std::string mot;
    for (size_t i = debut; i < texte.size(); ++i) {
        const char c = static_cast<char>(texte[i] | 0x20);
        if (c < 'a' || c > 'z')
            break;
        mot += c;
    }
    return mot;
}

std::string EntreGuillemets(std::string_view nom)
{
    std::string resultat = "\"";
    for (const char c : nom) {
        if (c == '"')
            resultat += c;
        resultat += c;
    }
    return resultat + '"';
}

bool Lier(sqlite3_stmt* enonce, int place, const Valeur& valeur)
{
    const auto taille = static_cast<sqlite3_uint64>(valeur.texte.size());
    const char* octets = valeur.texte.data();
    switch (valeur.genre) {
        case Valeur::Entier: return sqlite3_bind_int64(enonce, place, valeur.entier) == SQLITE_OK;
        case Valeur::Texte:
            return sqlite3_bind_text64(enonce, place, octets, taille, SQLITE_STATIC, SQLITE_UTF8) == SQLITE_OK;
        case Valeur::Octets: return sqlite3_bind_blob64(enonce, place, octets, taille, SQLITE_STATIC) == SQLITE_OK;
        default: return sqlite3_bind_null(enonce, place) == SQLITE_OK;
    }
}

Connexion::~Connexion()
{
    for (Attache* attache : std::vector<Attache*>(attaches))
        attache->Detacher();
    lots_.clear();
    sqlite3_close_v2(db);
}

RefusBase Connexion::Ouvrir(const std::string& chemin)
{
    if (!FichierExiste(chemin))
        return RefusBase::Etrangere;
    if (!fichier_.Prendre(chemin))
        return RefusBase::Illisible;
    switch (Examiner(chemin)) {
        case Examen::Base: break;
        case Examen::Inaccessible: return RefusBase::Illisible;
        case Examen::Autre:
        case Examen::Etrangere: return RefusBase::Etrangere;
        case Examen::Illisible:
            // A torn schema may be the work of a crash, which the journal beside the base undoes.
            if (!FichierExiste(chemin + "-journal"))
                return RefusBase::Illisible;
    }

    const int modes = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(chemin.c_str(), &db, modes, nullptr) != SQLITE_OK)
        return RefusBase::Illisible;
    if (sqlite3_db_readonly(db, "main") != 0)
        return RefusBase::LectureSeule;
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    const char* reglages =
        "pragma locking_mode = exclusive; pragma cell_size_check = on; pragma cache_size = -32768;"
        "begin exclusive; commit; pragma journal_mode = delete; pragma synchronous = full";
    if (const int etat = sqlite3_exec(db, reglages, nullptr, nullptr, nullptr); etat != SQLITE_OK)
        return MotifDe(etat & 0xff);
    if (PremiereValeur(db, CompterTables) != 2)
        return RefusBase::Illisible;
    sqlite3_create_collation(db, "francais", SQLITE_UTF8, this, Comparer);
    sqlite3_create_function(db, "comme", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr, Comme,
                            nullptr, nullptr);
    sqlite3_progress_handler(db, OperationsParPas, Pas, this);
    return RefusBase::Aucun;
}

bool Connexion::LireCompteur(std::array<uint8_t, 4>& compteur)
{
    constexpr sqlite3_int64 place = 24;
    sqlite3_file* fichier = FichierDuMoteur(db);
    return fichier && fichier->pMethods->xRead(fichier, compteur.data(), compteur.size(), place) == SQLITE_OK;
}

Enonce Connexion::Preparer(std::string_view texte)
{
    if (texte.find('\0') != std::string_view::npos)
        return nullptr;
    Vider();
    sqlite3_stmt* enonce = nullptr;
    const char* reste = nullptr;
    if (sqlite3_prepare_v2(db, texte.data(), static_cast<int>(texte.size()), &enonce, &reste) != SQLITE_OK)
        return nullptr;
    Enonce resultat(enonce);
    texte.remove_prefix(static_cast<size_t>(reste - texte.data()));
    return texte.find_first_not_of(" \t\r\n") == std::string_view::npos ? std::move(resultat) : nullptr;
}

bool Connexion::Terminer(sqlite3_stmt* enonce)
{
    if (!enonce || !PeutEcrire())
        return false;
    int etat = SQLITE_ROW;
    while (etat == SQLITE_ROW)
        etat = sqlite3_step(enonce);
    sqlite3_reset(enonce);
    if (etat == SQLITE_DONE)
        return true;
    if (!cheminAvis.empty() && CouteLaTransaction(etat & 0xff))
        LaisserAvis("La base n'a pas pu être écrite : " + cheminAvis);
    if (enTransaction && CouteLaTransaction(etat & 0xff) && !sqlite3_get_autocommit(db))
        sqlite3_exec(db, "rollback", nullptr, nullptr, nullptr);
    return false;
}

bool Connexion::Executer(std::string_view texte)
{
    return Terminer(Preparer(texte).get());
}

int64_t Connexion::Nombre(std::string_view texte, int64_t absent)
{
    const Enonce enonce = Preparer(texte);
    if (!enonce || sqlite3_step(enonce.get()) != SQLITE_ROW)
        return absent;
    return sqlite3_column_int64(enonce.get(), 0);
}

Lot& Connexion::LotDe(const std::shared_ptr<TableBase>& table)
{
    Lot& lot = lots_[table->nom + '/' + std::to_string(table->colonnes.size())];
    if (lot.une)
        return lot;
    std::string sql = "insert into " + EntreGuillemets(table->nom) + "(rowid";
    std::string places = "(?";
    for (size_t i = 0; i < table->colonnes.size(); ++i) {
        if (static_cast<int>(i) == table->compteur)
            continue;
        sql += ',' + EntreGuillemets(table->colonnes[i]);
        places += ",?";
    }
    places += ')';
    sql += ") values ";
    lot.table = table;
    lot.une = Preparer(sql + places);
    sql += places;
    for (size_t i = 1; i < LignesParLot; ++i)
        sql.append(",").append(places);
    lot.plusieurs = Preparer(sql);
    lot.capacite = lot.plusieurs ? LignesParLot : 1;
    lot.numeros.resize(lot.capacite);
    lot.valeurs.resize(lot.capacite * table->colonnes.size());
    return lot;
}

bool Connexion::Inserer(const std::shared_ptr<TableBase>& table, int64_t numero, std::vector<Valeur>& valeurs)
{
    const std::lock_guard garde(verrou_);
    if (!PeutEcrire())
        return false;
    if (enAttente_ && enAttente_->table != table && !Vider())
        return false;
    Lot& lot = enAttente_ ? *enAttente_ : LotDe(table);
    if (!lot.une)
        return false;
    lot.numeros[lot.nombre] = numero;
    Valeur* ligne = &lot.valeurs[lot.nombre * valeurs.size()];
    for (Valeur& valeur : valeurs)
        std::swap(*ligne++, valeur);
    ++lot.nombre;
    enAttente_ = &lot;
    return (enTransaction && lot.nombre < lot.capacite) || Vider();
}

bool Connexion::Vider()
{
    const std::lock_guard garde(verrou_);
    if (!enAttente_)
        return true;
    Lot& lot = *std::exchange(enAttente_, nullptr);
    const bool fait = Ecrire(lot);
    lot.nombre = 0;
    if (!fait && enTransaction && !sqlite3_get_autocommit(db))
        sqlite3_exec(db, "rollback", nullptr, nullptr, nullptr);
    return fait;
}

bool Connexion::Ecrire(Lot& lot)
{
    const size_t parEnonce = lot.nombre == lot.capacite ? lot.capacite : 1;
    sqlite3_stmt* enonce = parEnonce > 1 ? lot.plusieurs.get() : lot.une.get();
    const Valeur* valeur = lot.valeurs.data();
    int place = 1;
    for (size_t ligne = 0; ligne < lot.nombre; ++ligne) {
        sqlite3_bind_int64(enonce, place++, lot.numeros[ligne]);
        for (size_t i = 0; i < lot.table->colonnes.size(); ++i, ++valeur) {
            if (static_cast<int>(i) != lot.table->compteur && !Lier(enonce, place++, *valeur))
                return false;
        }
        if ((ligne + 1) % parEnonce != 0)
            continue;
        if (!Terminer(enonce))
            return false;
        place = 1;
    }
    return true;
}

std::shared_ptr<TableBase> Connexion::Table(std::string_view nom)
{
    const std::lock_guard garde(verrou_);
    std::string cle(nom);
    for (char& c : cle)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    if (const auto place = tables_.find(cle); place != tables_.end())
        return place->second;

    const Enonce enonce = Preparer(
        "select c.name, c.pk, lower(c.type), m.name from sqlite_master m, pragma_table_info(m.name) c"
        " where m.type = 'table' and m.name = ?1 collate nocase order by c.cid");
    if (!enonce)
        return nullptr;
    sqlite3_bind_text(enonce.get(), 1, nom.data(), static_cast<int>(nom.size()), SQLITE_STATIC);
    auto table = std::make_shared<TableBase>();
    const auto texte = [&enonce](int colonne) {
        const auto* debut = reinterpret_cast<const char*>(sqlite3_column_text(enonce.get(), colonne));
        return std::string(debut ? debut : "");
    };
    while (sqlite3_step(enonce.get()) == SQLITE_ROW) {
        if (sqlite3_column_int(enonce.get(), 1) == 1 && texte(2) == "integer")
            table->compteur = static_cast<int>(table->colonnes.size());
        table->colonnes.push_back(texte(0));
        table->nom = texte(3);
    }
    if (table->colonnes.empty())
        return nullptr;
    tables_.emplace(std::move(cle), table);
    return table;
}

int64_t Connexion::Reserver(TableBase& table)
{
    const std::lock_guard garde(verrou_);
    if (table.dernierNumero < 0) {
        const int64_t plusGrand = Nombre("select max(rowid) from " + EntreGuillemets(table.nom), 0);
        int64_t compte = 0;
        if (const Enonce enonce = Preparer("select seq from sqlite_sequence where name = ?1")) {
            sqlite3_bind_text(enonce.get(), 1, table.nom.c_str(), -1, SQLITE_STATIC);
            if (sqlite3_step(enonce.get()) == SQLITE_ROW)
                compte = sqlite3_column_int64(enonce.get(), 0);
        }
        table.dernierNumero = std::max<int64_t>({plusGrand, compte, 0});
    }
    if (table.dernierNumero == INT64_MAX)
        return 0;
    return ++table.dernierNumero;
}

void Connexion::OublierCompteurs()
{
    const std::lock_guard garde(verrou_);
    for (auto& [nom, table] : tables_) {
        if (table->dernierNumero < 0)
            continue;
        // Numbers given out and not yet written stay taken.
        const int64_t plusGrand = Nombre("select max(rowid) from " + EntreGuillemets(table->nom), 0);
        table->dernierNumero = std::max(table->dernierNumero, plusGrand);
    }
}

void Connexion::OublierTables()
{
    const std::lock_guard garde(verrou_);
    tables_.clear();
}
